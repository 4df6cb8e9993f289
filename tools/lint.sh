#!/usr/bin/env bash
# clang-tidy over our own sources, by .clang-tidy: plug-in and desk as this machine builds them, the Windows server with the headers of
# its cross compiler. A finding fails.
set -euo pipefail
cd "$(dirname "$0")/.."

# lint BUILD FOLDERS [OPTION]...: the sources in these folders, with the command lines of that build.
lint() {
  local build=$1 folders=$2
  shift 2
  run-clang-tidy -quiet -p "$build" "$@" -extra-arg=-Wno-unknown-warning-option "^$PWD/($folders)/" \
    2> >(grep -v 'warnings generated' >&2) | grep -v '^clang-tidy'
  return "${PIPESTATUS[0]}"
}

# Our headers are read with the sources that include them; those of the plug-in once, here.
cmake --preset release >/dev/null || cmake --preset release
findings=0
lint build/release 'plugin|desk' || findings=1
if ls com/*/*.cpp >/dev/null 2>&1; then
  cmake --preset cross-x64 >/dev/null || cmake --preset cross-x64
  cmake --build --preset cross-x64 --target com/generated/NUVARAPBillInterface_h.h >/dev/null
  # The standard library of the cross compiler isn't where clang looks for it.
  mapfile -t library < <(x86_64-w64-mingw32-g++-posix -E -x c++ -v /dev/null 2>&1 | sed -n 's#^ \(.*/include/c++.*\)#-extra-arg=-isystem\1#p')
  lint build/cross-x64 com -header-filter="^$PWD/com/.*" -extra-arg=--target=x86_64-w64-mingw32 "${library[@]}" || findings=1
fi
exit $findings
