# scribon_find_platform_library(TARGET INSTALL_DIR)
#
# The program TARGET, which is installed to INSTALL_DIR, finds the platform's library: the stand-in's
# from where the program is, so that both can be moved; the platform's own where it was linked.
function(scribon_find_platform_library target install_dir)
  get_target_property(marvane_install_dir marvane MARVANE_INSTALL_DIR)
  if(NOT marvane_install_dir)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
    return()
  endif()
  file(RELATIVE_PATH marvane_from_program "/${install_dir}" "/${marvane_install_dir}")
  # The program of the build finds it by the same path. One that is changed at the installation has
  # room for that in it, as empty entries, and an empty entry is the directory it is started in.
  set(marvane_link "${CMAKE_CURRENT_BINARY_DIR}/${marvane_from_program}")
  cmake_path(NORMAL_PATH marvane_link)
  cmake_path(IS_PREFIX PROJECT_BINARY_DIR "${marvane_link}" is_in_build)
  if(NOT is_in_build)
    message(FATAL_ERROR "${install_dir} is too deep: ${marvane_link} is not in the build")
  endif()
  cmake_path(GET marvane_link PARENT_PATH marvane_link_dir)
  file(MAKE_DIRECTORY "${marvane_link_dir}")
  file(CREATE_LINK "${PROJECT_BINARY_DIR}/host" "${marvane_link}" SYMBOLIC)
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN/${marvane_from_program}" BUILD_WITH_INSTALL_RPATH ON)
  if(BUILD_SHARED_LIBS)
    # The program's own libraries are beside it.
    set_property(TARGET ${target} APPEND PROPERTY INSTALL_RPATH "$ORIGIN")
  endif()
endfunction()
