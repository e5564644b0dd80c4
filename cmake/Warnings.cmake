# Warnings for the project's own targets, through one interface target.
add_library(yarvo_warnings INTERFACE)
target_compile_options(yarvo_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Wcast-align -Wunused -Woverloaded-virtual -Wconversion -Wsign-conversion
  -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough)
# GCC 12 reports a false -Wrestrict inside std::string's operator+, and a
# false -Wmaybe-uninitialized inside its comparison of short strings, when it
# inlines them in optimised builds (GCC bugs 105651 and 107138). The debug
# build keeps both warnings.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(yarvo_warnings INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-Wno-restrict -Wno-maybe-uninitialized>)
endif()
