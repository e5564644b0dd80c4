# Copies SOURCE_DIR into DEST_DIR, file by file. The program writes the files
# under Data and Playlists (keyboard.data among them), so those are copied
# only where they are missing: a rebuild must not undo what the user changed.
# Everything else (skins, languages, icons) it only reads, and it follows the
# source, so that a rebuild shows the skins as they are now.
file(GLOB_RECURSE files RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*)
foreach(f IN LISTS files)
  get_filename_component(dir ${f} DIRECTORY)
  if(f MATCHES "(^|/)\\.gitkeep$")
    file(MAKE_DIRECTORY ${DEST_DIR}/${dir})
  elseif(f MATCHES "^(Data|Playlists)/")
    if(NOT EXISTS ${DEST_DIR}/${f})
      file(COPY ${SOURCE_DIR}/${f} DESTINATION ${DEST_DIR}/${dir})
    endif()
  else()
    file(MAKE_DIRECTORY ${DEST_DIR}/${dir})
    file(COPY_FILE ${SOURCE_DIR}/${f} ${DEST_DIR}/${f} ONLY_IF_DIFFERENT)
  endif()
endforeach()
