#!/usr/bin/env bash
# make_packages.sh [PRESET]: builds the programs (preset release) and makes build/PRESET/packages/:
#   torvale_VERSION_ARCHITECTURE.deb       for Debian 12
#   torvale-VERSION-SYSTEM.tar.gz          one folder that can be unpacked anywhere
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source scripts/packages.sh
source scripts/configure.sh
kPreset=${1:-release}
need_packages "${kRunPackages[@]}" dpkg-dev file

[ -f "build/$kPreset/build.ninja" ] || configure "$kPreset" -DTORVALE_TESTS=OFF
cmake --build "build/$kPreset" --target torvale torvale_script torvale_batch
rm -rf "build/$kPreset/packages"
# The folders in a package get the permissions that they are made with here.
umask 022
cpack --config "build/$kPreset/CPackConfig.cmake"
rm -rf "build/$kPreset/packages/_CPack_Packages"
ls -l "build/$kPreset/packages"
