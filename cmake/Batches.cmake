# Sources that are compiled several at a time: the headers that they share are read once for all of them,
# which takes a third of the time. A name outside of classes belongs to one source of a target only.

# aa_compile_in_batches(target...): where the builder asks for it.
function(aa_compile_in_batches)
  set_target_properties(${ARGN} PROPERTIES
    UNITY_BUILD ${AUDIOANALYZER_BATCHES}
    UNITY_BUILD_BATCH_SIZE 16)
endfunction()
