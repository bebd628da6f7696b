# shellcheck shell=bash
# How what is tried is built first. Sourced, not run.

# build_preset PRESET [OPTION...] [-- TARGET...]: several sources at a time, as what is shipped always is; everything, or
# these targets.
build_preset() {
  local preset=$1 options=()
  shift
  while [ $# -gt 0 ] && [ "$1" != -- ]; do
    options+=("$1")
    shift
  done
  [ $# -eq 0 ] || shift
  cmake --preset "$preset" -DKESTRA_TOGETHER=ON "${options[@]}" || return
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
