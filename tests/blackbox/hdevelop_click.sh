#!/usr/bin/env bash
# A click on a card's HDevelop button starts that version's executable with that version's environment.
#
#   hdevelop_click.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2
record=$TEST_DIRECTORY/record.txt

cat >"$TEST_DIRECTORY/table" <<'TABLE'
product 13.0 'C:\Program Files\MVTec\HALCON-13.0 (a & b)' x64 examples='C:\Users\Public\Documents\Übungen 13.0'
TABLE
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

CORVANTA_STANDIN_RECORD="Z:${record//\//\\}" wine "$program" &
wait_for_window 'Quorvik Solutions - Corvanta for HALCON 1.8' || give_up "the program's window did not show"
wait_until_still
button=$(find_colour '#E0218A')
[ -n "$button" ] || give_up "there is no HDevelop button with the stand-in's icon"
# shellcheck disable=SC2086
click $button

for _ in $(seq 100); do
  [ ! -e "$record" ] || break
  sleep 0.1
done
[ -e "$record" ] || give_up "the click started nothing"

received() { sed -n "s/^$1=//p" "$record" | tr -d '\r'; }
root='C:\Program Files\MVTec\HALCON-13.0 (a & b)'
examples='C:\Users\Public\Documents\Übungen 13.0'
expect "executable" "$(received executable)" "$root\\bin\\x64-win64\\hdevelop.exe"
expect "HALCONROOT" "$(received HALCONROOT)" "$root"
expect "HALCONARCH" "$(received HALCONARCH)" 'x64-win64'
expect "HALCONEXAMPLES" "$(received HALCONEXAMPLES)" "$examples\\examples"
expect "HALCONIMAGES" "$(received HALCONIMAGES)" "$examples\\examples\\images"
path=$(sed -n 's/^[Pp][Aa][Tt][Hh]=//p' "$record" | tr -d '\r')
expect "first directory of PATH" "${path%%;*}" "$root\\bin\\x64-win64"
expect "PATH entries of the installation" "$(tr ';' '\n' <<<"$path" | grep -cF "$root")" 1
conclude
