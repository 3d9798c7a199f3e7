# vaultmere_tests(TARGET [HEADER...]): how test programs are compiled. What they say matters, not how fast they say it,
# so they get what takes least to compile; the code under test keeps its own options. Reading the test framework and
# the system's headers is most of the time, so that these are read once for all sources of a program.
function(vaultmere_tests target)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR})
  target_compile_options(${target} PRIVATE -Og)
  target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <algorithm> <array> <functional> <map> <memory> <optional>
    <string> <vector> ${ARGN})
endfunction()
