#!/usr/bin/env bash
# The MSI, used as an administrator would, in a fresh Wine prefix of its own:
# installed with msiexec /qn (cvcli found through the system PATH, the
# simulator absent), upgraded by a newer build with the simulator feature
# (cvcli disk list against the demo scenario, the older product gone; the
# older one may not come back over it), and uninstalled: no file, no PATH
# entry and no registry key of it may remain.
# Every step's command and output go to BUILD_DIR/msi-test/transcript.txt.
#
#   tests/package/msi_test.sh BUILD_DIR SOURCE_DIR VERSION
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/fresh_prefix.sh"
build=$(cd "$1" && pwd)
source_dir=$(cd "$2" && pwd)
version=$3
work=$build/msi-test
prefix=$work/prefix
transcript=$work/transcript.txt
fail() {
    echo "msi test: $*" >&2
    echo "(transcript: $transcript)" >&2
    exit 1
}

cmake --build "$build" --target msi >/dev/null || fail "the msi target failed"
older=$build/package/cvcli-$version-win64.msi
[ -f "$older" ] || fail "no $older"
IFS=. read -r major minor patch <<<"$version"
newer_version=$major.$minor.$((patch + 1))
WINEPREFIX=$prefix quiet "$WINESERVER" -k || true
rm -rf "$work"
mkdir -p "$work"
newer=$work/cvcli-$newer_version-win64.msi
python3 "$source_dir/package/build_msi.py" --version "$newer_version" --bin-dir "$build" --source-dir "$source_dir" \
    --output "$newer" || fail "the newer MSI could not be built"
product_code() { msiinfo export "$1" Property | tr -d '\r' | awk -F'\t' '$1 == "ProductCode" { print $2 }'; }
older_code=$(product_code "$older")
newer_code=$(product_code "$newer")
[ -n "$older_code" ] && [ "$older_code" != "$newer_code" ] || fail "the two builds must have product codes of their own"

fresh_prefix "$build" "$prefix"
# Long enough for a loaded machine to reach the first creation (a simulator
# gone by then fails it with 0x800706BE); from then on the installed
# scenario's own linger applies, and step 3 waits for its end.
export CORVANE_SIM_LINGER=60
unset CORVANE_SIM_SCENARIO CORVANE_SIM_LOG

