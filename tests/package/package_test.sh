#!/usr/bin/env bash
# The release zip, used as an administrator would: built with the package
# target, unpacked into a new folder, registered with its own register.cmd in
# a Wine prefix where nothing was registered, then cvcli help and cvcli disk
# list against the simulator and the demo scenario from the zip.
#
#   tests/package/package_test.sh BUILD_DIR
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../scripts/wine-env.sh"
cvcli_find_wine
build=$(cd "$1" && pwd)
work=$build/package-test
prefix=$work/prefix
fail() { echo "package test: $*" >&2; exit 1; }
quiet() { "$@" </dev/null >/dev/null 2>&1; }
winpath() { local p=${1//\//\\}; echo "Z:$p"; }

cmake --build "$build" --target package >/dev/null || fail "the package target failed"
zip=$(ls "$build"/package/cvcli-*-win64.zip 2>/dev/null | head -n 1)
[ -n "$zip" ] || fail "no zip in $build/package"

WINEPREFIX=$prefix quiet "$WINESERVER" -k || true
rm -rf "$work"
mkdir -p "$work"
python3 -c 'import sys, zipfile; zipfile.ZipFile(sys.argv[1]).extractall(sys.argv[2])' "$zip" "$work/unpacked"
root=$(ls -d "$work"/unpacked/cvcli-*-win64)
for f in cvcli.exe CorvaneRes.dll CorvanePS.dll corvane-sim.exe register.cmd unregister.cmd scenarios/demo.json \
    README.md docs/commands.md docs/exit-status.md; do
    [ -f "$root/$f" ] || fail "$f is missing from $(basename "$zip")"
done

# A prefix with nothing registered: a copy of the build's bare one (its
# registry files copied, the rest hard-linked), or a new one.
bare=$build/wineprefix-bare
if [ -f "$bare/system.reg" ]; then
    cp -al "$bare" "$prefix"
    for f in "$prefix"/*.reg; do cp --remove-destination "$bare/$(basename "$f")" "$f"; done
else
    WINEPREFIX=$prefix quiet "$WINE" wineboot --init
fi
export WINEPREFIX=$prefix
trap 'quiet "$WINESERVER" -k || true' EXIT
quiet "$WINESERVER" -p30

run() { # run PROGRAM ARGS...: stdout to $work/out, the low byte of the status in $status
    status=0
    "$WINE" "$@" </dev/null >"$work/out" 2>"$work/err" || status=$?
}

# Before registration the service is absent.
run "$(winpath "$root/cvcli.exe")" disk list
grep -q "Failed to connect to the Corvane service" "$work/out" || fail "an unregistered host did not report the missing service"

run cmd /c "$(winpath "$root/register.cmd")"
[ "$status" -eq 0 ] || fail "register.cmd exited with $status: $(cat "$work/out")"
grep -q "Registered from" "$work/out" || fail "register.cmd printed: $(cat "$work/out")"

# cvcli help looks for the service too: the simulator plays the demo scenario.
export CORVANE_SIM_SCENARIO; CORVANE_SIM_SCENARIO=$(winpath "$root/scenarios/demo.json")
export CORVANE_SIM_LOG; CORVANE_SIM_LOG=$(winpath "$work/calls.jsonl")
export CORVANE_SIM_LINGER=1
run "$(winpath "$root/cvcli.exe")" help
[ "$status" -eq 87 ] || fail "cvcli help exited with $status, expected E_INVALIDARG (low byte 87)"
grep -q "snap" "$work/out" || fail "cvcli help printed no command list"

run "$(winpath "$root/cvcli.exe")" disk list
[ "$status" -eq 0 ] || fail "cvcli disk list exited with $status: $(cat "$work/out")"
grep -q "filer-east" "$work/out" || fail "cvcli disk list did not list the demo LUNs"
grep -q "The operation completed successfully" "$work/out" || fail "no completion line"
grep -q '"IVirtualDisk2.EnumerateDisksEx"' "$work/calls.jsonl" || fail "the simulator from the zip logged no listing"
echo "package test: $(basename "$zip") unpacked, registered and run"
