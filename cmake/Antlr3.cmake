# Generates the recognizers (lexer and parser) from the grammar, at build time, into the build tree.

find_program(ANTLR3_EXECUTABLE antlr3 REQUIRED)
find_library(ANTLR3C_LIBRARY antlr3c REQUIRED)
find_path(ANTLR3C_INCLUDE_DIR antlr3.h REQUIRED)

add_library(Antlr3::Runtime INTERFACE IMPORTED)
set_target_properties(Antlr3::Runtime PROPERTIES
  INTERFACE_LINK_LIBRARIES "${ANTLR3C_LIBRARY}"
  INTERFACE_INCLUDE_DIRECTORIES "${ANTLR3C_INCLUDE_DIR}")

# scribon_generate_recognizers(OUT_VAR GRAMMAR name VOCABULARY file)
#
# Adds the command that turns <name>.g into <name>Lexer.c and <name>Parser.c with their headers
# and sets OUT_VAR to the generated sources. The vocabulary holds the token numbers; the
# generator looks for it in its library directory.
function(scribon_generate_recognizers out_var grammar_file vocabulary_file)
  get_filename_component(name "${grammar_file}" NAME_WE)
  get_filename_component(library_dir "${vocabulary_file}" DIRECTORY)
  set(generated_dir "${CMAKE_CURRENT_BINARY_DIR}/recognizers")
  set(generated
    "${generated_dir}/${name}Lexer.c" "${generated_dir}/${name}Lexer.h"
    "${generated_dir}/${name}Parser.c" "${generated_dir}/${name}Parser.h")
  add_custom_command(
    OUTPUT ${generated}
    COMMAND "${CMAKE_COMMAND}"
      "-DANTLR3=${ANTLR3_EXECUTABLE}" "-DGRAMMAR=${grammar_file}" "-DLIBRARY_DIR=${library_dir}"
      "-DOUTPUT_DIR=${generated_dir}" -P "${PROJECT_SOURCE_DIR}/cmake/RunAntlr3.cmake"
    DEPENDS "${grammar_file}" "${vocabulary_file}" "${PROJECT_SOURCE_DIR}/cmake/RunAntlr3.cmake"
    COMMENT "Generating the recognizers of ${name}.g"
    VERBATIM)
  set(${out_var} ${generated} PARENT_SCOPE)
endfunction()
