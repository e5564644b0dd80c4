# Warnings for the project's own targets, through one interface target.
add_library(yarvo_warnings INTERFACE)
target_compile_options(yarvo_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  -Wcast-align -Wunused -Woverloaded-virtual -Wconversion -Wsign-conversion
  -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough)