# run PROGRAM ARGS...: the output in $out, the low byte of the status in
# $status; both, with the command, appended to the transcript.
run() {
    status=0 ran="$*"
    out=$("$WINE" "$@" </dev/null 2>&1) || status=$?
    out=${out//$'\r'/}
    { echo "\$ $*"; [ -z "$out" ] || echo "$out"; echo "[status $status]"; echo; } >>"$transcript"
}
install_dir=$prefix/drive_c/Program\ Files/cvcli
environment='HKLM\System\CurrentControlSet\Control\Session Manager\Environment'
system_path() { "$WINE" reg query "$environment" /v PATH </dev/null | tr -d '\r' | sed -n 's/^ *PATH *REG_[A-Z_]* *//p'; }
exists() { quiet "$WINE" reg query "$1"; }
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall'
# Keys that the MSI writes: the proxy's class, two of its interfaces, and
# the simulator's VirtualDiskService class.
proxy_keys=('HKCR\CLSID\{F84E4201-6147-46B0-9218-F50EC04C564D}\InProcServer32'
    'HKCR\Interface\{47469EEE-4ED2-4E33-94EC-3E5EF21DB179}\ProxyStubClsid32'
    'HKCR\Interface\{8E952D61-0CEC-4761-B0AE-6169EA37364D}\ProxyStubClsid32')
simulator_key='HKCR\CLSID\{952CF435-E6D2-4D31-8523-84D36FE9F116}\LocalServer32'

# What the installer touches, for the transcript after each msiexec.
state() {
    local key
    {
        echo "# files: $( [ -d "$install_dir" ] && (cd "$install_dir" && find . -type f | sed 's|^\./||' | sort | tr '\n' ' '))"
        echo "# PATH: $(system_path)"
        for key in "${proxy_keys[@]}" "$simulator_key"; do
            if exists "$key"; then echo "# present: $key"; else echo "# absent: $key"; fi
        done
        echo
    } >>"$transcript"
}

path_before=$(system_path)
state

# 1. Install with the default features.
run msiexec /i "$(winpath "$older")" /qn
state
[ "$status" -eq 0 ] || fail "msiexec /i exited with $status: $out"
for f in cvcli.exe CorvaneRes.dll CorvanePS.dll docs/user-guide.md docs/commands.md; do
    [ -f "$install_dir/$f" ] || fail "$f was not installed"
done
[ ! -e "$install_dir/corvane-sim.exe" ] || fail "the simulator was installed although its feature is off by default"
exists "$simulator_key" && fail "the simulator was registered although its feature is off by default"
for key in "${proxy_keys[@]}"; do exists "$key" || fail "$key was not written"; done
[[ "$(system_path)" == *'C:\Program Files\cvcli\'* ]] || fail "the system PATH does not hold the folder: $(system_path)"
exists "$uninstall_key\\$older_code" || fail "the product is not registered"

# cvcli by name, through the system PATH: its texts load, and without the
# service the help reports the missing service.
run cmd /c cvcli help
ran 84 "Failed to connect to the Corvane service" # REGDB_E_CLASSNOTREG
run cmd /c cvcli disk help
ran 87 "The disk command" # E_INVALIDARG

# 2. Upgrade with the newer build and the simulator feature.
run msiexec /i "$(winpath "$newer")" ADDLOCAL=ALL /qn
state
[ "$status" -eq 0 ] || fail "the upgrade exited with $status: $out"
exists "$uninstall_key\\$older_code" && fail "the older product is still registered after the upgrade"
exists "$uninstall_key\\$newer_code" || fail "the newer product is not registered"
run reg query "$uninstall_key\\$newer_code" /v DisplayVersion
grep -q "$newer_version" <<<"$out" || fail "the registered version is not $newer_version: $out"
[ -f "$install_dir/corvane-sim.exe" ] && [ -f "$install_dir/scenario.json" ] || fail "the simulator was not installed"
exists "$simulator_key" || fail "the simulator was not registered"
[ "$(system_path | grep -o 'C:\\Program Files\\cvcli\\' | wc -l)" -eq 1 ] ||
    fail "the system PATH does not hold the folder exactly once: $(system_path)"
run cmd /c cvcli disk list
ran 0 "filer-east:/vol/sql_data/lun_db" "The operation completed successfully" # the demo LUNs

# An older build does not replace a newer one.
run msiexec /i "$(winpath "$older")" /qn
[ "$status" -ne 0 ] || fail "the older MSI was installed over the newer one"
exists "$uninstall_key\\$newer_code" && ! exists "$uninstall_key\\$older_code" ||
    fail "installing the older MSI over the newer one changed what is installed"

# 3. Uninstall: exactly what was added goes. No program of the product may
# still run (the simulator lingers), or its file would stay behind.
simulator_running() {
    local p
    for p in /proc/[0-9]*; do
        grep -qa corvane-sim "$p/cmdline" 2>/dev/null && grep -qa "WINEPREFIX=$prefix" "$p/environ" 2>/dev/null && return 0
    done
    return 1
}
for _ in $(seq 100); do simulator_running || break; sleep 0.2; done
simulator_running && fail "the simulator did not exit"
run msiexec /x "$(winpath "$newer")" /qn
state
[ "$status" -eq 0 ] || fail "msiexec /x exited with $status: $out"
[ ! -e "$install_dir" ] || fail "files remain: $(cd "$install_dir" && find . | tr '\n' ' ')"
[ "$(system_path)" = "$path_before" ] || fail "the system PATH is $(system_path), it was $path_before"
for key in "${proxy_keys[@]}" "$simulator_key" "$uninstall_key\\$newer_code"; do
    exists "$key" && fail "$key remains after the uninstall"
done
run cmd /c cvcli help
[ "$status" -ne 0 ] || fail "cvcli still runs after the uninstall: $out"
echo "msi test: $(basename "$older") installed, upgraded by $(basename "$newer") and uninstalled (transcript: $transcript)"
