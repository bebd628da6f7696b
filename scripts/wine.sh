# shellcheck shell=bash
# A Windows to run programs in: Wine with a prefix, a display without a screen and a window manager of its
# own. Sourced, not run. Whoever calls wine_start calls wine_stop, best from a trap on EXIT.

# Starters of programs. Debian keeps the one of 64 bits out of the path.
# shellcheck disable=SC2034
wine32=wine wine64=/usr/lib/wine/wine64

wine_processes=()

# wine_start DIRECTORY: makes the prefix in it the first time (some 15 s), brings it up, and exports what
# programs need to run there.
wine_start() {
  local fresh=no steady=(setarch "$(uname -m)" --addr-no-randomize)
  # Newer systems put the heap of a 64-bit program anywhere, once in 6000 times where Wine must have a page.
  "${steady[@]}" true 2>/dev/null || steady=(env)
  wine_directory=$1
  export WINEPREFIX=$wine_directory/prefix LC_ALL=C.UTF-8
  # Its complaints, each with the number of the process. Whoever wants to know more sets it before.
  export WINEDEBUG=${WINEDEBUG:-fixme-all,+pid}
  # No downloads, no entries in the desktop's menus, and no window that waits when a program crashes.
  export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe,winedbg.exe=d"
  mkdir -p "$WINEPREFIX"
  : >"$wine_directory/once_more.txt"
  wine_start_display || return 1
  # Where the server of a prefix is found stands in a file that the first who asks writes. Two who ask first at
  # the same time write two, and never find each other: so one asks alone.
  wineserver -k0 || true
  # In the foreground of this script: as a daemon it may take the first line that it opens for its terminal,
  # and end with it.
  wineserver -f -p >"$wine_directory/wineserver.log" 2>&1 &
  wine_processes+=($!)
  wine_wait_for "Wine's server" "$!" wineserver -k0 || return 1
  [ -f "$WINEPREFIX/complete" ] || fresh=yes
  [ "$fresh" = no ] || echo "Making a Windows to run programs in (some 15 seconds)..."
  # The first program brings up the rest. Not wineboot: it would start the services a second time, and two
  # of each make some programs wait ten seconds for an answer.
  if ! "${steady[@]}" "$wine32" cmd /c exit >"$wine_directory/start.log" 2>&1; then
    cat "$wine_directory/start.log" >&2
    echo "Wine could not make its prefix in $WINEPREFIX." >&2
    return 1
  fi
  touch "$WINEPREFIX/complete"
}

# wine_stop: ends every program of the prefix, then what wine_start has started. May be called twice.
wine_stop() {
  local process
  [ ${#wine_processes[@]} -gt 0 ] || return 0
  [ ! -d "${WINEPREFIX:-}" ] || wineserver -k >/dev/null 2>&1 || true
  for process in "${wine_processes[@]}"; do
    kill "$process" 2>/dev/null || true
  done
  for process in "${wine_processes[@]}"; do
    wait "$process" 2>/dev/null || true
  done
  wine_processes=()
  [ ! -s "$wine_directory/once_more.txt" ] || {
    echo "Done once more, because of Wine or of a busy machine: $(wc -l <"$wine_directory/once_more.txt") times"
    cat "$wine_directory/once_more.txt"
  }
}

# wine_com NUMBER DEVICE: makes the device COM<NUMBER>, at once. Take 20 and above: Wine itself deals out the
# low ones.
wine_com() {
  ln -sfn "$2" "$WINEPREFIX/dosdevices/com$1"
}

# A display under the first free number, and a window manager that gives windows their captions.
wine_start_display() {
  local number=$wine_directory/display
  : >"$number"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number" >"$wine_directory/xvfb.log" 2>&1 &
  wine_processes+=($!)
  wine_wait_for "the display" "$!" test -s "$number" || return 1
  DISPLAY=:$(cat "$number")
  export DISPLAY
  openbox >"$wine_directory/openbox.log" 2>&1 &
  wine_processes+=($!)
}

# wine_wait_for WHAT PROCESS COMMAND...: until the command succeeds; not beyond the process's end.
wine_wait_for() {
  local what=$1 process=$2 status=0
  shift 2
  for _ in $(seq 400); do
    "$@" && return 0
    kill -0 "$process" 2>/dev/null || { wait "$process" || status=$?; break; }
    sleep 0.05
  done
  if kill -0 "$process" 2>/dev/null; then
    echo "$what runs, but does not answer:" >&2
  else
    echo "$what did not start, and ended with $status:" >&2
  fi
  tail -n 5 "$wine_directory"/*.log >&2 2>/dev/null || true
  return 1
}
