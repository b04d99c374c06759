# scribon_token_header(OUT_FILE VOCABULARY)
#
# Writes the vocabulary's NAME=number lines as a C++ enumeration. The generated headers define them
# as macros with names such as EOL and INT, which could clash with other names.
function(scribon_token_header out_file vocabulary_file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${vocabulary_file}")
  file(STRINGS "${vocabulary_file}" lines)
  set(enumerators "")
  foreach(line IN LISTS lines)
    string(REPLACE "=" " = " line "${line}")
    string(APPEND enumerators "    TOKEN_${line},\n")
  endforeach()
  list(LENGTH lines count)
  file(CONFIGURE OUTPUT "${out_file}" @ONLY CONTENT
"// Generated from the vocabulary of token numbers.
#pragma once

enum ScribonTokenType {
    TOKEN_INVALID = 0,
@enumerators@    TOKEN_TYPE_COUNT = @count@ + 4
};
")
endfunction()
