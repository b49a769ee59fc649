# For a build without Qt's SVG: korv_icon_masks(<target> <qrc>) gives the target the drawings that <qrc> names as
# PNG masks, under the same names. Only their opacity counts; the program brings the colour. rsvg-convert makes
# them while building.
function(korv_icon_masks target qrc)
  find_program(KORV_RSVG_CONVERT rsvg-convert REQUIRED)
  # No icon is painted larger: 32 units on a screen of two dots a unit.
  set(dots 64)
  get_filename_component(from ${qrc} DIRECTORY)
  get_filename_component(name ${qrc} NAME)
  set(to ${CMAKE_CURRENT_BINARY_DIR}/masks)
  file(READ ${qrc} resources)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${qrc})
  string(REGEX MATCHALL ">[^<>]+\\.svg<" drawings "${resources}")
  foreach(drawing ${drawings})
    string(REGEX REPLACE "^>(.*)\\.svg<$" "\\1" drawing ${drawing})
    get_filename_component(folder ${to}/${drawing} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    add_custom_command(
      OUTPUT ${to}/${drawing}.png
      COMMAND ${KORV_RSVG_CONVERT} --width ${dots} --height ${dots} --output ${to}/${drawing}.png
              ${from}/${drawing}.svg
      DEPENDS ${from}/${drawing}.svg
      VERBATIM)
  endforeach()
  string(REPLACE ".svg<" ".png<" masks "${resources}")
  file(CONFIGURE OUTPUT ${to}/${name} CONTENT "${masks}" @ONLY)
  qt_add_resources(made ${to}/${name})
  target_sources(${target} PRIVATE ${made})
endfunction()
