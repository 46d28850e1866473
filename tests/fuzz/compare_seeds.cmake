# Writes the seeds afresh and fails where a committed one differs. Seeds beyond those, found by a fuzzer,
# may stand beside them.
file(REMOVE_RECURSE ${FRESH})
execute_process(COMMAND ${MAKE_SEEDS} ${FRESH} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "make_seeds failed: ${result}")
endif()
file(GLOB_RECURSE names RELATIVE ${FRESH} ${FRESH}/*)
if(NOT names)
  message(FATAL_ERROR "make_seeds wrote nothing")
endif()
foreach(name IN LISTS names)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${FRESH}/${name} ${SEEDS}/${name}
    RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${name} is not what make_seeds writes")
  endif()
endforeach()
