# Warnings for the project's own targets, through one interface target.
add_library(yarvo_warnings INTERFACE)
target_compile_options(yarvo_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Wcast-align -Wunused -Woverloaded-virtual -Wconversion -Wsign-conversion
  -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough)
# GCC 12 reports a false -Wrestrict inside std::string's operator+ when it
# inlines it in optimised builds (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(yarvo_warnings INTERFACE -Wno-restrict)
endif()
