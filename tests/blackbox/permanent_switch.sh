#!/usr/bin/env bash
# The permanent switch with the real helper: on OK it sets the machine's variables to the card's version, on
# Cancel it changes nothing, and a helper that fails is reported.
#
#   permanent_switch.sh PROGRAM HELPER STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 helper=$2 stand_ins=$3
program_dir="$WINEPREFIX/drive_c/Program Files/Corvanta for HALCON"

# start_with TABLE-LINE: sets up a machine with this one installation and starts the program on it.
start_with() {
  wine reg delete 'HKLM\Software\MVTec' /f >/dev/null 2>&1
  printf 'this_program\n%s\n' "$1" >"$TEST_DIRECTORY/table"
  wineserver -w
  "$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"
  cp "$program" "$helper" "$program_dir/"
  start_program "$program_dir/corvanta.exe"
}

# The machine's variables in the registry.
machine_variables() {
  wine reg query 'HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\Environment' 2>/dev/null |
    tr -d '\r' | sed -nE 's/^ *(HALCON[A-Z]+) +REG_SZ *(.*)$/\1=\2/p' | sort
}

# The button with the pin, found by the blue of its monitor; buttons left and right of it have that as well.
click_permanent() {
  local button
  button=$(find_colour '#2A72B5' 1050 1340)
  [ -n "$button" ] || give_up "there is no Permanent button"
  # shellcheck disable=SC2086
  click $button
}

expect "variables before" "$(machine_variables)" ''

start_with "product 12.0 'C:\\Program Files\\MVTec\\HALCON-12.0' x64 examples='C:\\Examples 12.0'"
click_permanent
answer 'Perform permanent changes?' Return
answer 'Switched' Return
of_12='HALCONARCH=x64-win64
HALCONEXAMPLES=C:\Examples 12.0\examples
HALCONIMAGES=C:\Examples 12.0\examples\images
HALCONROOT=C:\Program Files\MVTec\HALCON-12.0'
expect "variables after a switch" "$(machine_variables)" "$of_12"
end_program

root_of_13='C:\Program Files\MVTec\HALCON-13.0 (a & b)'
start_with "product 13.0 '$root_of_13' x64 examples='C:\\Examples 13.0'"
click_permanent
answer 'Perform permanent changes?' Escape
answer 'Cancelled' Return
expect "variables after cancelling" "$(machine_variables)" "$of_12"

# A fake helper that ends with exit code 1.
cp "$program_dir/vswhere.exe" "$program_dir/qz_com_helper.exe"
rm "$program_dir/vswhere-report.txt"
click_permanent
answer 'Perform permanent changes?' Return
# The plan shown before the switch is repeated.
plan="changing environment variable HALCONROOT (scope: system) from
 C:\\Program Files\\MVTec\\HALCON-12.0 to
 $root_of_13 (scope: system)
changing environment variable HALCONARCH (scope: system) from
 x64-win64 to
 x64-win64 (scope: system)
changing environment variable HALCONIMAGES (scope: system) from
 C:\\Examples 12.0\\examples\\images to
 C:\\Examples 13.0\\examples\\images (scope: system)
changing environment variable HALCONEXAMPLES (scope: system) from
 C:\\Examples 12.0\\examples to
 C:\\Examples 13.0\\examples (scope: system)
executing helper process with elevated rights: C:\\Program Files\\Corvanta for HALCON\\qz_com_helper.exe"
plan+=" --env HALCONROOT=\"$root_of_13\" --env HALCONARCH=\"x64-win64\""
plan+=' --env HALCONIMAGES="C:\Examples 13.0\examples\images" --env HALCONEXAMPLES="C:\Examples 13.0\examples" --x64'
for library in halconx halconxxl hdevenginex hdevenginexxl; do
  plan+=" \"$root_of_13\\bin\\x64-win64\\$library.dll\""
done
broadcast='broadcast environment updated message (WM_SETTINGCHANGE)'
expect "the warning" "$(box_text Errors)" "There were errors when switching to HALCON 13.0.0 (x64-win64):
$plan
$broadcast
$plan
helper process returned with value 1. This indicates an error in the execution!
$broadcast"
answer 'Errors' Return
expect "variables after a failure" "$(machine_variables)" "$of_12"

cp "$helper" "$program_dir/"
click_permanent
answer 'Perform permanent changes?' Return
answer 'Switched' Return
expect "variables after another switch" "$(machine_variables)" 'HALCONARCH=x64-win64
HALCONEXAMPLES=C:\Examples 13.0\examples
HALCONIMAGES=C:\Examples 13.0\examples\images
HALCONROOT='"$root_of_13"
end_program
conclude
