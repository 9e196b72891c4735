#!/usr/bin/env bash
# Registers the simulated Corvane service in a Wine prefix: the proxy/stub DLL
# (CorvanePS.dll) and the server (corvane-sim.exe), both from a build directory.
#
#   simulator/register.sh [--unregister] BUILD_DIR
#
# The prefix is $WINEPREFIX, else BUILD_DIR/wineprefix (created when missing).
# Registration stores Windows paths (drive Z: is the Linux root), so the build
# directory must stay where it is. A simulator still lingering from an earlier
# build is stopped first, so the next client starts the new one.
set -euo pipefail

unregister=0
if [ "${1:-}" = --unregister ]; then
    unregister=1
    shift
fi
[ $# -eq 1 ] || { sed -n '2,9s/^# \{0,1\}//p' "$0" >&2; exit 2; }

build=$(cd "$1" && pwd)
export WINEPREFIX=${WINEPREFIX:-$build/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
wine=${WINE:-/usr/lib/wine/wine64}
wineserver=${WINESERVER:-/usr/lib/wine/wineserver}
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)
[ -x "$wineserver" ] || wineserver=$(command -v wineserver)

sim=$build/corvane-sim.exe
ps=$build/CorvanePS.dll
for f in "$sim" "$ps"; do
    [ -f "$f" ] || { echo "register.sh: $f is missing (build first)" >&2; exit 1; }
done
winpath() { local p=${1//\//\\}; echo "Z:$p"; }
quiet() { "$@" </dev/null >/dev/null 2>&1; }

if [ ! -f "$WINEPREFIX/system.reg" ]; then
    echo "Creating the Wine prefix $WINEPREFIX"
    quiet "$wine" wineboot --init
fi
quiet "$wineserver" -k || true
quiet "$wineserver" -w || true

if [ $unregister -eq 1 ]; then
    "$wine" "$(winpath "$sim")" /unregserver || { echo "register.sh: corvane-sim.exe /unregserver failed" >&2; exit 1; }
    quiet "$wine" regsvr32 /s /u "$(winpath "$ps")" || { echo "register.sh: regsvr32 /u failed" >&2; exit 1; }
else
    quiet "$wine" regsvr32 /s "$(winpath "$ps")" || { echo "register.sh: regsvr32 CorvanePS.dll failed" >&2; exit 1; }
    "$wine" "$(winpath "$sim")" /regserver || { echo "register.sh: corvane-sim.exe /regserver failed" >&2; exit 1; }
fi
# The registry reaches the prefix's files when the Wine server stops.
quiet "$wineserver" -w || true
echo "register.sh: $([ $unregister -eq 1 ] && echo unregistered || echo registered) in $WINEPREFIX"
