#!/usr/bin/env bash
# Builds cvcli and runs every test: the unit tests and the end-to-end cases,
# all under Wine, in build/. Installs missing packages first (apt-get).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
bash scripts/bootstrap.sh
cmake --preset mingw
cmake --build --preset mingw -j 2
ctest --preset mingw
