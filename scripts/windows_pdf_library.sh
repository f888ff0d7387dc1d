#!/usr/bin/env bash
# windows_pdf_library.sh: makes the library that the batch runner writes PDF with for Windows, from Debian's source of it
# and the MinGW compiler, once, in less than a minute, and writes the folder of its headers and libraries as the last line
# of its output; what happens meanwhile goes to stderr. scripts/windows_sources.sh tells where it is kept.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/packages.sh
source scripts/windows_sources.sh
exec 3>&1 1>&2
need_packages "${kWindowsCorePackages[@]}"

pdf_version=$(version_of libhpdf-dev)
kept_folder "libharu-$pdf_version" "$pdf_version" "$(version_of libz-mingw-w64-dev)" "$(compiler_parts)"
prefix=$work/installed
hold_folder

if [ ! -f "$work/done" ]; then
  need_room 50
  echo "Making libharu $pdf_version for Windows: less than a minute, once. Log: $work/log"
  rm -rf "$work"/libharu* "$work/build" "$prefix"
  # Debian's own part holds only how it is packed for Debian.
  fetch_sources --tar-only "libharu=$pdf_version"
  mkdir "$work/libharu"
  tar xf "$work"/libharu_*.orig.tar.* -C "$work/libharu" --strip-components 1
  # The files name the library's version, and are to be the same on every system.
  sed -i "s/^#define HPDF_VERSION_TEXT .*/#define HPDF_VERSION_TEXT \"${pdf_version%%+*}\"/" \
    "$work/libharu/include/hpdf_version.h"
  {
    cmake -S "$work/libharu" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw.cmake" \
      -DCMAKE_BUILD_TYPE=Release -DLIBHPDF_SHARED=OFF &&
      nice cmake --build "$work/build"
  } >"$work/log" 2>&1 || { tail -n 40 "$work/log"; exit 1; }
  mkdir -p "$prefix/include" "$prefix/lib" "$prefix/licences"
  cp "$work"/libharu/include/*.h "$work"/build/include/*.h "$prefix/include"
  cp "$work/build/src/libhpdfs.a" "$prefix/lib/libhpdf.a"
  cp /usr/x86_64-w64-mingw32/lib/libz.a "$prefix/lib"
  cp /usr/share/doc/libhpdf-dev/copyright "$prefix/licences/libharu.txt"
  cp /usr/share/doc/libz-mingw-w64-dev/copyright "$prefix/licences/zlib.txt"
  rm -rf "$work/build" "$work/libharu"
  touch "$work/done"
fi
echo "$prefix" >&3
