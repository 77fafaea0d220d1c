#!/usr/bin/env bash
# A licence file dragged with the mouse from another program's window onto the licence dialog is installed,
# and the source file stays. A file that cannot be read or copied is not accepted.
#
#   license_drop.sh PROGRAM DRAG_SOURCE STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 drag_source=$2 stand_ins=$3
licenses="$WINEPREFIX/drive_c/Program Files/MVTec/HALCON-13.0/license"
files=$WINEPREFIX/drive_c/Mail

echo "product 13.0 'C:\\Program Files\\MVTec\\HALCON-13.0' x64" >"$TEST_DIRECTORY/table"
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"
mkdir -p "$files/directory"
printf 'license 1\r\nbinary: \x81\xff\r\n' >"$files/license & more.dat"
printf 'license 2\r\n' >"$files/second.dat"

# Opens the licence dialog and sets field_x and field_y to the middle of the field that accepts drops.
open_dialog() {
  # The arrow on the button is the rightmost blue.
  local button
  button=$(pixels_of '#2A72B5' | awk '$1 > 1470 { x += $1; y += $2; ++n } END { if (n) printf "%d %d", x / n, y / n }')
  [ -n "$button" ] || give_up "there is no licence button"
  # shellcheck disable=SC2086
  click $button
  wait_for_window 'Install HALCON license' || give_up "the licence dialog did not show"
  wait_until_still
  read -r field_x field_y < <(find_colour '#DDFFDD')
  [ -n "${field_y-}" ] || give_up "there is no field to drop on"
}

# drag [--move-only] FILE...: drags the files onto the field, in small steps as a user does.
drag() {
  local source
  wine "$drag_source" "$@" &
  source=$!
  wait_for_window 'Drag source' || give_up "there is nothing to drag from"
  wait_until_still
  xdotool mousemove 60 80 sleep 0.2 mousedown 1 sleep 0.2 mousemove 70 90 sleep 0.2 mousemove 100 110 sleep 0.2 \
    mousemove $((field_x - 40)) $((field_y - 20)) sleep 0.3 mousemove "$field_x" "$field_y" sleep 0.3 \
    mousemove $((field_x + 2)) "$field_y" sleep 0.3 mouseup 1
  wait_until_still
  wmctrl -c 'Drag source'
  wait_for_end "$source"
}

# Clicks the dialog's OK, which is below the field.
accept_dialog() {
  click $((field_x + 69)) $((field_y + 86))
  wait_until_gone 'Install HALCON license'
}

start_program "$program"

open_dialog
drag 'C:\Mail\directory'
accept_dialog
expect "after a directory" "$(ls "$licenses")" ''

open_dialog
drag --move-only 'C:\Mail\second.dat'
accept_dialog
expect "after a file that is only to be moved" "$(ls "$licenses")" ''
expect "the file" "$(cat "$files/second.dat")" $'license 2\r'

open_dialog
drag 'C:\Mail\license & more.dat' 'C:\Mail\second.dat'
accept_dialog
answer 'Install license' Return
expect "after two files" "$(ls "$licenses")" 'license & more.dat'
cmp "$files/license & more.dat" "$licenses/license & more.dat" || give_up "the file is not the same or not where it was"

open_dialog
drag 'C:\Mail\second.dat'
rm "$files/second.dat"
accept_dialog
answer 'Install license' Return
expect "after a file that vanished" "$(cat "$licenses/second.dat")" $'license 2\r'

end_program
conclude
