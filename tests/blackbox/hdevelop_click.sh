#!/usr/bin/env bash
# A click on a card's HDevelop button, HDevelop XL button or version number starts that version's executable
# with that version's environment. When its window is closed, the program ends with exit code 0.
#
#   hdevelop_click.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2
name='HALCON-13.0 (a & b)'
root="C:\\Program Files\\MVTec\\$name"
examples='C:\Users\Public\Documents\Übungen 13.0'

cat >"$TEST_DIRECTORY/table" <<TABLE
product 13.0 '$root' x64 examples='$examples'
TABLE
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

# click_starts WHAT X Y EXECUTABLE TITLE: clicks at a position, expects that to start EXECUTABLE for this
# installation, and closes its window TITLE.
click_starts() {
  local path
  rm -f "$record"
  click "$2" "$3"
  wait_for_record "the click on $1"
  expect "$1: executable" "$(received executable)" "$root\\bin\\x64-win64\\$4"
  expect "$1: HALCONROOT" "$(received HALCONROOT)" "$root"
  expect "$1: HALCONARCH" "$(received HALCONARCH)" 'x64-win64'
  expect "$1: HALCONEXAMPLES" "$(received HALCONEXAMPLES)" "$examples\\examples"
  expect "$1: HALCONIMAGES" "$(received HALCONIMAGES)" "$examples\\examples\\images"
  path=$(received '[Pp][Aa][Tt][Hh]')
  expect "$1: first directory of PATH" "${path%%;*}" "$root\\bin\\x64-win64"
  expect "$1: PATH entries of the installation" "$(tr ';' '\n' <<<"$path" | grep -cF "$root")" 1
  close_window "$5 (stand-in of the demo machine) - $name"
}

start_program "$program"
read -r x y < <(find_colour '#E0218A')
[ -n "${x-}" ] || give_up "there is no HDevelop button with the stand-in's icon"
click_starts 'HDevelop' "$x" "$y" hdevelop.exe 'HDevelop'
# The button below it has the same height, 52 pixels, and there is a small gap.
click_starts 'HDevelop XL' "$x" $((y + 56)) hdevelopxl.exe 'HDevelop XL'
# The version number has the colour of the card under a red tint; so has the list of Visual Studio versions
# further right.
read -r x y < <(find_colour '#D197CC' 0 "$x")
[ -n "${y-}" ] || give_up "there is no version number"
click_starts 'the version number' "$x" "$y" hdevelop.exe 'HDevelop'
end_program
conclude
