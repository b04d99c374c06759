# Run by CPack on what it is about to pack: takes out of the programs and libraries what only a
# debugger wants, and the notes of the compiler, which a plain strip leaves in.

set(magic_of_elf "7f454c46")

file(GLOB_RECURSE files LIST_DIRECTORIES OFF "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(file IN LISTS files)
  file(READ "${file}" magic LIMIT 4 HEX)
  if(magic STREQUAL magic_of_elf AND NOT IS_SYMLINK "${file}")
    execute_process(
      COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note "${file}"
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
