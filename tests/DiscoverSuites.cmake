# Read by ctest: makes one test of each suite of a GoogleTest program. Under the sanitizers a
# process takes half a second to start and to end, far longer than most tests.
#   suites(NAME PROGRAM)   the tests NAME.<suite>, labelled NAME
function(suites name program)
  if(NOT EXISTS "${program}")
    add_test("${name}_NOT_BUILT" "${program}")
    return()
  endif()
  execute_process(COMMAND "${program}" --gtest_list_tests
    OUTPUT_VARIABLE listed RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${program} --gtest_list_tests ends with ${status}")
  endif()
  # A suite is a line that ends with its point, or has its type's name behind it as a comment.
  string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." found "${listed}")
  foreach(suite IN LISTS found)
    string(STRIP "${suite}" suite)
    string(REGEX REPLACE "\\.$" "" suite "${suite}")
    add_test("${name}.${suite}" "${program}" "--gtest_filter=${suite}.*")
    # A suite of which no test ran is skipped; one of which some did has not failed. ctest would
    # skip a failed one too: behind the list of skipped tests there must be neither that of failed
    # ones nor what a sanitizer writes.
    set_tests_properties("${name}.${suite}" PROPERTIES LABELS ${name} SKIP_REGULAR_EXPRESSION
      "\\[  PASSED  \\] 0 tests\\.\n(\\[  SKIPPED \\][^\n]*\n)*[^[=]*$")
  endforeach()
endfunction()
