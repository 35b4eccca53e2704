# Functions that turn the drawings (SVG) of a folder into what programs and desktops take. The build draws them, because the
# wxWidgets for Windows reads neither SVG nor PNG.
find_program(QUORVEL_RSVG_CONVERT rsvg-convert)
find_program(QUORVEL_CONVERT convert)
if(NOT QUORVEL_RSVG_CONVERT)
  message(FATAL_ERROR "There is no rsvg-convert: install librsvg2-bin.")
endif()
if(NOT QUORVEL_CONVERT)
  message(FATAL_ERROR "There is no convert: install imagemagick.")
endif()

# draw_picture(<output> <name> <size>...): adds rules that draw <name>.svg in these sizes, and sets <output> to the PNG files,
# <name>-<size>.png in the build folder.
function(draw_picture output name)
  set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/${name}.svg)
  foreach(size IN LISTS ARGN)
    set(png ${CMAKE_CURRENT_BINARY_DIR}/${name}-${size}.png)
    add_custom_command(
      OUTPUT ${png}
      COMMAND ${QUORVEL_RSVG_CONVERT} --width ${size} --height ${size} --output ${png} ${drawing}
      DEPENDS ${drawing}
      VERBATIM)
    list(APPEND files ${png})
  endforeach()
  set(${output} ${files} PARENT_SCOPE)
endfunction()

# embed_pictures(<output.cpp> <png>...): adds a rule that writes a source file with the pixels of PNG files that draw_picture
# made; pictures/DrawnPicture.h declares its function.
function(embed_pictures output)
  set(script ${PROJECT_SOURCE_DIR}/cmake/EmbedPictures.cmake)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -D output=${output} -D "pictures=${ARGN}" -D convert=${QUORVEL_CONVERT} -P ${script}
    DEPENDS ${ARGN} ${script}
    VERBATIM)
endfunction()

# icon_file(<output.ico> <png>...): adds a rule that packs the sizes of one picture into an icon file of Windows.
function(icon_file output)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${QUORVEL_CONVERT} ${ARGN} ${output}
    DEPENDS ${ARGN}
    VERBATIM)
endfunction()
