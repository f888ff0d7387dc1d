# Many fields in one go wants two small libraries and threads.
find_path(CLI11_INCLUDE CLI/CLI.hpp REQUIRED)
find_path(HPDF_INCLUDE hpdf.h REQUIRED)
find_library(HPDF_LIBRARY hpdf REQUIRED)
find_package(Threads REQUIRED)
target_include_directories(torvale_batch_lib SYSTEM PRIVATE ${CLI11_INCLUDE} ${HPDF_INCLUDE})
target_link_libraries(torvale_batch_lib PUBLIC ${HPDF_LIBRARY})
target_link_libraries(torvale_scenarios PUBLIC Threads::Threads)
