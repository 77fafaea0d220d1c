#!/usr/bin/env bash
# A double click on a Visual Studio of a card opens a shell in which that version's HDevelop can be started by
# name.
#
#   shell.sh PROGRAM COLOUR_TOOL STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 colour_tool=$2 stand_ins=$3

cat >"$TEST_DIRECTORY/table" <<'TABLE'
product 13.0 'C:\Program Files\MVTec\HALCON-13.0' x64
this_program
visual_studio_installer 'Visual Studio Community 2022' 17.4.33205.214 \
  'C:\Program Files\Microsoft Visual Studio\2022\Community' amd64
TABLE
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"
program_dir="$WINEPREFIX/drive_c/Program Files/Corvanta for HALCON"
cp "$program" "$colour_tool" "$program_dir/"

start_program "$program_dir/corvanta.exe"
# The list, right of the HDevelop buttons, has the colour of the card under a red tint.
list=$(find_colour '#D197CC' "$(find_colour '#E0218A' | cut -d' ' -f1)")
[ -n "$list" ] || give_up "there is no list of Visual Studio versions"
read -r x y <<<"$list"
# The one row is at the top of the list.
xdotool mousemove "$x" $((y - 17)) sleep 0.2 click --repeat 2 --delay 60 1
# For the interpreter the space before the next command is part of the title.
wait_for_window 'HALCON 13.0.0 (x64-win64) ' || give_up "the double click opened no shell"
wait_until_still
xdotool type --delay 60 'hdevelop.exe'
xdotool key Return

wait_for_record "typing hdevelop.exe"

root='C:\Program Files\MVTec\HALCON-13.0'
expect "executable" "$(received executable)" "$root\\bin\\x64-win64\\hdevelop.exe"
expect "HALCONROOT" "$(received HALCONROOT)" "$root"
expect "build environment" "$(received DEMO_MACHINE_BUILD_ENVIRONMENT)" 'Visual Studio Community 2022 amd64'
conclude
