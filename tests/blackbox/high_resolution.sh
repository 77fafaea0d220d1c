#!/usr/bin/env bash
# On a screen set to 125, 150 or 200 % the window's content is scaled by exactly that.
#
#   high_resolution.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2

# By how many pixels the HDevelop XL icon is below the HDevelop icon, found by their colour.
distance_of_icons() {
  pixels_of '#E0218A' | awk '
    !n++ { first = $2 }
    n > 1 && $2 > last + 1 { print $2 - first; exit }
    { last = $2 }'
}

echo "product 13.0 'C:\\Program Files\\MVTec\\HALCON-13.0' x64" >"$TEST_DIRECTORY/table"
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

start_program "$program"
distance=$(distance_of_icons)
[ -n "$distance" ] || give_up "there are no two buttons with the stand-in's icon"
end_program

# The icons' positions are rounded to whole pixels.
for scale in 125 150 200; do
  wineserver -w
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d $((96 * scale / 100)) /f >/dev/null
  wineserver -w
  start_program "$program"
  scaled=$(distance_of_icons)
  off=$((scaled * 100 - distance * scale))
  expect "whether the icons are $scaled pixels apart at $scale %, for $distance at 100 %" \
    "$([ ${off#-} -le 100 ] && echo yes)" yes
  end_program
done
conclude
