# Precompiled headers. They hold headers of Qt and of the C++ library only, so no change of ours makes
# everything compile anew. Each source still includes what it uses: scripts/lint compiles without.

# A shared library is compiled with <target>_EXPORTS, which nothing reads, and a header is not reused
# by a target whose macros differ.
function(scribon_drop_export_macro target)
  set_target_properties(${target} PROPERTIES DEFINE_SYMBOL "")
endfunction()

# scribon_precompile(TARGET HEADER...)
function(scribon_precompile target)
  if(SCRIBON_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    scribon_drop_export_macro(${target})
  endif()
endfunction()

# scribon_reuse_precompiled(OWNER TARGET...): the targets need the compile options of the owner.
function(scribon_reuse_precompiled owner)
  if(SCRIBON_PRECOMPILED_HEADERS)
    foreach(target IN LISTS ARGN)
      target_precompile_headers(${target} REUSE_FROM ${owner})
      scribon_drop_export_macro(${target})
    endforeach()
  endif()
endfunction()
