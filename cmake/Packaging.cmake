# The Debian packages, made by `cpack -G DEB`: one package for each group of install components.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME scriboneditor)
set(CPACK_PACKAGE_VENDOR "The Scribon Specification Editor developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/PreparePackages.cmake")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL
  scriboneditor scriboneditor-debian
  spectool spectool-debian
  documentation documentation-debian)
set(CPACK_COMPONENT_SCRIBONEDITOR_GROUP editor)
set(CPACK_COMPONENT_SCRIBONEDITOR-DEBIAN_GROUP editor)
set(CPACK_COMPONENT_SPECTOOL_GROUP spec)
set(CPACK_COMPONENT_SPECTOOL-DEBIAN_GROUP spec)
set(CPACK_COMPONENT_DOCUMENTATION_GROUP docs)
set(CPACK_COMPONENT_DOCUMENTATION-DEBIAN_GROUP docs)
if(TARGET marvane-desk)
  list(APPEND CPACK_COMPONENTS_ALL platform platform-debian)
  set(CPACK_COMPONENT_PLATFORM_GROUP desk)
  set(CPACK_COMPONENT_PLATFORM-DEBIAN_GROUP desk)
endif()

# Version and revision come from the changelog's first entry.
file(STRINGS "${PROJECT_SOURCE_DIR}/packaging/debian/changelog" newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^scriboneditor \\((${PROJECT_VERSION})-([^)]+)\\)")
  message(FATAL_ERROR "packaging/debian/changelog begins with another version than ${PROJECT_VERSION}")
endif()
set(CPACK_DEBIAN_PACKAGE_VERSION "${CMAKE_MATCH_1}")
set(CPACK_DEBIAN_PACKAGE_RELEASE "${CMAKE_MATCH_2}")
set(same_version "(= ${CMAKE_MATCH_1}-${CMAKE_MATCH_2})")

set(CPACK_DEBIAN_PACKAGE_SOURCE scriboneditor)
# There is no mailing list: the top-level domain .invalid is reserved for such addresses.
set(CPACK_DEBIAN_PACKAGE_MAINTAINER
  "The Scribon Specification Editor developers <developers@scriboneditor.invalid>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_EDITOR_PACKAGE_NAME scriboneditor)
set(CPACK_DEBIAN_EDITOR_PACKAGE_SECTION science)
set(CPACK_DEBIAN_EDITOR_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS "scriboneditor-docs ${same_version}")
set(CPACK_DEBIAN_EDITOR_DESCRIPTION "editor for the spec files of the Scribon data-logging task
Scribon is the data-logging task of the Marvane engine test-cell platform.
Its spec files say what to sample, how often, on which events, with which
statistics, and where to write it.

The editor shows such a file as five tables. Each cell has an editor that
fits it, wrong entries are marked and counted, every change can be undone,
and a file with mistakes can be opened and saved like any other.")

set(CPACK_DEBIAN_SPEC_PACKAGE_NAME scribon-spec)
set(CPACK_DEBIAN_SPEC_PACKAGE_SECTION science)
set(CPACK_DEBIAN_SPEC_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_SPEC_DESCRIPTION "check, print and compare spec files of the Scribon task
Scribon is the data-logging task of the Marvane engine test-cell platform.
Its spec files say what to sample, how often, on which events, with which
statistics, and where to write it.

scribon-spec finds what is wrong with such files, prints their tables,
formats them and compares them row by row, in a terminal and on a build
server. It reads a file as the editor does, and needs neither the editor
nor a display nor a running platform.")

set(CPACK_DEBIAN_DOCS_PACKAGE_NAME scriboneditor-docs)
set(CPACK_DEBIAN_DOCS_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCS_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCS_PACKAGE_DEPENDS qt5-assistant)
set(CPACK_DEBIAN_DOCS_PACKAGE_ENHANCES scriboneditor)
set(CPACK_DEBIAN_DOCS_DESCRIPTION "editor for Scribon spec files - help and examples
Scribon is the data-logging task of the Marvane engine test-cell platform.

This package has what the editor's Help menu shows, the user guide, and
example files to try things on.")

if(TARGET marvane-desk)
  string(APPEND CPACK_DEBIAN_EDITOR_DESCRIPTION "

It runs beside the platform; marvane-desk stands in for one on any desk.")
  set(CPACK_DEBIAN_EDITOR_PACKAGE_DEPENDS "marvane-desk ${same_version}")
  set(CPACK_DEBIAN_SPEC_PACKAGE_DEPENDS "marvane-desk ${same_version}")
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/host")
  set(CPACK_DEBIAN_DESK_PACKAGE_NAME marvane-desk)
  set(CPACK_DEBIAN_DESK_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_DESK_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_DESK_DESCRIPTION "Marvane test-cell platform for the desk
The programs of the Marvane engine test-cell platform find its variables,
units and keywords in shared memory. This package puts those of a catalogue
file there, so that the programs can be used away from a test cell, and has
the library that finds them. marvane-snapshot writes the catalogue of the
platform that runs on a computer.")
endif()

include(CPack)
