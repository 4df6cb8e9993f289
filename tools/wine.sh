#!/usr/bin/env bash
# Runs a Windows program of this checkout headless: tools/wine.sh x64|x86 PROGRAM ARGUMENT...; ARAP_WINE_TIMEOUT is the limit in
# seconds (600). Ends with 77 where this bitness can't be run.
# tools/wine.sh start|stop keeps Wine up between programs, for at most 50 minutes. Without it the program that comes first starts
# Wine, and Wine keeps that program's output open as long as any other runs; and a Wine that is just ending takes the next program
# down with it. `tools/wine.sh wait` waits until Wine has ended.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
skipped=77

[ -x /usr/lib/wine/wine64 ] || { echo "Wine isn't installed" >&2; exit $skipped; }
version=$(dpkg-query -W -f='${Version}' libwine)
dlls=${XDG_CACHE_HOME:-$HOME/.cache}/nuvarap/wine-${version//[^0-9A-Za-z.]/_}/i386/wine

export WINEPREFIX=$root/build/wine/prefix WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml=" LANG=C.UTF-8 LC_ALL=C.UTF-8
[ -d "$dlls" ] && export WINEDLLPATH=$dlls
unset DISPLAY WAYLAND_DISPLAY

bits=${1:?x64, x86, start, stop or wait}
shift
case "$bits" in
  start)
    keep=$WINEPREFIX/.keep
    [ -p "$keep" ] || mkfifo "$keep"
    # Waits for a key that never comes.
    setsid timeout 3000 /usr/lib/wine/wine64 C:/windows/system32/cmd.exe /c pause <>"$keep" >/dev/null 2>&1 &
    exec timeout -k 5 120 /usr/lib/wine/wine64 C:/windows/system32/cmd.exe /c ver >/dev/null 2>&1
    ;;
  stop) exec timeout -k 5 60 /usr/lib/wine/wineserver64 -k ;;
  wait) exec timeout -k 5 60 /usr/lib/wine/wineserver64 -w ;;
  x86) [ -d "$dlls" ] || { echo "the 32-bit half of Wine isn't here" >&2; exit $skipped; } ;;
esac
exec timeout -k 5 "${ARAP_WINE_TIMEOUT:-600}" /usr/lib/wine/wine64 "$@"
