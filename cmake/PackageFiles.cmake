# scribon_pack(SOURCE NAME)
#
# Makes NAME, the packed SOURCE, in the binary folder: the same bytes whenever and wherever that is.
function(scribon_pack source name)
  set(packed "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  add_custom_command(OUTPUT "${packed}"
    COMMAND gzip --best --no-name --to-stdout "${source}" > "${packed}"
    DEPENDS "${source}" VERBATIM)
  add_custom_target("pack_${name}" ALL DEPENDS "${packed}")
endfunction()
