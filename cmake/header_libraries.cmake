# Libraries that are headers only (CLI11, nlohmann-json). They lie in the host's include folder, which a cross
# build must not see: it gets a folder that holds nothing else.
add_library(vaultmere_header_libraries INTERFACE)
if(CMAKE_CROSSCOMPILING)
  set(header_libraries ${CMAKE_BINARY_DIR}/header_libraries)
  file(MAKE_DIRECTORY ${header_libraries})
  foreach(library CLI nlohmann)
    file(CREATE_LINK /usr/include/${library} ${header_libraries}/${library} SYMBOLIC)
  endforeach()
  target_include_directories(vaultmere_header_libraries SYSTEM INTERFACE ${header_libraries})
endif()
