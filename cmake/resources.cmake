# Files that a program carries in itself: as Windows resources, or linked in as bytes.
if(WIN32)
  enable_language(RC)
else()
  enable_language(ASM)
endif()

function(vaultmere_resources target)
  if(WIN32)
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/resources/text.rc)
    set_source_files_properties(${CMAKE_SOURCE_DIR}/resources/text.rc TARGET_DIRECTORY ${target} PROPERTIES
      OBJECT_DEPENDS ${CMAKE_SOURCE_DIR}/resources/english.ini)
  else()
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/resources/embedded.S)
    set_source_files_properties(${CMAKE_SOURCE_DIR}/resources/embedded.S TARGET_DIRECTORY ${target} PROPERTIES
      OBJECT_DEPENDS ${CMAKE_SOURCE_DIR}/resources/english.ini
      COMPILE_OPTIONS "-I${CMAKE_SOURCE_DIR}/resources")
  endif()
endfunction()

# The pictures of resources/vaultmere.rc, rendered from resources/pictures/*.svg into build/.../pictures.
set(VAULTMERE_PICTURES ${CMAKE_BINARY_DIR}/pictures)
set(VAULTMERE_PICTURES_32 key-round lock-keyhole file-plus save folder-open file-pen)
set(VAULTMERE_PICTURES_24 pencil copy external-link eye eye-off)
set(VAULTMERE_ICON_SMALL 16 20 24)
set(VAULTMERE_ICON_LARGE 32 40 48 64 128 256)

# vaultmere_picture(DRAWING SIDE NAME): a PNG file of a drawing, SIDE by SIDE pixels.
function(vaultmere_picture drawing side name)
  set(source ${CMAKE_SOURCE_DIR}/resources/pictures/${drawing}.svg)
  add_custom_command(OUTPUT ${VAULTMERE_PICTURES}/${name}.png
    COMMAND ${VAULTMERE_RSVG_CONVERT} --width ${side} --height ${side} --output ${VAULTMERE_PICTURES}/${name}.png
      ${source}
    DEPENDS ${source} VERBATIM)
endfunction()

# The one target that renders, whichever programs need it. Its files are in vaultmere_pictures' FILES.
function(vaultmere_render_pictures)
  find_program(VAULTMERE_RSVG_CONVERT rsvg-convert REQUIRED)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  file(MAKE_DIRECTORY ${VAULTMERE_PICTURES})
  configure_file(${CMAKE_SOURCE_DIR}/resources/version.h.in ${VAULTMERE_PICTURES}/version.h @ONLY)
  foreach(side 24 32)
    foreach(drawing ${VAULTMERE_PICTURES_${side}})
      vaultmere_picture(${drawing} ${side} ${drawing})
      list(APPEND files ${VAULTMERE_PICTURES}/${drawing}.png)
    endforeach()
  endforeach()
  foreach(side ${VAULTMERE_ICON_SMALL})
    vaultmere_picture(vaultmere-small ${side} vaultmere-${side})
  endforeach()
  foreach(side ${VAULTMERE_ICON_LARGE})
    vaultmere_picture(vaultmere ${side} vaultmere-${side})
  endforeach()
  list(TRANSFORM VAULTMERE_ICON_SMALL PREPEND ${VAULTMERE_PICTURES}/vaultmere- OUTPUT_VARIABLE small)
  list(TRANSFORM VAULTMERE_ICON_LARGE PREPEND ${VAULTMERE_PICTURES}/vaultmere- OUTPUT_VARIABLE large)
  list(TRANSFORM small APPEND .png)
  list(TRANSFORM large APPEND .png)
  set(pack ${CMAKE_SOURCE_DIR}/cmake/pack_icon.py)
  add_custom_command(OUTPUT ${VAULTMERE_PICTURES}/vaultmere.ico
    COMMAND ${Python3_EXECUTABLE} ${pack} ${VAULTMERE_PICTURES}/vaultmere.ico ${small} ${large}
    DEPENDS ${pack} ${small} ${large} VERBATIM)
  list(APPEND files ${VAULTMERE_PICTURES}/vaultmere.ico)
  add_custom_target(vaultmere_pictures DEPENDS ${files})
  set_target_properties(vaultmere_pictures PROPERTIES FILES "${files}")
endfunction()

# What a program with windows carries besides: manifest, version information, icon and pictures.
function(vaultmere_window_resources target)
  if(NOT TARGET vaultmere_pictures)
    vaultmere_render_pictures()
  endif()
  vaultmere_resources(${target})
  get_target_property(pictures vaultmere_pictures FILES)
  set(script ${CMAKE_SOURCE_DIR}/resources/vaultmere.rc)
  target_sources(${target} PRIVATE ${script})
  add_dependencies(${target} vaultmere_pictures)
  set_source_files_properties(${script} TARGET_DIRECTORY ${target} PROPERTIES
    INCLUDE_DIRECTORIES "${VAULTMERE_PICTURES};${CMAKE_SOURCE_DIR}/resources"
    OBJECT_DEPENDS "${pictures};${VAULTMERE_PICTURES}/version.h;${CMAKE_SOURCE_DIR}/resources/vaultmere.manifest")
endfunction()
