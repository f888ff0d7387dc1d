# What every test program has, whatever system it is for.

# The one file that is compiled with the name of this folder.
add_library(torvale_source_folder OBJECT ${PROJECT_SOURCE_DIR}/tests/support/source_folder.cpp)
target_include_directories(torvale_source_folder PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_compile_definitions(torvale_source_folder PRIVATE TORVALE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")

# A test is compiled far oftener than it works hard.
add_library(torvale_test_options INTERFACE)
target_compile_options(torvale_test_options INTERFACE $<$<CONFIG:Release>:-O1>)

# A hung test is a failed test. The longest are the random runs of ./test --thorough.
set(test_timeout_seconds 900)
