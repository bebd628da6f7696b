# shellcheck shell=bash
# Free Pascal for Windows, of both widths, from Debian's packages: those of tests/hosts/languages.py are installed.
# Sourced, not run.

# pascal_for_windows DIRECTORY: makes in it the compilers ppc386 and ppcx64, and the units of win32 and win64. The one of
# 32 bits, from Debian's i386 half, is unpacked rather than installed: it would take the place of the machine's own.
pascal_for_windows() {
  local directory=$1
  [ -f "$directory/complete" ] && return 0
  echo "Making a Pascal for Windows in $directory (some 20 seconds)..."
  rm -rf "$directory"
  mkdir -p "$directory/i386"
  (cd "$directory/i386" && { pascal_download || { apt-get update -qq; pascal_download; }; } && dpkg-deb -x ./*.deb .) || {
    echo "Debian's package fp-compiler-3.2.2:i386 cannot be had." >&2
    return 1
  }
  cp "$directory"/i386/usr/lib/*/fpc/3.2.2/ppc386 "$directory/ppc386"
  rm -rf "$directory/i386"
  ln -s "$(command -v ppcx64-3.2.2)" "$directory/ppcx64"
  # The sources lie read-only.
  cp -r /usr/share/fpcsrc/3.2.2/rtl "$directory/rtl"
  pascal_units "$directory" win32 i386 "$directory/ppc386" ../win || return 1
  pascal_units "$directory" win64 x86_64 "$directory/ppcx64" ../win64 || return 1
  rm -rf "$directory/rtl"
  touch "$directory/complete"
}

pascal_download() {
  apt-get download -qq fp-compiler-3.2.2:i386 2>/dev/null
}

# pascal_units DIRECTORY SYSTEM PROCESSOR COMPILER FOLDER: the units of the run-time library for SYSTEM.
pascal_units() {
  local units source
  units=$(realpath "$1")/$2
  mkdir -p "$units"
  local compile=("$(realpath "$4")" "-T$2" -n -O2 -v0 -XX -CX "-FU$units" "-Fu$units" "-Fi$5" -Fi../win
    -Fi../inc "-Fi../$3" -Fi../win/wininc -Fi../objpas -Fi../objpas/sysutils -Fi../objpas/classes)
  (
    cd "$1/rtl/$2" || exit 1
    "${compile[@]}" -Us -Sg system.pp || exit 1
    for source in ../inc/heaptrc.pp ../objpas/objpas.pp sysinitpas.pp sysinit.pp ../inc/uuchar.pp; do
      [ ! -f "$source" ] || "${compile[@]}" "$source" || exit 1
    done
    "${compile[@]}" "-Fu../$3" -Fu../win/wininc -Fu../win -Fu../inc -Fu../objpas buildrtl.pp
  ) >"$units.log" 2>&1 || {
    tail -n 20 "$units.log" >&2
    return 1
  }
}
