# Fails when LIBRARY exports a symbol that belongs to none of the classes and functions in NAMES,
# a list with "|" between its entries, or when one of the classes that it must export is missing.
execute_process(
  COMMAND ${NM} --dynamic --demangle --defined-only ${LIBRARY}
  OUTPUT_VARIABLE output
  COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," output "${output}")
string(REPLACE "[" "(" output "${output}")
string(REPLACE "]" ")" output "${output}")
string(REGEX MATCHALL "[^\n]+" lines "${output}")

set(prefix "(vtable for |typeinfo for |typeinfo name for |guard variable for |void |bool |non-virtual thunk to )?")
set(of_the_linker "^(__bss_start|_edata|_end|_init|_fini)$")
set(strangers)
set(count 0)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" symbol "${line}")
  math(EXPR count "${count} + 1")
  if(symbol MATCHES "${of_the_linker}")
    continue()
  endif()
  if(NOT symbol MATCHES "^${prefix}(${NAMES})(<[^>]*>)?(::|$)")
    string(APPEND strangers "\n  ${symbol}")
  endif()
endforeach()

foreach(symbol AudioAnalyzer::Analyze AudioAnalyzer::staticMetaObject FastFourierTransform::Compute
    Pulse::CompareTo Configuration::Configuration HighResolutionTimer::getTime)
  if(NOT output MATCHES "${symbol}")
    message(FATAL_ERROR "${LIBRARY} does not export ${symbol}")
  endif()
endforeach()
if(strangers)
  message(FATAL_ERROR "${LIBRARY} exports what is not its own:${strangers}")
endif()
message(STATUS "${count} symbols, all of them our own")
