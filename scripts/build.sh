#!/usr/bin/env bash
# Configures and builds one preset (default, asan or tsan) after the set-up.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
bash scripts/setup.sh
cmake --preset "$preset"
cmake --build --preset "$preset" -j "$(nproc)"
