#!/usr/bin/env bash
# The release zip, used as an administrator would: built with the package
# target, unpacked into a new folder, registered with its own register.cmd in
# a Wine prefix where nothing was registered (first without the simulator,
# which must stay unregistered, then with /simulator), cvcli help and cvcli
# disk list against the simulator and its default scenario from the zip, and
# unregister.cmd /simulator. Every program carries the project's version.
#
#   tests/package/package_test.sh BUILD_DIR
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/fresh_prefix.sh"
build=$(cd "$1" && pwd)
work=$build/package-test
prefix=$work/prefix
fail() { echo "package test: $*" >&2; exit 1; }

cmake --build "$build" --target package >/dev/null || fail "the package target failed"
zip=$(ls "$build"/package/cvcli-*-win64.zip 2>/dev/null | head -n 1)
[ -n "$zip" ] || fail "no zip in $build/package"

WINEPREFIX=$prefix quiet "$WINESERVER" -k || true
rm -rf "$work"
mkdir -p "$work"
python3 -c 'import sys, zipfile; zipfile.ZipFile(sys.argv[1]).extractall(sys.argv[2])' "$zip" "$work/unpacked"
root=$work/unpacked
expected="CorvanePS.dll CorvaneRes.dll corvane-sim.exe cvcli.exe docs/commands.md docs/exit-status.md docs/simulator.md
docs/user-guide.md register.cmd scenario.json unregister.cmd"
actual=$(cd "$root" && find . -type f | sed 's|^\./||' | LC_ALL=C sort | tr '\n' ' ')
[ "$actual" = "$(echo $expected | tr ' ' '\n' | LC_ALL=C sort | tr '\n' ' ')" ] ||
    fail "$(basename "$zip") holds: $actual; expected: $expected"
version=$(basename "$zip" | sed 's/^cvcli-\(.*\)-win64\.zip$/\1/')
for f in cvcli.exe CorvaneRes.dll CorvanePS.dll corvane-sim.exe; do
    resources=$(x86_64-w64-mingw32-windres -i "$root/$f" -O rc 2>/dev/null) || fail "$f has no resources"
    grep -q "VALUE \"FileVersion\", \"$version\"" <<<"$resources" || fail "$f does not carry the file version $version"
    grep -q "VALUE \"ProductVersion\", \"$version\"" <<<"$resources" || fail "$f does not carry the product version $version"
    grep -q "VALUE \"OriginalFilename\", \"$f\"" <<<"$resources" || fail "$f does not carry its own file name"
done

fresh_prefix "$build" "$prefix"

run() { # run PROGRAM ARGS...: stdout in $out (and $work/out), see ran
    status=0 ran="$*"
    "$WINE" "$@" </dev/null >"$work/out" 2>"$work/err" || status=$?
    out=$(cat "$work/out")
}

# Before registration the service is absent.
run "$(winpath "$root/cvcli.exe")" disk list
grep -q "Failed to connect to the Corvane service" "$work/out" || fail "an unregistered host did not report the missing service"

run cmd /c "$(winpath "$root/register.cmd")" /simulate
ran 2 "Usage: register.cmd \[/simulator\]"

# A failed step is named with its cause: here a missing library.
mkdir "$work/broken"
cp "$root/register.cmd" "$work/broken/"
run cmd /c "$(winpath "$work/broken/register.cmd")"
ran 1 "Registering the proxy/stub library .*CorvanePS.dll failed: regsvr32 ended with status 3" "could not be loaded"

# By default only the proxy/stub library: the service stays absent.
run cmd /c "$(winpath "$root/register.cmd")"
ran 0 "Registered the proxy/stub library"
! grep -q "simulator" "$work/out" || fail "register.cmd registered the simulator without /simulator: $out"
run "$(winpath "$root/cvcli.exe")" disk list
grep -q "Failed to connect to the Corvane service" "$work/out" || fail "register.cmd alone made a service available"

run cmd /c "$(winpath "$root/register.cmd")" /simulator
ran 0 "Registered the simulator"

# cvcli help looks for the service too: the simulator plays the scenario.json
# beside it, the demo scenario, with no variable set.
unset CORVANE_SIM_SCENARIO
export CORVANE_SIM_LOG; CORVANE_SIM_LOG=$(winpath "$work/calls.jsonl")
# Until its first creation the simulator lingers as long as this says (then as
# its scenario says). It must outlast the client's own start: Wine's COM polls
# for a freshly started server's classes about once a second, and a simulator
# gone by then fails the creation with "RPC call failed" (0x800706BE, low byte
# 190) on a loaded machine. The Wine server is stopped at the end anyway.
export CORVANE_SIM_LINGER=60
run "$(winpath "$root/cvcli.exe")" help
ran 87 "snap" # E_INVALIDARG and the command list

run "$(winpath "$root/cvcli.exe")" disk list
ran 0 "filer-east" "The operation completed successfully" # the demo LUNs
grep -q '"IVirtualDisk2.EnumerateDisksEx"' "$work/calls.jsonl" || fail "the simulator from the zip logged no listing"

# unregister.cmd /simulator takes the simulator's classes and the proxy away.
quiet "$WINESERVER" -k || true
quiet "$WINESERVER" -p30
run cmd /c "$(winpath "$root/unregister.cmd")" /simulator
ran 0 "Unregistered the simulator" "Unregistered the proxy/stub library"
run "$(winpath "$root/cvcli.exe")" disk list
grep -q "Failed to connect to the Corvane service" "$work/out" || fail "the service was still there after unregister.cmd"
echo "package test: $(basename "$zip") unpacked, registered, run and unregistered"
