# Sourced by the other scripts: where Wine lives and how it must be run for
# cvcli. Wine 8 on Debian keeps its launcher and server outside PATH; WINE and
# WINESERVER may name others, as long as both come from the same Wine.
# shellcheck shell=bash

cvcli_find_wine() {
    if [ -z "${WINE:-}" ]; then
        if [ -x /usr/lib/wine/wine64 ]; then
            WINE=/usr/lib/wine/wine64
        else
            WINE=$(command -v wine64 || command -v wine || true)
        fi
    fi
    if [ -z "${WINESERVER:-}" ]; then
        if [ -x /usr/lib/wine/wineserver ]; then
            WINESERVER=/usr/lib/wine/wineserver
        else
            WINESERVER=$(command -v wineserver || true)
        fi
    fi
    if [ -z "$WINE" ] || [ -z "$WINESERVER" ]; then
        echo "Wine is not installed (run scripts/bootstrap.sh)" >&2
        return 1
    fi
    export WINE WINESERVER
}

# No debug chatter, no Mono or Gecko install dialogs, no window to wait for,
# and a UTF-8 locale so that non-ASCII arguments reach the program intact.
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY
