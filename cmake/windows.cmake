# What only a program for Windows has: what its headers want to be told, and the resources that the desktop looks for.
enable_language(RC)
target_compile_definitions(torvale_options INTERFACE
  NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00)

# The compiler takes the stack for aligned to its widest registers, which a 64-bit Windows doesn't promise.
file(GLOB wide_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/*/*avx*.cpp)
set_property(SOURCE ${wide_sources} APPEND PROPERTY COMPILE_OPTIONS -Wa,-muse-unaligned-vector-move)

set(windows_folder ${PROJECT_SOURCE_DIR}/packaging/windows)

# torvale_resources(target description): version, manifest and icon of a program.
function(torvale_resources target description)
  set(program ${target})
  string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
  set(resources ${PROJECT_BINARY_DIR}/${target}_resources.rc)
  configure_file(${windows_folder}/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES
    COMPILE_OPTIONS "-I${windows_folder};-I${PROJECT_SOURCE_DIR}/data/icons;-c65001"
    OBJECT_DEPENDS "${windows_folder}/program.manifest;${PROJECT_SOURCE_DIR}/data/icons/torvale.ico")
  target_sources(${target} PRIVATE ${resources})
endfunction()

torvale_resources(torvale_script "TORVALE script runner")
torvale_resources(torvale_batch "TORVALE many fields in one go")
if(TORVALE_WINDOW)
  # No console window beside the program's own.
  set_target_properties(torvale PROPERTIES WIN32_EXECUTABLE ON)
  torvale_resources(torvale "TORVALE furrow irrigation design")
endif()
