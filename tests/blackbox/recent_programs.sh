#!/usr/bin/env bash
# F4 shows the programs that HDevelop opened last, typing marks what matches in red, Escape hides the list,
# and F4 shows it again.
#
#   recent_programs.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2

cat >"$TEST_DIRECTORY/table" <<'TABLE'
product 13.0 'C:\Program Files\MVTec\HALCON-13.0' x64
recent_programs 'C:\Bottles & caps\caps.hdev' 'D:\Wafer\Übersicht, neu.hdev' 'D:\Wafer\overview.hdev'
TABLE
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

# The rows with marks in the list in the middle of the screen; 0 is the topmost.
marked_rows() {
  pixels_of '#FF0000' | awk '$1 > 600 && $1 < 1000 { print int(($2 - 590) / 20) }' | uniq | xargs
}

# Presses keys in the window and waits until it shows the result.
press() {
  xdotool key "$@"
  wait_until_still
}

start_program "$program"
expect "marks without the list" "$(marked_rows)" ''
press F4
expect "marks without a search" "$(marked_rows)" ''

xdotool type wafer
wait_until_still
expect "marks of a search that two rows match" "$(marked_rows)" '0 1'
press BackSpace BackSpace BackSpace BackSpace BackSpace
xdotool type '& CAPS'
wait_until_still
expect "marks of a search that one row matches" "$(marked_rows)" '0'
press Escape
expect "marks after Escape" "$(marked_rows)" ''
press F4
expect "marks of the same list again" "$(marked_rows)" '0'
end_program
conclude
