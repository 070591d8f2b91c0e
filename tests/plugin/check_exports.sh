#!/bin/sh
# The plugin library names itself libNetSrvPlugin.so.1 and lets nothing out but
# its two entry points: no C++ symbol may be visible to the host.
set -eu
lib="$1"
soname=$(readelf -d "$lib" | sed -n 's/.*(SONAME).*\[\(.*\)\].*/\1/p')
if [ "$soname" != "libNetSrvPlugin.so.1" ]; then
    echo "SONAME is '$soname', expected libNetSrvPlugin.so.1" >&2
    exit 1
fi
defined=$(nm -D --defined-only "$lib" | awk '{print $3}' | sort)
expected=$(printf 'CreatePlugin\nReleasePlugin\n')
if [ "$defined" != "$expected" ]; then
    echo "exported symbols differ from CreatePlugin, ReleasePlugin:" >&2
    echo "$defined" >&2
    exit 1
fi
echo "SONAME $soname; exports: $(echo $defined)"
