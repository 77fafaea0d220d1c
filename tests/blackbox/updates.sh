#!/usr/bin/env bash
# The update checks through the system's proxy: none before the user has enabled them, a red line on the card
# and a dialog as soon as the boxes are ticked, both again at the next start, and no wait for a silent server.
#
#   updates.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2
# shellcheck disable=SC2154
list="GET ${home_page}halcon-versions.json HTTP/1.1"
own="GET ${home_page}corvanta-for-halcon-version.json HTTP/1.1"

cat >"$TEST_DIRECTORY/table" <<'TABLE'
product 13.0 'C:\Program Files\MVTec\HALCON-13.0' x64
product 20.11-Progress 'C:\Program Files\MVTec\HALCON-20.11-Progress' x64 revision=1
TABLE
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"
mkdir "$TEST_DIRECTORY/web"
cat >"$TEST_DIRECTORY/web/halcon-versions.json" <<'JSON'
{"halcon": [{"version": "13.0", "revision": "0", "build": "0", "edition": "steady"},
            {"version": "20.11", "revision": "9", "build": "0", "edition": "steady"},
            {"version": "20.11", "revision": "2", "build": "0", "edition": "progress"}]}
JSON
cat >"$TEST_DIRECTORY/web/corvanta-for-halcon-version.json" <<'JSON'
{"corvanta-for-halcon": {"major": "9999", "minor": "0"}, "updateMessage": "News"}
JSON

# The requests since the last call, sorted.
requested() {
  sort "$requests"
  : >"$requests"
}

# Waits until this many requests have been made.
wait_for_requests() {
  eventually has_requested "$1" || give_up "the program made fewer than $1 requests"
}

has_requested() {
  [ "$(grep -c '^GET' "$requests")" -ge "$1" ]
}

# How many pixels of the details are red on the upper and on the lower card. The details are right of the
# badges of the large version numbers; the cards are at the top of the window.
red_pixels() {
  pixels_of '#FF0000' | awk '$1 > 280 && $1 < 600 { $2 < 187 ? ++above : ++below } END { print above + 0, below + 0 }'
}

# Waits until the lower card announces an update, which the upper one must not.
wait_for_update_line() {
  local above below
  eventually is_lower_card_red || give_up "no card tells of an update"
  expect "$1: red pixels on the card that is up to date" "$above" 0
}

is_lower_card_red() {
  read -r above below < <(red_pixels)
  [ "$below" -ge 200 ]
}

# The options stored in the registry.
stored_options() {
  wine reg query 'HKCU\Software\Quorvik Solutions\Corvanta for HALCON' 2>/dev/null |
    tr -d '\r' | sed -nE 's/^ *(update[A-Za-z]+) +REG_SZ *(.*)$/\1=\2/p' | sort
}

news='Update available for Corvanta for HALCON'

serve "$TEST_DIRECTORY/web"
start_program "$program"
expect "requests of a first start" "$(requested)" ''
expect "red pixels at first" "$(red_pixels)" '0 0'
expect "options at first" "$(stored_options)" ''

# The boxes are in a row above the footer.
footer_top=$(pixels_of '#ABD3F9' | head -n 1 | cut -d' ' -f2)
[ -n "$footer_top" ] || give_up "there is no footer"
click 17 $((footer_top - 25))
wait_for_update_line "box ticked"
expect "requests for HALCON" "$(requested | grep GET)" "$list"
expect "options after the first box" "$(stored_options)" 'updateCheckHalcon=true'

xdotool key Tab key space
wait_for_window "$news" || give_up "no dialog tells of the news"
expect "requests for the program" "$(requested | grep GET)" "$own"
expect "options after the second box" "$(stored_options)" $'updateCheckCorvanta=true\nupdateCheckHalcon=true'
close_window "$news"
end_program

: >"$requests"
wine "$program" &
program_process=$!
close_window "$news"
wait_until_still
wait_for_update_line "next start"
expect "requests of the next start" "$(requested | grep GET)" "$own"$'\n'"$list"
end_program

serve --silent "$TEST_DIRECTORY/web"
start_program "$program"
wait_for_requests 2
expect "red pixels without an answer" "$(red_pixels)" '0 0'
end_program

conclude
