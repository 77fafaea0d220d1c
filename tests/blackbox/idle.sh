#!/usr/bin/env bash
# A program that is only looked at does nothing: its window's thread does not wake up, neither after the
# start nor after lists and dialogs have been open. Of the other threads one may: Qt's for the shell's icons
# looks every second whether it is wanted.
#
#   idle.sh PROGRAM STAND_INS
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2
observed=5 # seconds

"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$tools/demo-machine/demo.table" || give_up "no demo machine"

# How often each thread has gone to sleep of its own accord: lines "THREAD COUNT".
sleeps() {
  awk '/^voluntary_ctxt_switches/ { split(FILENAME, part, "/"); print part[5], $2 }' \
    "/proc/$program_process"/task/*/status | sort
}

# Whether only what may wake up does so for some seconds. Qt's caches tidy themselves up a few times, 10 and
# 30 seconds after they have been used, and fonts every 5 minutes; so that is waited for.
is_idle() {
  local before
  before=$(sleeps)
  sleep $observed
  woken=$(comm -13 <(echo "$before") <(sleeps) | cut -d' ' -f1)
  ! grep -qx "$program_process" <<<"$woken" && [ "$(wc -w <<<"$woken")" -le 1 ]
}

# expect_idle WHEN
expect_idle() {
  eventually is_idle || give_up "$1: these threads of process $program_process wake up:" $woken
}

start_program "$program"
tr '\0' '\n' <"/proc/$program_process/cmdline" | grep -q 'corvanta\.exe$' || give_up "which process is the program?"
# Wine itself looks several times a second where the mouse is while that is above a window.
wmctrl -r "$main_window" -b remove,maximized_vert,maximized_horz
wmctrl -r "$main_window" -e 0,10,10,1100,800
xdotool mousemove 1590 1190
wait_until_still
expect_idle "after the start"

for key in F4 F12; do
  xdotool key $key
  wait_until_still
  xdotool key Escape
done
wait_until_still
expect "windows in the end" "$(visible_titles)" "$main_window"
expect_idle "after a list and a dialog"
end_program
conclude
