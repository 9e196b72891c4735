#!/usr/bin/env bash
# Installs every package the build and the tests need. Idempotent: when all
# packages are present it only checks and returns.
set -euo pipefail

packages=(
    g++-mingw-w64-x86-64-posix
    mingw-w64-tools
    binutils-mingw-w64-x86-64
    wine64
    # Wine's preloader reserves the addresses that Wine needs before Linux
    # places anything: without it the kernel now and then puts the loader's
    # heap over the shared user data page (0x7ffe0000), and the process fails
    # to start ("failed to map the shared user data", no status at all).
    wine64-preloader
    wine64-tools
    cmake
    ninja-build
    googletest
    nlohmann-json3-dev
    python3
    tmux
    wixl
    msitools
)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -q
"${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
