# Run by CPack on the installed files before it packs them.

# Strips a program or library: debug information, unneeded symbols, and the compiler's .comment and
# .note sections, which strip keeps by default.
function(strip_if_elf file)
  set(magic_of_elf "7f454c46")
  file(READ "${file}" magic LIMIT 4 HEX)
  if(magic STREQUAL magic_of_elf)
    execute_process(
      COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note "${file}"
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endfunction()

# The permissions of folders must not depend on the umask of the build.
set(folder_permissions
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

file(GLOB_RECURSE entries LIST_DIRECTORIES ON "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(entry IN LISTS entries)
  if(IS_DIRECTORY "${entry}")
    file(CHMOD "${entry}" PERMISSIONS ${folder_permissions})
  elseif(NOT IS_SYMLINK "${entry}")
    strip_if_elf("${entry}")
  endif()
endforeach()
