# Compiler and linker options. The hardening options apply to all targets. Link scribon_options to
# all targets (sanitizers), and scribon_warnings to those of our own code, not to generated code.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Sources with a precompiled header are cached only with this sloppiness. Depend mode does not
  # preprocess each source once more, and the inode cache reads a precompiled header only once.
  set(launcher env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_DEPEND=1 CCACHE_INODECACHE=1
    "${CCACHE_PROGRAM}")
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)

# Without this check, CMake does not pass -pie to the linker for POSITION_INDEPENDENT_CODE.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# -fcf-protection exists on x86 only.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fcf-protection SCRIBON_HAS_CF_PROTECTION)
add_compile_options(-fstack-protector-strong -Werror=format-security
  $<$<BOOL:${SCRIBON_HAS_CF_PROTECTION}>:-fcf-protection>)
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
# _FORTIFY_SOURCE needs optimization and does not work with the sanitizers' interceptors.
if(NOT SCRIBON_SANITIZE)
  add_compile_options(
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()

add_library(scribon_options INTERFACE)
if(SCRIBON_SANITIZE)
  target_compile_options(scribon_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(scribon_options INTERFACE -fsanitize=address,undefined)
endif()
# Coverage instrumentation for libFuzzer, also in generated code.
if(SCRIBON_BUILD_FUZZERS)
  target_compile_options(scribon_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(scribon_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

add_library(scribon_warnings INTERFACE)
target_compile_options(scribon_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wformat=2)
if(SCRIBON_WERROR)
  target_compile_options(scribon_warnings INTERFACE -Werror)
endif()

# QT_NO_KEYWORDS: the ANTLR runtime has members that are named like Qt's keyword macros, as `emit`.
# QT_FORCE_ASSERTS: Qt's assertions are part of the behaviour, in release builds, too.
# QT_NO_CAST_...: implicit conversions between QString and bytes would hide the encoding.
add_library(scribon_qt_options INTERFACE)
target_compile_definitions(scribon_qt_options INTERFACE
  QT_FORCE_ASSERTS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_KEYWORDS)

# scribon_list_programs(OUT_FILE)
#
# Writes the paths of all programs and shared libraries of the project, one a line, for the test of
# their hardening. Call it after all targets have been defined.
function(scribon_list_programs out_file)
  set(programs "")
  scribon_collect_programs("${PROJECT_SOURCE_DIR}" programs)
  list(JOIN programs "\n" programs)
  file(GENERATE OUTPUT "${out_file}" CONTENT "${programs}\n")
endfunction()

# Appends the programs and libraries of the directory and its subdirectories to out_var.
function(scribon_collect_programs directory out_var)
  get_property(targets DIRECTORY "${directory}" PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "^(EXECUTABLE|SHARED_LIBRARY|MODULE_LIBRARY)$")
      list(APPEND ${out_var} "$<TARGET_FILE:${target}>")
    endif()
  endforeach()
  get_property(subdirectories DIRECTORY "${directory}" PROPERTY SUBDIRECTORIES)
  foreach(subdirectory IN LISTS subdirectories)
    scribon_collect_programs("${subdirectory}" ${out_var})
  endforeach()
  set(${out_var} "${${out_var}}" PARENT_SCOPE)
endfunction()
