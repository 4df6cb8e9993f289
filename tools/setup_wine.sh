#!/usr/bin/env bash
# Makes the Wine in which the Windows tests run: the 32-bit half of Wine, without a 32-bit userland, in the user's cache, and a
# prefix of this checkout in build/wine. Does nothing when both are there. Needs no root. Where the 32-bit half can't be had, the
# script says so and the 32-bit tests are skipped by name.
set -euo pipefail
cd "$(dirname "$0")/.."

version=$(dpkg-query -W -f='${Version}' libwine)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/nuvarap/wine-${version//[^0-9A-Za-z.]/_}
dlls=$cache/i386/wine
prefix=$PWD/build/wine/prefix

# The package is fetched through lists of its own: the machine's architectures stay as they are.
fetch_i386() {
  local work=$cache/work
  rm -rf "$work"
  mkdir -p "$work/lists/partial" "$work/archives/partial" "$work/out"
  local apt=(apt-get -q -o "Dir::State::lists=$work/lists" -o "Dir::Cache::archives=$work/archives"
    -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= -o APT::Sandbox::User=
    -o APT::Architectures::=amd64 -o APT::Architectures::=i386)
  "${apt[@]}" update >"$work/log" 2>&1 || true # one list that fails doesn't matter, the download tells
  (cd "$work" && "${apt[@]}" download "libwine:i386=$version") >>"$work/log" 2>&1 || { tail -5 "$work/log" >&2; return 1; }
  dpkg-deb --fsys-tarfile "$work"/libwine_*_i386.deb | tar -x -C "$work/out" ./usr/lib/i386-linux-gnu/wine/i386-windows
  # This one isn't in the package of the other architecture.
  cp /usr/lib/x86_64-linux-gnu/wine/i386-windows/zlib1.dll "$work/out/usr/lib/i386-linux-gnu/wine/i386-windows/"
  mkdir -p "$cache/i386"
  mv "$work/out/usr/lib/i386-linux-gnu/wine" "$dlls"
  rm -rf "$work"
}

make_prefix() {
  rm -rf "$prefix"
  mkdir -p "$prefix"
  echo "Making the Wine prefix"
  tools/wine.sh x64 wineboot -i >/dev/null 2>&1
  tools/wine.sh x64 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
  local key
  for key in 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
    'HKLM\Software\Wow6432Node\Microsoft\Windows NT\CurrentVersion\AeDebug'; do
    tools/wine.sh x64 reg add "$key" /v Debugger /d false /f >/dev/null # a crash ends the program and starts no debugger
  done
  tools/wine.sh wait # the settings take effect when the server has ended
  touch "$prefix/.made"
}

if [ ! -d "$dlls" ]; then
  echo "Fetching the 32-bit half of Wine"
  if fetch_i386; then
    rm -rf "$prefix"
  else
    rm -rf "$cache/work"
    echo "The 32-bit half of Wine can't be had here; the 32-bit tests will be skipped." >&2
  fi
fi
[ -e "$prefix/.made" ] || make_prefix
