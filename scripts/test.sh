#!/usr/bin/env bash
# Sets up the machine, builds one preset (default unless named: asan, tsan) and
# runs its whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
bash scripts/build.sh "$preset"
ctest --preset "$preset" -j "$(nproc)"
