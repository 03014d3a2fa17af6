# How ctest counts suites that pass, are skipped, fail and leak.
#   cmake -D WORK=<folder to write in> -P SuiteOutcomes.cmake
file(WRITE "${WORK}/CTestTestfile.cmake"
  "include(\"${CMAKE_CURRENT_LIST_DIR}/../DiscoverSuites.cmake\")
suites(unit \"${CMAKE_CURRENT_LIST_DIR}/SuiteOutcomes.sh\")\n")
execute_process(COMMAND ${CMAKE_CTEST_COMMAND} WORKING_DIRECTORY "${WORK}"
  OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
foreach(expected "AllPass \\.+ +Passed" "AllSkip \\.+\\*\\*\\*Skipped" "AllFail \\.+\\*\\*\\*Failed"
    "SkipAndFail \\.+\\*\\*\\*Failed" "SkipAndLeak \\.+\\*\\*\\*Failed")
  if(NOT printed MATCHES "unit\\.${expected}")
    message(SEND_ERROR "No ${expected} in:\n${printed}")
  endif()
endforeach()
