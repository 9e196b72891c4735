# Sourced by the release tests: Wine found, and the helpers they share.
# shellcheck shell=bash
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/wine-env.sh"
cvcli_find_wine

quiet() { "$@" </dev/null >/dev/null 2>&1; }
winpath() { local p=${1//\//\\}; echo "Z:$p"; }

# ran STATUS [TEXT...]: the last run (run leaves its command in $ran, its output
# in $out and the low byte of its status in $status) ended with STATUS ("-" for
# any) and printed each TEXT (a grep pattern); else the test fails.
ran() {
    local want=$1 text
    shift
    [ "$want" = - ] || [ "$status" -eq "$want" ] || fail "$ran exited with $status, expected $want: $out"
    for text; do grep -q -- "$text" <<<"$out" || fail "$ran printed: $out"; done
}

# fresh_prefix BUILD_DIR PREFIX: makes PREFIX a Wine prefix where nothing was
# registered or installed (a copy of the build's bare one, its registry files
# copied and the rest hard-linked, or a new one), exports it as WINEPREFIX and
# starts its Wine server, which is stopped when the test exits.
fresh_prefix() {
    local bare=$1/wineprefix-bare prefix=$2 f
    if [ -f "$bare/system.reg" ]; then
        cp -al "$bare" "$prefix"
        for f in "$prefix"/*.reg; do cp --remove-destination "$bare/$(basename "$f")" "$f"; done
    else
        WINEPREFIX=$prefix quiet "$WINE" wineboot --init
    fi
    export WINEPREFIX=$prefix
    trap 'quiet "$WINESERVER" -k || true' EXIT
    quiet "$WINESERVER" -p30
}
