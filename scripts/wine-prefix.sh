#!/usr/bin/env bash
# Prepares the two Wine prefixes of a build directory and, on request, starts
# or stops their Wine servers.
#
#   scripts/wine-prefix.sh [--start | --stop] [BUILD_DIR]      (default: build)
#
# BUILD_DIR/wineprefix       the service is registered: the proxy/stub DLL
#                            CorvanePS.dll and the simulator corvane-sim.exe
# BUILD_DIR/wineprefix-bare  nothing registered: the service is absent
#
# Creating a prefix takes several seconds and about 700 MB, so the registered
# prefix is a hard-linked copy of the bare one (only the registry files are
# real copies: the Wine server replaces them as a whole when it saves).
# When both exist, only a stale registration is redone (the binaries changed).
#
# --start  also starts a persistent Wine server for each prefix and primes it
#          (the first process after a fresh server may otherwise hang a caller
#          whose stderr is a pipe); the servers outlive this script.
# --stop   stops both servers (and with them a lingering simulator).
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=wine-env.sh
. "$here/wine-env.sh"
cvcli_find_wine

action=setup
case "${1:-}" in
--start) action=start; shift ;;
--stop) action=stop; shift ;;
-h | --help) sed -n '2,20s/^# \{0,1\}//p' "$0"; exit 0 ;;
esac
build=$(cd "${1:-$here/../build}" && pwd)
full=$build/wineprefix
bare=$build/wineprefix-bare
# Seconds a started server waits after its last process before it exits: long
# enough to stay warm across a whole test run, short enough to clean up after
# an interrupted one.
persist=${CVCLI_WINESERVER_PERSIST:-120}

# Nothing started here may keep a lock (fds 7 and 9) or the caller's streams.
quiet() { "$@" </dev/null >/dev/null 2>&1 9>&- 7>&-; }

# Waits until no program started by scripts/wine-run.sh runs in this build's
# prefixes (at most a few minutes), so that stopping does not kill a test.
wait_idle() {
    [ -n "${idle_lock_taken:-}" ] && return 0
    exec 7>"$build/.wineprefix.inuse"
    flock -x -w 300 7 || echo "warning: Wine programs still running in $build; stopping anyway" >&2
    idle_lock_taken=1
}

stop_server() {
    wait_idle
    if [ -d "$1" ]; then
        WINEPREFIX=$1 quiet "$WINESERVER" -k || true
        WINEPREFIX=$1 quiet "$WINESERVER" -w || true
    fi
}

start_server() {
    # The server's standard streams must not be the caller's: a test runner
    # that waits for its pipes to close would wait for the server too.
    # Fails (status 2) when a server already runs: that one is warm already.
    WINEPREFIX=$1 quiet "$WINESERVER" -p"$persist" || true
    WINEPREFIX=$1 quiet "$WINE" wineboot
}

create_bare() {
    local tmp=$bare.new
    rm -rf "$tmp"
    mkdir -p "$tmp"
    echo "Creating the Wine prefix $bare (takes a few seconds)"
    WINEPREFIX=$tmp quiet "$WINESERVER" -p
    WINEPREFIX=$tmp quiet "$WINE" wineboot --init
    # Stopping the server writes the registry files.
    stop_server "$tmp"
    [ -f "$tmp/system.reg" ] || { echo "wineboot did not create $tmp" >&2; exit 1; }
    mv "$tmp" "$bare"
}

# The registered prefix is prepared under another name and renamed when it is
# complete, so that nothing runs in it half-made.
create_full() {
    local tmp=$full.new
    rm -rf "$tmp" "$full"
    cp -al "$bare" "$tmp"
    for f in "$tmp"/*.reg; do
        cp --remove-destination "$bare/$(basename "$f")" "$f"
    done
    register "$tmp"
    mv "$tmp" "$full"
}

winpath() { local p=${1//\//\\}; echo "Z:$p"; }

# Prints the path of a built artifact: at the top of the build tree, else
# wherever the build put it.
artifact() {
    if [ -f "$build/$1" ]; then
        echo "$build/$1"
        return
    fi
    find "$build" -path "$build/wineprefix*" -prune -o -name "$1" -type f -print 2>/dev/null | head -n 1
}

# Registers the proxy/stub DLL and the simulator in prefix $1, unless the
# stamp says that these very binaries are registered there already.
register() {
    local prefix=$1 ps sim stamp want
    ps=$(artifact CorvanePS.dll)
    sim=$(artifact corvane-sim.exe)
    if [ -z "$ps" ] || [ -z "$sim" ]; then
        echo "warning: CorvanePS.dll or corvane-sim.exe not built: the service stays unregistered in $full" >&2
        return 0
    fi
    stamp=$prefix/.cvcli-registered
    want=$(stat -c '%n %s %Y' "$ps" "$sim")
    if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$want" ]; then
        return 0
    fi
    echo "Registering $(basename "$ps") and $(basename "$sim") in $full"
    # A simulator left running from the previous build would keep serving the
    # old code: stop the server first.
    stop_server "$prefix"
    WINEPREFIX=$prefix quiet "$WINESERVER" -p
    # Windows paths (drive Z: is the Linux root), so that the registry holds
    # paths that every Windows process resolves the same way.
    WINEPREFIX=$prefix quiet "$WINE" regsvr32 /s "$(winpath "$ps")" || { echo "regsvr32 $ps failed" >&2; exit 1; }
    WINEPREFIX=$prefix quiet "$WINE" "$(winpath "$sim")" /regserver || { echo "$sim /regserver failed" >&2; exit 1; }
    # Make the registration durable before anything else uses the prefix.
    stop_server "$prefix"
    echo "$want" >"$stamp"
}

if [ "$action" = stop ]; then
    stop_server "$full"
    stop_server "$bare"
    exit 0
fi

mkdir -p "$build"
# One preparer at a time per build directory (a test fixture and a hand-run
# harness may both ask).
exec 9>"$build/.wineprefix.lock"
flock 9

[ -f "$bare/system.reg" ] || create_bare
if [ -f "$full/system.reg" ]; then
    register "$full"
else
    create_full
fi

if [ "$action" = start ]; then
    start_server "$bare"
    start_server "$full"
fi
