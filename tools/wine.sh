#!/usr/bin/env bash
# Runs a Windows program of this checkout headless: tools/wine.sh x64|x86 PROGRAM ARGUMENT...; `tools/wine.sh wait` waits until
# Wine has ended. ARAP_WINE_TIMEOUT is the limit in seconds (600). Ends with 77 where this bitness can't be run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
skipped=77

[ -x /usr/lib/wine/wine64 ] || { echo "Wine isn't installed" >&2; exit $skipped; }
version=$(dpkg-query -W -f='${Version}' libwine)
dlls=${XDG_CACHE_HOME:-$HOME/.cache}/nuvarap/wine-${version//[^0-9A-Za-z.]/_}/i386/wine

export WINEPREFIX=$root/build/wine/prefix WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml=" LANG=C.UTF-8 LC_ALL=C.UTF-8
[ -d "$dlls" ] && export WINEDLLPATH=$dlls
unset DISPLAY WAYLAND_DISPLAY

bits=${1:?x64, x86 or wait}
shift
case "$bits" in
  wait) exec timeout -k 5 60 /usr/lib/wine/wineserver64 -w ;;
  x86) [ -d "$dlls" ] || { echo "the 32-bit half of Wine isn't here" >&2; exit $skipped; } ;;
esac
exec timeout -k 5 "${ARAP_WINE_TIMEOUT:-600}" /usr/lib/wine/wine64 "$@"
