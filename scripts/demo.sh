#!/usr/bin/env bash
# Builds cvcli and shows it at work under Wine against the service simulator:
# `cvcli help`, then `cvcli disk list` on the demo scenario. Installs missing
# packages first (apt-get). Everything stays in build/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
bash scripts/bootstrap.sh
cmake --preset mingw
cmake --build --preset mingw -j 2
# A simulator still lingering from another run keeps that run's scenario:
# restart the Wine servers so that the demo's own is served.
bash scripts/wine-prefix.sh --stop build
bash scripts/wine-prefix.sh --start build
# shellcheck source=wine-env.sh
. scripts/wine-env.sh
cvcli_find_wine

winpath() { local p=${1//\//\\}; echo "Z:$p"; }
status_file=$root/build/demo-status.txt

# Runs cvcli through runexit, which reports the full 32-bit exit status
# (Linux would only see its low byte).
cvcli() {
    echo
    echo "\$ cvcli $*"
    rm -f "$status_file"
    RUNEXIT_STATUS_FILE=$(winpath "$status_file") \
        "$WINE" "$root/build/tests/e2e/runexit.exe" "$(winpath "$root/build/cvcli.exe")" "$@" </dev/null || true
    echo "[exit status $(cat "$status_file" 2>/dev/null || echo unknown)]"
}

scenario=$root/simulator/scenarios/demo.json
if [ -f "$scenario" ] && [ -f build/corvane-sim.exe ]; then
    export WINEPREFIX=$root/build/wineprefix
    export CORVANE_SIM_SCENARIO=$scenario
    export CORVANE_SIM_LOG=$root/build/demo-calls.jsonl
    cvcli help
    cvcli disk list
    echo
    echo "The simulator's call log: build/demo-calls.jsonl"
else
    # Without the simulator the service is absent: cvcli says so.
    export WINEPREFIX=$root/build/wineprefix-bare
    cvcli help
    cvcli disk list
fi
