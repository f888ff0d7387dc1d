# The window: the only part that knows a toolkit.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)
find_package(QCustomPlotQt6 REQUIRED)

# The toolkit that is made for Windows goes without its SVG module.
if(WIN32)
  set(no_svg ON)
endif()
option(TORVALE_PIXEL_PICTURES "Draw the pictures from pixels in the place of the toolkit's SVG module" ${no_svg})

file(GLOB window_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/qt/*.cpp ${PROJECT_SOURCE_DIR}/src/qt/*.h)
list(FILTER window_sources EXCLUDE REGEX "/main\\.cpp$")
if(TORVALE_PIXEL_PICTURES)
  list(FILTER window_sources EXCLUDE REGEX "/svg_pictures\\.cpp$")
else()
  list(FILTER window_sources EXCLUDE REGEX "/pixel_pictures\\.cpp$")
  find_package(Qt6 6.4 REQUIRED COMPONENTS Svg)
endif()
add_library(torvale_qt STATIC ${window_sources})
set_target_properties(torvale_qt PROPERTIES AUTOMOC ON AUTORCC ON)
target_link_libraries(torvale_qt PUBLIC torvale_scenarios Qt6::Widgets Qt6::PrintSupport
  QCustomPlotQt6::QCustomPlotQt6 PRIVATE torvale_options)
if(TORVALE_PIXEL_PICTURES)
  include(cmake/pictures.cmake)
  torvale_pixel_pictures(torvale_qt)
else()
  target_sources(torvale_qt PRIVATE ${PROJECT_SOURCE_DIR}/data/icons/icons.qrc)
  target_link_libraries(torvale_qt PRIVATE Qt6::Svg)
endif()

add_executable(torvale src/qt/main.cpp)
target_link_libraries(torvale PRIVATE torvale_qt torvale_options)
set_target_properties(torvale PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
