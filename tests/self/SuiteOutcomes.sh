#!/bin/sh
# Writes and returns what GoogleTest does for suites that are named after how their tests end.
case $1 in
  --gtest_list_tests) printf '%s.\n  A\n' AllPass AllSkip AllFail SkipAndFail SkipAndLeak ;;
  *AllPass*) echo '[  PASSED  ] 2 tests.' ;;
  *AllSkip*)
    printf '[  PASSED  ] 0 tests.\n[  SKIPPED ] 2 tests, listed below:\n'
    printf '[  SKIPPED ] AllSkip.A\n[  SKIPPED ] AllSkip.B\n' ;;
  *AllFail*)
    printf '[  PASSED  ] 0 tests.\n[  FAILED  ] 1 test, listed below:\n[  FAILED  ] AllFail.A\n'
    exit 1 ;;
  *SkipAndFail*)
    printf '[  PASSED  ] 0 tests.\n[  SKIPPED ] 1 test, listed below:\n[  SKIPPED ] SkipAndFail.A\n'
    printf '[  FAILED  ] 1 test, listed below:\n[  FAILED  ] SkipAndFail.B\n'
    exit 1 ;;
  *SkipAndLeak*)
    printf '[  PASSED  ] 0 tests.\n[  SKIPPED ] 1 test, listed below:\n[  SKIPPED ] SkipAndLeak.A\n'
    printf '==7==ERROR: LeakSanitizer: detected memory leaks\n'
    exit 23 ;;
esac
