#!/usr/bin/env bash
# Sets up the machine and builds everything: the platform libraries and the
# plugin libNetSrvPlugin.so.1, then shows what the plugin library exports.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh default
plugin=$(find build/default/src -name 'libNetSrvPlugin.so.1' | head -n 1)
echo
echo "Built $plugin"
sh tests/plugin/check_exports.sh "$plugin"
