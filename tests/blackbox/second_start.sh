#!/usr/bin/env bash
# The program can be started again while it runs: each process has its own window and ends separately.
#
#   second_start.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2

# Waits until the program has this many windows.
expect_windows() {
  local count
  eventually are_windows "$1" || give_up "there are $count windows of the program instead of $1"
}

are_windows() {
  count=$(xdotool search --onlyvisible --name "^$main_window\$" | wc -l)
  [ "$count" -eq "$1" ]
}

echo "product 13.0 'C:\\Program Files\\MVTec\\HALCON-13.0' x64" >"$TEST_DIRECTORY/table"
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

start_program "$program"
first=$program_process
wine "$program" &
second=$!
expect_windows 2
wait_until_still
expect_windows 2

wmctrl -c "$main_window"
expect_windows 1
wmctrl -c "$main_window"
for process in "$first" "$second"; do
  wait_for_end "$process"
  expect "exit code" "$exit_code" 0
done
conclude
