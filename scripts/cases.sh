# shellcheck shell=bash
# Sourced, not run.

# cases_told BUILD: how many cases of GoogleTest the last run of ctest played, whichever of them were tests of their own.
cases_told() {
  awk '/^\[==========\] [0-9]+ tests? from .* ran\./ { cases += $2 } END { print "-> " cases + 0 " cases" }' \
    "$1/Testing/Temporary/LastTest.log"
}
