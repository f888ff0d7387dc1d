# Flags shared by every target. Contraction is off so that the same survey gives the same design on every processor:
# a fused multiply-add rounds once where the separate operations round twice.
add_library(torvale_options INTERFACE)
target_compile_options(torvale_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -ffp-contract=off)
# GCC 12 takes std::string's operator+ with a literal in front for a copy onto itself.
target_compile_options(torvale_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(torvale_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(torvale_options INTERFACE
  TORVALE_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  TORVALE_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  TORVALE_VERSION_REVISION=${PROJECT_VERSION_PATCH})

# A warning stops the build only under the two compilers that the project is kept clean with. A newer one may know
# warnings that nobody here has seen yet, and those must not keep a user from building.
# Instrumented and unoptimised builds warn of what the standard library does; the two plain builds are the judges.
option(TORVALE_WERROR "Warnings are errors under GCC 12 and Clang 14" OFF)
if(TORVALE_WERROR AND ((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION MATCHES "^12\\.")
                       OR (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION MATCHES "^14\\.")))
  target_compile_options(torvale_options INTERFACE -Werror)
endif()

option(TORVALE_SANITIZE "Address and undefined behaviour sanitizers" OFF)
if(TORVALE_SANITIZE)
  target_compile_options(torvale_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(torvale_options INTERFACE -fsanitize=address,undefined)
endif()

option(TORVALE_COVERAGE "Instrument for gcov" OFF)
if(TORVALE_COVERAGE)
  target_compile_options(torvale_options INTERFACE --coverage)
  target_link_options(torvale_options INTERFACE --coverage)
endif()

find_program(CCACHE_PROGRAM ccache)
mark_as_advanced(CCACHE_PROGRAM)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
