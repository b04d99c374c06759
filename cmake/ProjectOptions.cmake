# The flags that every target of ours shares. Link scribon_options for the language level,
# hardening and sanitizers, scribon_warnings as well for code that we wrote ourselves
# (generated code takes only the first).

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_C_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)

# The checker turns POSITION_INDEPENDENT_CODE into -pie for executables where supported.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

add_library(scribon_options INTERFACE)
target_compile_options(scribon_options INTERFACE -fstack-protector-strong -Werror=format-security)
target_link_options(scribon_options INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
# FORTIFY needs the optimizer and gets in the way of the sanitizers' own interceptors.
if(NOT SCRIBON_SANITIZE)
  target_compile_options(scribon_options INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()
if(SCRIBON_SANITIZE)
  target_compile_options(scribon_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(scribon_options INTERFACE -fsanitize=address,undefined)
endif()
# The fuzzers steer by what their inputs reach in our code, generated code included.
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

# The runtime of the recognizers has members with the names of the toolkit's keyword macros.
# The toolkit's assertions are part of the behaviour, in release builds too; implicit
# conversions between bytes and text are not, since they hide which encoding is meant.
add_library(scribon_qt_options INTERFACE)
target_compile_definitions(scribon_qt_options INTERFACE
  QT_FORCE_ASSERTS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_KEYWORDS)
