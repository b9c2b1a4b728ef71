#!/usr/bin/env bash
# tools/in-wine.sh <command> [<argument>...]: runs a command where it finds a Windows, and answers its exit code:
#
#   tools/in-wine.sh ctest --preset windows
#   tools/in-wine.sh wine cscript //nologo page.vbs
#
# The Windows is Wine's in build/wine (another folder: WINEPREFIX), made at the first use. It has a screen of its
# own, a desktop on it so that windows get the keyboard without a window manager, and Tabulon.ocx registered where
# it has been built.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
(($#)) || { echo "usage: tools/in-wine.sh <command> [<argument>...]" >&2; exit 2; }

# Of somebody's own Windows nothing is ended but what was started here.
[[ -z ${WINEPREFIX:-} ]] && own=1 || own=
export WINEPREFIX=${WINEPREFIX:-$root/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# What Wine would ask to download at the first use.
export WINEDLLOVERRIDES="mscoree=d;mshtml=d"

screen=1280x1024
ocx=$root/dist/activex/x64/Tabulon.ocx
xvfb=

end() {
  [[ -z $own ]] || wineserver -k 2>/dev/null
  [[ -z $xvfb ]] || { kill "$xvfb" && wait "$xvfb"; } 2>/dev/null
}
trap end EXIT
trap 'exit 130' INT TERM

# Xvfb says which display it has taken when it can be used.
start_screen() {
  local fifo
  fifo=$(mktemp -u) && mkfifo "$fifo" || return
  Xvfb -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp -noreset 3>"$fifo" 9>&- 2>/dev/null &
  xvfb=$!
  read -r -t 20 DISPLAY <"$fifo"
  rm -f "$fifo"
  [[ -n ${DISPLAY:-} ]] && export DISPLAY=:$DISPLAY
}

set_key() { wine reg add "$1" /v "$2" /d "$3" /f; }

make_prefix() {
  local made=$WINEPREFIX/.made
  [[ -e $made ]] && return
  timeout 180 wine wineboot --init &&
    set_key 'HKCU\Software\Wine\Explorer' Desktop Default &&
    set_key 'HKCU\Software\Wine\Explorer\Desktops' Default "$screen" &&
    # A program that breaks ends, and shows no dialog that nobody answers.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
    wineserver -w &&
    touch "$made"
}

# One at a time: there is one keyboard, and the end of one is the end of all its programs. Those do not inherit the
# lock, which some of them would keep.
mkdir -p "$WINEPREFIX"
exec 9>"$WINEPREFIX/.lock"
flock 9

start_screen || { echo "Xvfb does not start" >&2; exit 1; }
log=$(make_prefix 2>&1 9>&-) || { printf '%s\n' "$log" "Wine cannot make $WINEPREFIX" >&2; exit 1; }
# Kept for all programs that the command runs, instead of one for each.
[[ -z $own ]] || wineserver -p 9>&-
if [[ -e $ocx ]]; then
  timeout 60 wine regsvr32 /s "$ocx" 9>&- || { echo "Tabulon.ocx cannot be registered" >&2; exit 1; }
fi
"$@" 9>&-
