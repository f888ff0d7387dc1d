#!/usr/bin/env bash
# windows_toolkit.sh: makes Qt and QCustomPlot for Windows from Debian's source packages and the MinGW compiler, once,
# and writes the folder that they are installed into as the last line of its output; what happens meanwhile goes to
# stderr. The folder lies outside of the project's, in ${XDG_CACHE_HOME:-~/.cache}/torvale-windows, and is kept by the
# versions and flags that it was made of. A build that was stopped goes on where it was.
#   TORVALE_WINDOWS_JOBS   how many compilers at a time (else one for each processor)
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/packages.sh
source scripts/windows_sources.sh
exec 3>&1 1>&2
need_packages "${kWindowsPackages[@]}"

kJobs=${TORVALE_WINDOWS_JOBS:-$(nproc)}
kMingw=$PWD/cmake/mingw.cmake

# Static, since Qt's licence lets a program under the GPL do so and its user then has one file. What the program uses
# nothing of is left out, and the header that Debian's source lacks (wintab.h) with what needs it. The older part of
# Direct2D stays: without it Qt's sources ask for letters of DirectWrite that they then don't compile.
kQtFlags=(
  -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_WHEN_CROSSCOMPILING=OFF
  -DFEATURE_system_zlib=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF -DFEATURE_system_freetype=OFF
  -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_doubleconversion=OFF
  -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_testlib=OFF -DFEATURE_opengl=OFF -DFEATURE_dbus=OFF
  -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_vulkan=OFF -DFEATURE_tabletevent=OFF
  -DFEATURE_direct2d1_1=OFF -DFEATURE_zstd=OFF -DFEATURE_pkg_config=OFF -DFEATURE_glib=OFF -DFEATURE_icu=OFF)

qt_version=$(version_of qt6-base-dev)
plot_version=$(version_of libqcustomplot-dev)
kept_folder "$qt_version" "$qt_version" "$plot_version" "$(compiler_parts)" "${kQtFlags[@]}"
prefix=$work/installed
hold_folder

if [ -f "$work/done" ]; then
  echo "$prefix" >&3
  exit 0
fi

# The sources, what is made of them on the way, and what is installed.
need_room 3000

fetch_both() {
  echo "Fetching the sources of qt6-base $qt_version and qcustomplot $plot_version (50 MB)"
  fetch_sources "qt6-base=$qt_version" "qcustomplot=$plot_version"
  mv "$work"/qt6-base-*/ "$work/qt"
  mv "$work"/qcustomplot-*/ "$work/qcustomplot"
}

[ -d "$work/qcustomplot" ] || {
  rm -rf "$work"/qt "$work"/*.dsc "$work"/*.tar.* "$work"/qt6-base-* "$work"/qcustomplot-*
  fetch_both
}

if [ ! -f "$work/qt.done" ]; then
  echo "Building Qt for Windows: about 40 minutes of one processor, once. Log: $work/qt.log"
  # One of its files asks for OpenGL though it is left out.
  sed -i 's/^#if QT_CONFIG(dynamicgl)$/#if QT_CONFIG(opengl) \&\& QT_CONFIG(dynamicgl)/' \
    "$work/qt/src/plugins/platforms/windows/qwindowswindow.cpp"
  nice -n 19 cmake -S "$work/qt" -B "$work/qt-build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$kMingw" -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    "${kQtFlags[@]}" >"$work/qt.log" 2>&1 || { tail -n 40 "$work/qt.log"; exit 1; }
  nice -n 19 ninja -C "$work/qt-build" -j "$kJobs"
  nice -n 19 cmake --install "$work/qt-build" >>"$work/qt.log"
  touch "$work/qt.done"
fi

if [ ! -f "$work/plot.done" ]; then
  echo "Building QCustomPlot for Windows: about 2 minutes. Log: $work/plot.log"
  # Its project knows a shared library alone, whose functions a program for Windows must import by name.
  sed -i -e 's/ SHARED qcustomplot/ STATIC qcustomplot/' -e '/^add_definitions(-DQCUSTOMPLOT_COMPILE_LIBRARY)/d' \
    "$work/qcustomplot/CMakeLists.txt"
  {
    nice -n 19 cmake -S "$work/qcustomplot" -B "$work/plot-build" -G Ninja -DUSE_QT_VERSION=6 \
      -DCMAKE_TOOLCHAIN_FILE="$prefix/lib/cmake/Qt6/qt.toolchain.cmake" -DQT_CHAINLOAD_TOOLCHAIN_FILE="$kMingw" \
      -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" &&
      nice -n 19 cmake --build "$work/plot-build" -j "$kJobs" && nice -n 19 cmake --install "$work/plot-build"
  } >"$work/plot.log" 2>&1 || { tail -n 40 "$work/plot.log"; exit 1; }
  touch "$work/plot.done"
fi

# The terms under which all of it is passed on.
licences=$prefix/licences
mkdir -p "$licences"
cp "$work/qt/debian/copyright" "$licences/Qt.txt"
cp "$work/qt/LICENSES/LGPL-3.0-only.txt" "$licences/LGPL-3.0.txt"
cp "$work/qcustomplot/debian/copyright" "$licences/QCustomPlot.txt"
cp /usr/share/doc/mingw-w64-common/copyright "$licences/MinGW-w64.txt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$licences/GCC run-time libraries.txt"

# What is installed is all that a program needs.
rm -rf "$work/qt-build" "$work/plot-build"
touch "$work/done"
echo "$prefix" >&3
