# shellcheck shell=bash
# How a script tells what it is for: by the comment at its head. Sourced, not run.

# usage_asked ARGUMENT...: when one of them asks for it, shows the usage and ends the script well.
usage_asked() {
  local word
  for word in "$@"; do
    case "$word" in
      -h | --help | --ayuda)
        usage
        exit 0
        ;;
    esac
  done
}

# usage_error: shows the usage on standard error and ends the script with 2.
usage_error() {
  usage >&2
  exit 2
}

usage() { sed -n '2,/^[^#]/ { /^#/ s/^# \{0,1\}//p }' "$0"; }
