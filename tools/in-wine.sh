#!/usr/bin/env bash
# tools/in-wine.sh <command> [<argument>...]: runs a command where it finds a Windows, and answers its exit code:
#
#   tools/in-wine.sh ctest --preset windows
#   tools/in-wine.sh wine cscript //nologo page.vbs
#
# The Windows is Wine's in build/wine (another folder: WINEPREFIX), made at the first use. It has a screen of its
# own, a desktop on it so that windows get the keyboard without a window manager, and Tabulon.ocx registered where
# it has been built, with the library that the tests of scripts use. Beside it stands a second one, with its own
# screen, keyboard, clipboard and registry: what runs under tools/free-wine.sh takes the one that is free.
# TABULON_WINDOWS=1 makes do with the first.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
(($#)) || { echo "usage: tools/in-wine.sh <command> [<argument>...]" >&2; exit 2; }

# A kernel of 2024 or later puts the heap anywhere in a gigabyte above Wine's loader; once in some two thousand
# starts that is where Wine's own shared page belongs, and the program ends before it began. A heap that always
# stands at the same place does not.
if [[ -z ${TABULON_FIXED_HEAP:-} ]] && setarch --addr-no-randomize true 2>/dev/null; then
  TABULON_FIXED_HEAP=1 exec setarch --addr-no-randomize "${BASH_SOURCE[0]}" "$@"
fi

# Of somebody's own Windows nothing is ended but what was started here, and there is no second one.
[[ -z ${WINEPREFIX:-} ]] && own=1 || own=
first=${WINEPREFIX:-$root/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# What Wine would ask to download at the first use.
export WINEDLLOVERRIDES="mscoree=d;mshtml=d"

screen=1280x1024
libraries=("$root/dist/activex/x64/Tabulon.ocx" "$root/build/windows/tabulon_test_form.dll")
prefixes=("$first")
[[ -z $own || ${TABULON_WINDOWS:-2} == 1 ]] || prefixes+=("$first-2")
screens=()

end() {
  local prefix
  for prefix in "${prefixes[@]}"; do [[ -z $own ]] || WINEPREFIX=$prefix wineserver -k 2>/dev/null; done
  ((${#screens[@]} == 0)) || { kill "${screens[@]}" && wait "${screens[@]}"; } 2>/dev/null
}
trap end EXIT
trap 'exit 130' INT TERM

# Xvfb says which display it has taken when it can be used.
start_screen() {
  local fifo
  fifo=$(mktemp -u) && mkfifo "$fifo" || return
  Xvfb -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp -noreset 3>"$fifo" 9>&- 2>/dev/null &
  screens+=($!)
  read -r -t 20 DISPLAY <"$fifo"
  rm -f "$fifo"
  [[ -n ${DISPLAY:-} ]] && export DISPLAY=:$DISPLAY
}

set_key() { wine reg add "$1" /v "$2" /d "$3" /f; }

# Making one takes half a minute, copying it some seconds.
make_prefix() {
  [[ -e $WINEPREFIX/.made ]] && return
  if [[ $WINEPREFIX != "$first" ]]; then
    rm -rf "$WINEPREFIX" "$WINEPREFIX.part" && cp -a --reflink=auto "$first" "$WINEPREFIX.part" &&
      mv "$WINEPREFIX.part" "$WINEPREFIX"
    return
  fi
  timeout 180 wine wineboot --init &&
    set_key 'HKCU\Software\Wine\Explorer' Desktop Default &&
    set_key 'HKCU\Software\Wine\Explorer\Desktops' Default "$screen" &&
    # A program that breaks ends, and shows no dialog that nobody answers.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
    wineserver -w &&
    touch "$WINEPREFIX/.made"
}

# A program that never ends: as long as it is there, so are the system's own programs, which a test would wait for.
keep_running() {
  local fifo
  fifo=$(mktemp -u) && mkfifo "$fifo" && exec {silence}<>"$fifo" && rm -f "$fifo"
  wine cmd <&"$silence" 9>&- >/dev/null 2>&1 &
}

# Makes the Windows of the prefix ready, and adds it to those that free-wine.sh finds.
open_windows() {
  export WINEPREFIX=$1
  local log library
  start_screen || { echo "Xvfb does not start" >&2; return 1; }
  log=$(make_prefix 2>&1 9>&-) || { printf '%s\n' "$log" "Wine cannot make $WINEPREFIX" >&2; return 1; }
  TABULON_FREE_WINE+="$DISPLAY $WINEPREFIX"$'\n'
  # Kept for all programs that the command runs, instead of one for each.
  [[ -z $own ]] || { wineserver -p 9>&- && keep_running; }
  for library in "${libraries[@]}"; do
    [[ ! -e $library ]] || timeout 60 wine regsvr32 /s "$library" 9>&- ||
      { echo "${library##*/} cannot be registered" >&2; return 1; }
  done
}

# One command at a time: the end of one is the end of all its programs. Those do not inherit the lock, which some of them
# would keep.
mkdir -p "$first"
exec 9>"$first/.lock"
flock 9

export TABULON_FREE_WINE=
for prefix in "${prefixes[@]}"; do open_windows "$prefix" || exit; done
"$@" 9>&-
