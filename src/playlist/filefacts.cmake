# Byte-level readers of what a file holds: ID3v1 tags and their code pages,
# the genre table, the MPEG header reader and the text search. No Qt; of the
# project, only the platform's file operations.
add_library(yarvo_filefacts STATIC
  ${CMAKE_CURRENT_LIST_DIR}/ByteFile.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CBoyerMoore.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CodePage.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Id3Genres.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Id3Tag.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Mp3InfoMod.cpp
)
yarvo_target(yarvo_filefacts)
target_link_libraries(yarvo_filefacts PUBLIC yarvo_src_includes yarvo_platform)
