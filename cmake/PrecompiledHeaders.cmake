# Qt's headers take more than half of a small source's time, so they are compiled once for many.
#
# Only with GCC, which reads the headers as usual where options differ; clang would take what does not
# fit. What is shipped and what clang-tidy reads is built without, so that no include goes missing.

# aa_precompile_headers(target header...): headers for the sources of a target.
function(aa_precompile_headers target)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set_target_properties(${target} PROPERTIES PCH_WARN_INVALID OFF)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    aa_skip_precompiled_headers(${target})
  endif()
endfunction()

# aa_reuse_headers(target other): the headers that another target has compiled.
function(aa_reuse_headers target other)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set_target_properties(${target} PROPERTIES PCH_WARN_INVALID OFF)
    target_precompile_headers(${target} REUSE_FROM ${other})
    aa_skip_precompiled_headers(${target})
  endif()
endfunction()

# What has no use for them: C, and the output of moc, which brings its own.
function(aa_skip_precompiled_headers target)
  get_target_property(sources ${target} SOURCES)
  get_target_property(folder ${target} BINARY_DIR)
  list(FILTER sources INCLUDE REGEX "\\.c$")
  set_source_files_properties(${sources} ${folder}/${target}_autogen/mocs_compilation.cpp
    TARGET_DIRECTORY ${target}
    PROPERTIES SKIP_PRECOMPILE_HEADERS ON SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
