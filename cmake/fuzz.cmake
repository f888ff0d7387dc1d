# The reader of design files under libFuzzer (Clang alone). Everything is instrumented, so this is a build of its own:
# the preset `fuzz`. Seeds are the sample designs:
#   build/fuzz/design_file_fuzz -max_total_time=60 CORPUS data/samples
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "TORVALE_FUZZ needs Clang, which has libFuzzer")
endif()
target_compile_options(torvale_options INTERFACE -fsanitize=fuzzer-no-link)
add_executable(design_file_fuzz tests/fuzz/design_file_fuzz.cpp)
target_link_libraries(design_file_fuzz PRIVATE torvale_script_lib torvale_options)
target_link_options(design_file_fuzz PRIVATE -fsanitize=fuzzer)
