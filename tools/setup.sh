#!/usr/bin/env bash
# Installs what building, testing and running need on Debian 12, and nothing when all of it is there. --windows: also what
# building and testing the Windows server needs.
set -euo pipefail

packages=(
  python3 g++ cmake ninja-build pkg-config ccache
  clang-format clang-tidy
  libgtest-dev libbenchmark-dev
  qt6-base-dev libqt6sql6-sqlite libqt6sql6-psql postgresql fonts-noto-cjk
  libcli11-dev nlohmann-json3-dev libmuparser-dev libcsv-dev
)
if [ "${1:-}" = --windows ]; then
  packages+=(
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools
    wine wine64 libwine googletest
  )
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing and need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
