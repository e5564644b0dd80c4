# Copies SOURCE_DIR into DEST_DIR, file by file, leaving files that already exist:
# the program writes some of the shipped files (keyboard.data), and a rebuild
# must not undo what the user changed.
file(GLOB_RECURSE files RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*)
foreach(f IN LISTS files)
  if(f MATCHES "(^|/)\\.gitkeep$")
    get_filename_component(dir ${f} DIRECTORY)
    file(MAKE_DIRECTORY ${DEST_DIR}/${dir})
  elseif(NOT EXISTS ${DEST_DIR}/${f})
    get_filename_component(dir ${f} DIRECTORY)
    file(COPY ${SOURCE_DIR}/${f} DESTINATION ${DEST_DIR}/${dir})
  endif()
endforeach()
