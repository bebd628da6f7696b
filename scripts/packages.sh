# shellcheck shell=bash
# Installs what a script needs from Debian. Sourced, not run.

# ensure_packages NAME...: installs those that are missing and says which. Without a missing one it
# touches neither the network nor the package lists.
ensure_packages() {
  local missing as_root
  missing_packages "$@"
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing from Debian: ${missing[*]}"
  find_root || return 1
  update_lists
  install_from_any_suite
}

# What the Windows library is built and run with: the cross compilers, Wine for both widths, and a display
# without a screen.
windows_packages=(
  g++-mingw-w64-i686 g++-mingw-w64-x86-64 mingw-w64-tools
  wine wine64 wine32:i386
  xvfb xauth openbox imagemagick xdotool
  googletest
)

# ensure_windows_packages: the same for those. 32-bit Wine comes from Debian's i386 half, whose lists the
# machine may not have yet.
ensure_windows_packages() {
  local missing as_root
  missing_packages "${windows_packages[@]}"
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing from Debian: ${missing[*]}"
  if [ "$(dpkg --print-architecture)" = amd64 ] && find_root && know_i386; then
    update_lists
    install_from_any_suite && return 0
  fi
  echo "The Windows library cannot be tested here: Debian's packages for it (32-bit Wine among them)" \
    "cannot be installed on this machine. scripts/test --nativo does the Linux half alone." >&2
  return 1
}

know_i386() {
  dpkg --print-foreign-architectures | grep -qx i386 || "${as_root[@]}" dpkg --add-architecture i386
}

# The virtual printer's libraries: its loop, its panel, its memory, the pictures of its paper.
# shellcheck disable=SC2034
printer_packages=(
  libasio-dev libboost-dev libedit-dev nlohmann-json3-dev libsqlite3-dev libstb-dev fonts-dejavu-core
)

# What the door has beside them: TLS.
# shellcheck disable=SC2034
door_packages=(libssl-dev libmosquitto-dev)

# What its tests start for a chain of shops: a broker, a database, and what the consumer is written with.
# shellcheck disable=SC2034
chain_packages=(mosquitto mosquitto-clients postgresql python3-paho-mqtt python3-psycopg2)

# SQLite in one source, for the Windows printer: Debian has it as a library for its own system only. An npm package
# carries it within; this is the one that was looked at.
sqlite_package=better-sqlite3@12.11.1
sqlite_sum=76af40b40a608393c616d0733c54819771d94231e893981a40233ace1d989346929830acd426e7548f3f1e001242434ab16169b1e20ef5b7a0e71c696216c87c

# ensure_sqlite_source: in build/sqlite, once for each version; npm keeps what it has fetched for other folders.
ensure_sqlite_source() {
  local folder=build/sqlite file
  [ "$(cat "$folder/package" 2>/dev/null)" != "$sqlite_package" ] || return 0
  command -v npm >/dev/null || ensure_packages npm || return 1
  rm -rf "$folder"
  mkdir -p "$folder"
  file=$(cd "$folder" && npm pack --silent --prefer-offline "$sqlite_package") || return 1
  [ "$(sha512sum <"$folder/$file")" = "$sqlite_sum  -" ] || {
    echo "$sqlite_package is not what it was." >&2
    return 1
  }
  tar -xzf "$folder/$file" -C "$folder" --strip-components=3 \
    package/deps/sqlite3/sqlite3.c package/deps/sqlite3/sqlite3.h
  rm "$folder/$file"
  echo "$sqlite_package" >"$folder/package"
}

# The manual's pages: Debian's Sphinx and what it uses.
# shellcheck disable=SC2034
manual_packages=(furo python3-myst-parser python3-sphinx-copybutton python3-sphinx-inline-tabs)

# ensure_browser: what the panel's page is tested in. Node.js may be there without Debian's packages.
ensure_browser() {
  local wanted=(chromium)
  command -v node >/dev/null || wanted+=(nodejs)
  command -v npm >/dev/null || wanted+=(npm)
  ensure_packages "${wanted[@]}"
}

# Fills `missing` with those of the packages that are not installed.
missing_packages() {
  local name
  missing=()
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$name")
  done
}

# Fills `as_root` with what goes before a command to run it as root.
find_root() {
  as_root=()
  [ "$(id -u)" -eq 0 ] && return 0
  command -v sudo >/dev/null || {
    echo "Not root and no sudo here. Let root install: ${missing[*]}" >&2
    return 1
  }
  as_root=(sudo)
}

# An index that cannot be read need not matter: what counts is whether the packages come.
update_lists() {
  "${as_root[@]}" apt-get "$@" update -qq || echo "Some package lists could not be read; going on."
}

# Installs the missing ones; what apt said is in the file `install_log` when it fails.
install_packages() {
  install_log=$(mktemp)
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "$@" install -y -qq \
    -o DPkg::Lock::Timeout=300 --no-install-recommends "${missing[@]}" >"$install_log" 2>&1 || return 1
  rm -f "$install_log"
}

# The missing ones, from all suites or, where their packages do not go together, from the main one alone: the
# list of one architecture or suite may be older than the other's.
install_from_any_suite() {
  install_packages && return 0
  rm -f "$install_log"
  echo "That did not work; trying with the packages of Debian's main suite alone."
  install_packages_of_main_suite && return 0
  cat "$install_log" >&2
  rm -f "$install_log"
  return 1
}

# The same from lists of its own, of the main suite alone: there both architectures agree. What an update
# has brought to a newer version goes back to the suite's where it has to.
install_packages_of_main_suite() {
  local suite only status=0
  suite=$(. /etc/os-release && echo "${VERSION_CODENAME:?}") || return 1
  only=$(mktemp -d)
  chmod 755 "$only"
  mkdir -p "$only/sources" "$only/lists/partial"
  main_suite_sources "$suite" "$only/sources"
  printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$suite" >"$only/pin"
  local own=(-o Dir::Etc::preferences="$only/pin" -o Dir::Etc::sourcelist=/dev/null
    -o Dir::Etc::sourceparts="$only/sources" -o Dir::State::lists="$only/lists")
  update_lists "${own[@]}"
  install_packages "${own[@]}" --allow-downgrades || status=1
  "${as_root[@]}" rm -rf "$only"
  return "$status"
}

# main_suite_sources SUITE DIRECTORY: the machine's own mirrors, in both ways that apt writes them.
main_suite_sources() {
  local file
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -f "$file" ] && awk -v suite="$1" 'BEGIN { RS = ""; ORS = "\n\n" }
      match($0, /(^|\n)Suites:[^\n]*/) && index(substr($0, RSTART, RLENGTH) " ", " " suite " ") {
        sub(/Suites:[^\n]*/, "Suites: " suite); print
      }' "$file"
  done >"$2/main.sources"
  cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null |
    grep -E "^deb .* $1 " >"$2/main.list" || true
}
