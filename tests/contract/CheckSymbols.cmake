# Compares what LIBRARY exports with the checked-in LIST, one mangled name a line, and fails when they
# differ, or when a symbol belongs to none of the classes and functions in NAMES, a list with "|" between
# its entries. With UPDATE it writes LIST instead of comparing; with ALLOW_MORE only what is gone is a fault.
execute_process(
  COMMAND ${NM} --dynamic --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE output
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
list(TRANSFORM lines REPLACE " .*" "")
list(SORT lines COMPARE STRING)
list(REMOVE_DUPLICATES lines)
list(LENGTH lines count)
list(JOIN lines "\n" text)

# Readable names, and nothing that is not our own.
execute_process(
  COMMAND ${NM} --dynamic --demangle --defined-only ${LIBRARY}
  OUTPUT_VARIABLE output
  COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," output "${output}")
string(REPLACE "[" "(" output "${output}")
string(REPLACE "]" ")" output "${output}")
string(REGEX MATCHALL "[^\n]+" readable_lines "${output}")
set(prefix "(vtable for |typeinfo for |typeinfo name for |guard variable for |void |bool |non-virtual thunk to )?")
set(strangers)
foreach(line IN LISTS readable_lines)
  string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" symbol "${line}")
  if(NOT symbol MATCHES "^${prefix}(${NAMES})(<[^>]*>)?(::|$)")
    string(APPEND strangers "\n  ${symbol}")
  endif()
endforeach()
if(strangers)
  message(FATAL_ERROR "${LIBRARY} exports what is not its own:${strangers}")
endif()

if(UPDATE)
  file(WRITE ${LIST} "${text}\n")
  message(STATUS "${count} symbols written to ${LIST}")
  return()
endif()

file(STRINGS ${LIST} listed)
set(added ${lines})
list(REMOVE_ITEM added ${listed})
if(ALLOW_MORE)
  set(added)
endif()
set(removed ${listed})
list(REMOVE_ITEM removed ${lines})
if(added OR removed)
  list(JOIN added "\n  " added)
  list(JOIN removed "\n  " removed)
  message(FATAL_ERROR "The exported symbols are not those of ${LIST}.\nNew:\n  ${added}\n"
    "Gone, which breaks compiled hosts:\n  ${removed}\n"
    "c++filt reads the names. CONTRIBUTING.md says what a change means; to write the list anew:\n"
    "  cmake --build --preset dev --target update_exported_symbols")
endif()
message(STATUS "${count} symbols, all of them listed and our own")
