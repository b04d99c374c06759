# Runs the parser generator and shows its output only if it fails: it prints harmless warnings about
# the templates of the C target. Old output is removed first, since a failed run leaves it there.

file(REMOVE_RECURSE "${OUTPUT_DIR}")
file(MAKE_DIRECTORY "${OUTPUT_DIR}")
execute_process(
  COMMAND "${ANTLR3}" -lib "${LIBRARY_DIR}" -fo "${OUTPUT_DIR}" "${GRAMMAR}"
  RESULT_VARIABLE status
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
if(NOT status EQUAL 0 OR output MATCHES "error\\((1[0-9][0-9]|2[0-9][0-9])\\)|warning\\((2[0-9][0-9])\\)")
  message(FATAL_ERROR "The parser generator failed on ${GRAMMAR} (status ${status}):\n${output}")
endif()
