#!/usr/bin/env bash
# tools/free-wine.sh <program> [<argument>...]: runs it in that Windows of tools/in-wine.sh which is free, alone: nobody
# else has its screen, keyboard, clipboard or registry meanwhile. Waits until one is.
set -uo pipefail

while IFS=' ' read -r DISPLAY WINEPREFIX; do
  [[ -n $DISPLAY ]] && screens+=("$DISPLAY") prefixes+=("$WINEPREFIX")
done <<<"${TABULON_FREE_WINE:?to be run by tools/in-wine.sh}"
# All begin with another one, so that they do not all ask for the same.
for ((at = $$;; at++)); do
  turn=$((at % ${#prefixes[@]}))
  export DISPLAY=${screens[turn]} WINEPREFIX=${prefixes[turn]}
  exec 8>"$WINEPREFIX/.taken"
  flock -w 0.1 8 && break
done
wine "$@" 8>&-
