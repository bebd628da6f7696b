# shellcheck shell=bash
# Installs what a script needs from Debian. Sourced, not run.

# ensure_packages NAME...: installs those that are missing and says which. Without a missing one it
# touches neither the network nor the package lists.
ensure_packages() {
  local missing=() name
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  echo "Installing from Debian: ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "Not root and no sudo here. Install them yourself: apt-get install ${missing[*]}" >&2
      return 1
    }
    as_root=(sudo)
  fi
  # An index that cannot be read need not matter: what counts is whether the packages come.
  "${as_root[@]}" apt-get update -qq || echo "Some package lists could not be read; going on."
  local log
  log=$(mktemp)
  if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}
