#!/usr/bin/env bash
# make_windows.sh: makes TORVALE for Windows on a Debian 12, with nothing but its packages, into build/windows/:
#   torvale.exe, torvale_script.exe, torvale_batch.exe   the programs
#   packages/torvale-VERSION-windows.zip        one folder that can be unpacked anywhere
#   packages/torvale-VERSION-windows-setup.exe  the installer, for one user without administrator's rights
# The first run makes the toolkit too, which takes some 40 minutes of one processor (scripts/windows_toolkit.sh tells
# where it is kept); the program takes some six, and one minute where little of it has changed.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/packages.sh
source scripts/configure.sh
need_packages "${kWindowsPackages[@]}"

kBuild=build/windows
kPackages=$kBuild/packages
version=$(sed -n 's/^project(torvale VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

toolkit=$(scripts/windows_toolkit.sh | tail -n 1)
pdf_library=$(scripts/windows_pdf_library.sh | tail -n 1)
# A cache that was made for another toolkit would go on with that one.
grep -qsF "$toolkit" "$kBuild/CMakeCache.txt" || rm -rf "$kBuild"
configure windows -DCMAKE_TOOLCHAIN_FILE="$toolkit/lib/cmake/Qt6/qt.toolchain.cmake" \
  -DQT_CHAINLOAD_TOOLCHAIN_FILE="$PWD/cmake/mingw.cmake" -DQCustomPlotQt6_DIR="$toolkit/lib/cmake/QCustomPlotQt6"
echo "Making the programs: six minutes of one processor, where all is to be compiled"
nice cmake --build "$kBuild" -j "${TORVALE_WINDOWS_JOBS:-$(nproc)}" --target torvale torvale_script torvale_batch

# stage FOLDER PROGRAMS DATA PAGES: everything that a user gets, the parts in folders of those names in FOLDER.
stage() {
  local folder=$1 programs=$1/$2 data=$1/$3 pages=$1/$4
  rm -rf "$folder"
  mkdir -p "$programs" "$data/help" "$data/samples" "$pages/docs" "$pages/licences" "$pages/samples"
  cp "$kBuild"/torvale{,_script,_batch}.exe "$programs"
  x86_64-w64-mingw32-strip "$programs"/*.exe
  # As cmake/data.cmake has them: the data of the project, not what a build's own run has changed.
  cp data/*.* "$data"
  cp data/help/*.* "$data/help"
  find data/samples -regextype posix-extended -regex '.*\.[PCDXL][FSH][DH]' -exec cp -t "$data/samples" {} +
  cp data/samples/*.script "$pages/samples"
  cp docs/*.md docs/*.svg docs/*.png "$pages/docs"
  cp README.md NEWS.md "$pages"
  cp LICENSE "$pages/LICENSE.txt"
  cp "$toolkit"/licences/* "$pdf_library"/licences/* "$pages/licences"
  cp /usr/share/doc/libcli11-dev/copyright "$pages/licences/CLI11.txt"
}

# What opens on Windows has the line ends of Windows.
put_text() {
  sed 's/\r*$/\r/' "$1" >"$2"
}

# list_windows FOLDER FIND-ARGUMENT...: what find tells of the folder, with the separators of Windows.
list_windows() {
  local folder=$1
  shift
  (cd "$folder" && find . -mindepth 1 "$@" -printf '%P\n') | tr / '\\'
}

# write_file_list STAGE LIST: macros that install what stands in the folder, and remove just that, with the copies that
# the program makes of it in the user's folder.
write_file_list() {
  local stage=$1 list=$2
  {
    echo '!macro InstallFiles'
    echo 'SetOutPath "$INSTDIR"'
    echo 'File /r "${STAGE}\*"'
    echo '!macroend'
    echo '!macro RemoveFiles'
    list_windows "$stage" -type f | sed 's/.*/Delete "$INSTDIR\\&"/'
    list_windows "$stage" -depth -type d | sed 's/.*/RMDir "$INSTDIR\\&"/'
    echo '!macroend'
    echo '!macro RemoveCopies'
    list_windows "$stage/share/torvale" -type f | sed 's/.*/!insertmacro RemoveCopy "&"/'
    list_windows "$stage/share/torvale" -depth -type d | sed 's/.*/RMDir "${OWN}\\&"/'
    echo '!macroend'
  } >"$list"
}

echo "Making the archive and the installer: less than a minute"
rm -rf "$kPackages"
mkdir -p "$kPackages"

portable=torvale-$version-windows
stage "$kBuild/portable/$portable" . . pages
put_text packaging/windows/portable_readme.txt "$kBuild/portable/$portable/README.txt"
(cd "$kBuild/portable" && zip -qrX9 "../packages/$portable.zip" "$portable")

# The program takes data in ../share/torvale as installed: what it changes then goes to the user's own folder.
stage "$kBuild/installed" bin share/torvale share/doc/torvale
mkdir -p "$kBuild/installer"
write_file_list "$kBuild/installed" "$kBuild/installer/files.nsh"
makensis -V2 -WX -INPUTCHARSET UTF8 -X'Target amd64-unicode' -DVERSION="$version" -DSTAGE="$PWD/$kBuild/installed" \
  -DINCLUDES="$PWD/$kBuild/installer" -DICON="$PWD/data/icons/torvale.ico" \
  -DKILOBYTES="$(du -sk "$kBuild/installed" | cut -f1)" -DOUT="$PWD/$kPackages/$portable-setup.exe" \
  packaging/windows/installer.nsi
ls -l "$kBuild"/*.exe "$kPackages"
