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
