#!/usr/bin/env bash
# Installs what the build and the tests need on a fresh Debian machine.
# Packages already present are left alone, so a second run is quick.
set -euo pipefail

packages=(cmake make g++ pkg-config binutils googletest libgtest-dev libgmock-dev
          libbenchmark-dev nlohmann-json3-dev libcli11-dev)

missing=()
for pkg in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$pkg")
    fi
done

if [ "${#missing[@]}" -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo_cmd=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo_cmd=(sudo)
    fi
    export DEBIAN_FRONTEND=noninteractive
    "${sudo_cmd[@]}" apt-get update -qq
    "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}"
fi
