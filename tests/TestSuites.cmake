# How test executables are made: one for each folder, in which each class is a CTest test of its own.

# What nearly every test includes, compiled once.
add_library(aa_test_headers OBJECT headers.cpp)
target_link_libraries(aa_test_headers PRIVATE AudioAnalyzer::AudioAnalyzer Qt5::Test aa_warnings)
target_compile_options(aa_test_headers PRIVATE -fno-access-control -O0)
aa_precompile_headers(aa_test_headers
  <QtTest> <AudioAnalyzer/analysis/AudioAnalyzer.h> <AudioAnalyzer/config/Configuration.h>)
set_target_properties(aa_test_headers PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)

# Most of moc's time goes into headers, in which it looks for macros; tests have theirs from Qt.
get_target_property(moc Qt5::moc IMPORTED_LOCATION)
configure_file(${PROJECT_SOURCE_DIR}/tests/moc.sh.in ${PROJECT_BINARY_DIR}/tests/moc.sh @ONLY)

# aa_add_tests(suite
#   [COMPUTES]             # its tests compute much themselves; to compile others takes longer than they run
#   TESTS tst_Name...      # classes, each in tst_Name.cpp, which ends in AA_TEST(tst_Name, ...);
#                          # where the suite has folders, folder/tst_Name
#   [ALLOCATION_TESTS tst_Name...]  # the same, where malloc can be replaced: not with sanitizers
#   [SOURCES file...]      # what they share
#   [LIBRARIES target...]
#   [LABELS label...])
#
# Tests read private members, so they are compiled without access control. Each class runs through a hard
# link of the executable in a folder of its own, since settings stand next to the executable, and the
# link's name says which class runs. A Qt warning or a skipped test fails. All sources of a suite are
# compiled as one, which takes a quarter of the time: a name belongs to one of them only.
function(aa_add_tests suite)
  cmake_parse_arguments(arg "COMPUTES" "" "TESTS;ALLOCATION_TESTS;SOURCES;LIBRARIES;LABELS" ${ARGN})
  if(arg_ALLOCATION_TESTS AND NOT AUDIOANALYZER_SANITIZERS)
    list(APPEND arg_TESTS ${arg_ALLOCATION_TESTS})
    list(APPEND arg_LIBRARIES aa_test_allocation)
  endif()
  list(TRANSFORM arg_TESTS APPEND .cpp OUTPUT_VARIABLE test_sources)
  add_executable(${suite} ${test_sources} ${arg_SOURCES})
  target_compile_options(${suite} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-access-control>)
  target_link_libraries(${suite} PRIVATE
    AudioAnalyzer::AudioAnalyzer Qt5::Test aa_test_support aa_test_main aa_warnings ${arg_LIBRARIES})
  if(NOT arg_COMPUTES)
    target_compile_options(${suite} PRIVATE -O0)
    aa_reuse_headers(${suite} aa_test_headers)
  endif()
  set_target_properties(${suite} PROPERTIES
    AUTOMOC_EXECUTABLE ${PROJECT_BINARY_DIR}/tests/moc.sh
    UNITY_BUILD ON
    UNITY_BUILD_BATCH_SIZE 0)
  foreach(test IN LISTS arg_TESTS)
    get_filename_component(name ${test} NAME)
    aa_add_test_class(${suite} ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}")
  endforeach()
endfunction()

# QtTest's own time limit would count hours of virtual time; CTest has one as well.
set(test_environment
  QT_FATAL_WARNINGS=1 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QTEST_FUNCTION_TIMEOUT=2000000000)

function(aa_add_test_class suite name)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name}.dir)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(TARGET ${suite} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E create_hardlink $<TARGET_FILE:${suite}> ${folder}/${name})
  add_test(NAME ${name} COMMAND ${folder}/${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 600
    ENVIRONMENT "${test_environment}"
    FAIL_REGULAR_EXPRESSION "SKIP   : ;[1-9][0-9]* skipped")
endfunction()

# aa_run_early(name...): tests that take or wait long, so that none of them is the last to run.
function(aa_run_early)
  set_tests_properties(${ARGN} PROPERTIES COST 1000)
endfunction()
