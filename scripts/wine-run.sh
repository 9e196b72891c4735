#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix (never ~/.wine).
#
#   scripts/wine-run.sh PROGRAM [ARGUMENTS...]
#
# The prefix is $WINEPREFIX when set; otherwise the prefix of the build
# directory that holds PROGRAM (the nearest directory above it with a
# CMakeCache.txt), else build/wineprefix. A missing build prefix is created
# first (scripts/wine-prefix.sh), so CTest may run programs in any build tree.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=wine-env.sh
. "$here/wine-env.sh"
cvcli_find_wine

build_dir_of() {
    local dir
    dir=$(cd "$(dirname "$1")" 2>/dev/null && pwd) || return 1
    while [ "$dir" != / ]; do
        if [ -f "$dir/CMakeCache.txt" ]; then
            echo "$dir"
            return 0
        fi
        dir=$(dirname "$dir")
    done
    return 1
}

if [ -z "${WINEPREFIX:-}" ]; then
    build=$( { [ $# -gt 0 ] && build_dir_of "$1"; } || echo "$here/../build")
    export WINEPREFIX=$build/wineprefix
fi
case "$(basename "$WINEPREFIX")" in
wineprefix | wineprefix-bare)
    build=$(dirname "$WINEPREFIX")
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        bash "$here/wine-prefix.sh" "$build" </dev/null >&2
    fi
    # While the program runs, scripts/wine-prefix.sh neither stops the Wine
    # servers nor re-registers: it waits for this shared lock. The lock stays
    # with this shell, not with the processes Wine starts (they may linger).
    exec 8>"$build/.wineprefix.inuse"
    flock -s 8
    status=0
    "$WINE" "$@" 8>&- || status=$?
    exit $status
    ;;
esac
exec "$WINE" "$@"
