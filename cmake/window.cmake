# The window: the only part that knows a toolkit.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport Svg)
find_package(QCustomPlotQt6 REQUIRED)
file(GLOB window_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/qt/*.cpp ${PROJECT_SOURCE_DIR}/src/qt/*.h)
list(FILTER window_sources EXCLUDE REGEX "/main\\.cpp$")
if(window_sources)
  add_library(torvale_qt STATIC ${window_sources} ${PROJECT_SOURCE_DIR}/data/icons/icons.qrc)
  set_target_properties(torvale_qt PROPERTIES AUTOMOC ON AUTORCC ON)
  target_link_libraries(torvale_qt PUBLIC torvale_scenarios Qt6::Widgets Qt6::PrintSupport
    QCustomPlotQt6::QCustomPlotQt6 PRIVATE Qt6::Svg torvale_options)
endif()

if(TARGET torvale_qt AND EXISTS ${PROJECT_SOURCE_DIR}/src/qt/main.cpp)
  add_executable(torvale src/qt/main.cpp)
  target_link_libraries(torvale PRIVATE torvale_qt torvale_options)
  set_target_properties(torvale PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
endif()
