find_package(benchmark REQUIRED)
file(GLOB bench_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/*_bench.cpp)
add_executable(torvale_bench ${bench_sources})
target_include_directories(torvale_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(torvale_bench PRIVATE torvale_script_lib benchmark::benchmark_main torvale_options)

# Repaints of the window, and the reports that it draws.
if(TORVALE_WINDOW)
  file(GLOB window_bench_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/window/*_bench.cpp)
  add_executable(torvale_window_bench ${window_bench_sources})
  target_include_directories(torvale_window_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(torvale_window_bench PRIVATE torvale_qt benchmark::benchmark torvale_options)
  # What scripts/measure_start.sh measures the start against.
  add_executable(torvale_plain_window bench/window/plain_window.cpp)
  target_link_libraries(torvale_plain_window PRIVATE Qt6::Widgets torvale_options)
endif()
