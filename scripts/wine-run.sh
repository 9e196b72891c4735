#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix (never ~/.wine).
# WINEPREFIX may be set by the caller; by default the prefix lives in build/.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export WINEPREFIX=${WINEPREFIX:-$here/../build/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export LANG=${LANG:-C.UTF-8}
wine=$(command -v wine || true)
[ -n "$wine" ] || wine=/usr/lib/wine/wine64
exec "$wine" "$@"
