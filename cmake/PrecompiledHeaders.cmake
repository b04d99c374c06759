# Precompiled headers. They hold headers of Qt and of the C++ library only, so no change of ours makes
# everything compile anew. Each source still includes what it uses: scripts/lint compiles without.

# scribon_precompile(TARGET HEADER...)
function(scribon_precompile target)
  if(SCRIBON_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# scribon_reuse_precompiled(OWNER TARGET...): the targets need the compile options of the owner.
function(scribon_reuse_precompiled owner)
  if(SCRIBON_PRECOMPILED_HEADERS)
    foreach(target IN LISTS ARGN)
      target_precompile_headers(${target} REUSE_FROM ${owner})
    endforeach()
  endif()
endfunction()
