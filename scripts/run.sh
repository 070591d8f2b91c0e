#!/usr/bin/env bash
# Sets up the machine, builds everything and runs netsrvctl against the
# built-in modem simulator: with no command it shows the modem's status and
# signal; then the plugin's identity, the modem's last error and the addresses
# of the (absent) data link.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh default
tool=build/default/tools/netsrvctl/netsrvctl
echo
echo "\$ netsrvctl --simulate"
"$tool" --simulate
echo
echo "\$ netsrvctl --simulate plugin-info"
"$tool" --simulate plugin-info
echo
echo "\$ netsrvctl --simulate lasterr 1"
"$tool" --simulate lasterr 1
echo
echo "\$ netsrvctl --simulate address"
# The simulator brings up no data link, so this one reports that it found none.
"$tool" --simulate address || true
