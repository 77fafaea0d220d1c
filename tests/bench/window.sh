#!/usr/bin/env bash
# Prints how long the program's window takes to show and how much memory it needs then, with this many cards,
# against an empty window.
#
#   window.sh BENCH STAND_INS CARDS
set -euo pipefail
tools=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../tools" && pwd)
bench=$1 stand_ins=$2 cards=$3
rounds=15

for ((number = 1; number <= cards; number++)); do
  echo "product 20.$number 'C:\\Program Files\\MVTec\\HALCON-20.$number' x64"
done >"$TEST_DIRECTORY/table"
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table"

show() { wine "$bench" "$1" 2>/dev/null; }

# Wine starts its services with the first program and keeps them for the others.
wineserver -p
show bare >/dev/null
show program >/dev/null
for ((round = 1; round <= rounds; round++)); do
  # In one line: time and memory of the empty window, then of the program's.
  empty=$(show bare)
  full=$(show program)
  printf '%s\t%s\n' "$empty" "$full"
done | tr -d '\r' >"$TEST_DIRECTORY/rounds"
[ "$(awk 'NF == 4' "$TEST_DIRECTORY/rounds" | wc -l)" -eq $rounds ] || { echo "a window did not show" >&2; exit 1; }

median() { cut -f "$1" "$TEST_DIRECTORY/rounds" | sort -n | sed -n "$((rounds / 2 + 1))p"; }
printf 'first paint [ms], %d cards\t%s\t%s\n' "$cards" "$(median 1)" "$(median 3)"
printf 'memory [MB], %d cards\t%s\t%s\n' "$cards" "$(median 2)" "$(median 4)"
