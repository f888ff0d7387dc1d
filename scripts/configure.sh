# Sourced by ./run and ./test, in the project's folder.

# configure PRESET [ARGUMENT...]: prepares build/PRESET. A folder that was moved or copied here together with its build
# is prepared afresh, since CMake refuses a cache that names another place.
configure() {
  local preset=$1
  shift
  local cache=build/$preset/CMakeCache.txt
  if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
    rm -rf "build/$preset"
  fi
  cmake --preset "$preset" "$@"
}
