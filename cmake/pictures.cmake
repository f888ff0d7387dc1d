# torvale_pixel_pictures(target): the pictures of data/icons as pixels, for a toolkit without its SVG module. Those that
# are drawn in the colour of the text come below text/, as shapes.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# So many pixels to a side for one of the picture's own: displays of up to four times the usual sharpness still find two.
set(pixels_to_a_side 8)

function(torvale_pixel_pictures target)
  set(folder ${PROJECT_BINARY_DIR}/pixel_icons)
  file(MAKE_DIRECTORY ${folder}/text)
  file(GLOB pictures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/icons/*.svg)
  set(entries "")
  foreach(picture IN LISTS pictures)
    cmake_path(GET picture STEM name)
    file(STRINGS ${picture} in_the_colour_of_the_text REGEX "currentColor")
    if(in_the_colour_of_the_text)
      set(pixels text/${name}.png)
    else()
      set(pixels ${name}.png)
    endif()
    add_custom_command(OUTPUT ${folder}/${pixels} DEPENDS ${picture} VERBATIM
      COMMAND ${RSVG_CONVERT} --zoom ${pixels_to_a_side} --output ${folder}/${pixels} ${picture})
    target_sources(${target} PRIVATE ${folder}/${pixels})
    string(APPEND entries "    <file>${pixels}</file>\n")
  endforeach()
  file(CONFIGURE OUTPUT ${folder}/pixel_icons.qrc CONTENT
    "<RCC>\n  <qresource prefix=\"/icons\">\n${entries}  </qresource>\n</RCC>\n")
  target_sources(${target} PRIVATE ${folder}/pixel_icons.qrc)
endfunction()
