# scribon_pack(SOURCE NAME)
#
# Compresses SOURCE with gzip to NAME in the binary folder. The result is reproducible: it has no
# name and time.
function(scribon_pack source name)
  set(packed "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  add_custom_command(OUTPUT "${packed}"
    COMMAND gzip --best --no-name --to-stdout "${source}" > "${packed}"
    DEPENDS "${source}" VERBATIM)
  add_custom_target("pack_${name}" ALL DEPENDS "${packed}")
endfunction()
