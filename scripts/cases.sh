# shellcheck shell=bash
# Sourced, not run.

# cases_told BUILD: how many cases of GoogleTest the last run of ctest played, whichever of them were tests of their own.
cases_told() {
  awk '/^\[==========\] [0-9]+ tests? from .* ran\./ { cases += $2 } END { print "-> " cases + 0 " cases" }' \
    "$1/Testing/Temporary/LastTest.log"
}

# costs_known BUILD: which tests are long, as far as anybody has told: ctest begins with those. A machine that has run them
# knows better.
costs_known() {
  local known=$1/Testing/Temporary/CTestCostData.txt
  mkdir -p "$(dirname "$known")"
  [ -f "$known" ] || cp tests/costs.txt "$known"
}
