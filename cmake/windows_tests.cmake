# The tests that a build for Windows is held to, run under Wine by scripts/wine.sh. GoogleTest is compiled from the source
# that Debian's package googletest brings. Left out are files that need a call of POSIX, or a library or program that is
# there for this system alone: their rules don't depend on the system.
set(needs_this_system "rapidcheck|mpfr|exact\\.h|<sys/|<unistd\\.h>|<fcntl\\.h>|<malloc\\.h>|<pwd\\.h>|popen|\"/dev/")

add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
# A folder with nlohmann/json.hpp and none of this system's own headers.
find_path(JSON_INCLUDE nlohmann/json.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
file(CREATE_LINK ${JSON_INCLUDE}/nlohmann ${PROJECT_BINARY_DIR}/headers/nlohmann SYMBOLIC)

include(cmake/test_support.cmake)

get_property(folders GLOBAL PROPERTY torvale_folders)
foreach(folder IN LISTS folders)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  set(fitting "")
  foreach(source IN LISTS sources)
    file(STRINGS ${source} unfit REGEX "${needs_this_system}")
    if(NOT unfit)
      list(APPEND fitting ${source})
    endif()
  endforeach()
  if(fitting)
    set(target torvale_${folder}_tests)
    add_executable(${target} ${fitting})
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/headers)
    target_link_libraries(${target} PRIVATE torvale_batch_lib torvale_script_lib torvale_source_folder gmock gtest_main
      torvale_options torvale_test_options)
    add_test(NAME ${folder} COMMAND ${target})
    set_tests_properties(${folder} PROPERTIES TIMEOUT ${test_timeout_seconds})
  endif()
endforeach()
