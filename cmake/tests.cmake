# One test program for each folder: tests/<folder>/*_test.cpp becomes torvale_<folder>_tests.
find_package(GTest REQUIRED)
find_path(RAPIDCHECK_INCLUDE rapidcheck.h REQUIRED)
find_path(JSON_INCLUDE nlohmann/json.hpp REQUIRED)
find_library(RAPIDCHECK_LIBRARY rapidcheck REQUIRED)
find_library(MPFR_LIBRARY mpfr REQUIRED)
find_library(GMP_LIBRARY gmp REQUIRED)

include(cmake/test_support.cmake)
target_sources(torvale_source_folder PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/files_in_memory.cpp)

set(folders_with_tests gui)

function(torvale_tests name)
  set(folders_with_tests ${folders_with_tests} ${name} PARENT_SCOPE)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${name}/*_test.cpp)
  set(target torvale_${name}_tests)
  add_executable(${target} ${sources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${RAPIDCHECK_INCLUDE})
  target_link_libraries(${target} PRIVATE ${ARGN} ${RAPIDCHECK_LIBRARY} torvale_source_folder GTest::gmock GTest::gtest_main
    torvale_options torvale_test_options)
  add_test(NAME ${name} COMMAND ${target})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${test_timeout_seconds})
endfunction()

torvale_tests(base torvale_base ${MPFR_LIBRARY} ${GMP_LIBRARY})
torvale_tests(record torvale_record)
torvale_tests(engine torvale_engine)
torvale_tests(screen torvale_screen)
torvale_tests(display torvale_display)
torvale_tests(search torvale_search)
torvale_tests(input torvale_input)
torvale_tests(files torvale_files)
torvale_tests(reports torvale_reports)
torvale_tests(shell torvale_shell)
torvale_tests(scenarios torvale_scenarios torvale_script_lib)
torvale_tests(script torvale_script_lib)
torvale_tests(batch torvale_batch_lib torvale_script_lib)
torvale_tests(properties torvale_script_lib)

# A folder that no line above names would be passed over in silence.
file(GLOB test_sources RELATIVE ${PROJECT_SOURCE_DIR}/tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*/*_test.cpp)
foreach(source IN LISTS test_sources)
  cmake_path(GET source PARENT_PATH folder)
  if(NOT folder IN_LIST folders_with_tests)
    message(FATAL_ERROR "tests/${source}: cmake/tests.cmake has no torvale_tests line for tests/${folder}")
  endif()
endforeach()

if(TORVALE_WINDOW)
  find_package(Qt6 REQUIRED COMPONENTS Test)
  file(GLOB gui_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/gui/*_test.cpp)
  add_executable(torvale_gui_tests ${gui_sources})
  set_target_properties(torvale_gui_tests PROPERTIES AUTOMOC ON)
  target_include_directories(torvale_gui_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(torvale_gui_tests PRIVATE torvale_qt torvale_script_lib torvale_source_folder Qt6::Test GTest::gmock
    GTest::gtest torvale_options torvale_test_options)
  add_test(NAME gui COMMAND torvale_gui_tests)
  set_tests_properties(gui PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT ${test_timeout_seconds})

  # Takes the pictures of the guide (scripts/guide_pictures.sh); built only when asked for.
  add_executable(torvale_pictures EXCLUDE_FROM_ALL tests/guide/take_pictures.cpp)
  target_link_libraries(torvale_pictures PRIVATE torvale_qt torvale_script_lib Qt6::Test torvale_options)
endif()

# The scripts of docs/many_fields, with GNU parallel and a Slurm of its own where they are there.
add_test(NAME many_machines COMMAND ${PROJECT_SOURCE_DIR}/tests/batch/many_machines.sh $<TARGET_FILE:torvale_batch>)
set_tests_properties(many_machines PROPERTIES TIMEOUT ${test_timeout_seconds})

# The programs as they are started from a shell.
set(programs $<TARGET_FILE:torvale_batch> $<TARGET_FILE:torvale_script>)
if(TARGET torvale)
  list(APPEND programs $<TARGET_FILE:torvale>)
endif()
add_test(NAME programs COMMAND ${PROJECT_SOURCE_DIR}/tests/batch/programs.py ${programs})
set_tests_properties(programs PROPERTIES TIMEOUT ${test_timeout_seconds})
