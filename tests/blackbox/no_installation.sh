#!/usr/bin/env bash
# Without an installation the program shows one dialog and never its window, checks for no updates, and ends
# with exit code 1, however the dialog is closed.
#
#   no_installation.sh PROGRAM ok|escape|close
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 way=$2
title='Corvanta for HALCON'

mkdir "$TEST_DIRECTORY/web"
serve "$TEST_DIRECTORY/web"
for option in updateCheckHalcon updateCheckCorvanta; do
  wine reg add 'HKCU\Software\Quorvik Solutions\Corvanta for HALCON' /v $option /d true /f >/dev/null
done

wine "$program" &
pid=$!
wait_for_window "$title" || give_up "the error dialog did not show"
wait_until_still
expect "windows while the dialog is open" "$(visible_titles)" "$title"

window=$(xdotool search --onlyvisible --name "^$title\$")
case $way in
  ok)
    # The button is at the lower right of the dialog.
    read -r x y width height < <(xwininfo -id "$window" | awk '
      /Absolute upper-left X/ { x = $NF }
      /Absolute upper-left Y/ { y = $NF }
      /Width:/ { width = $NF }
      /Height:/ { print x, y, width, $NF }')
    click $((x + width - 50)) $((y + height - 26))
    ;;
  escape) xdotool windowfocus --sync "$window" key Escape ;;
  close) wmctrl -c "$title" ;;
  *) give_up "unknown way $way" ;;
esac

deadline=$((SECONDS + 60))
while [ $SECONDS -lt $deadline ]; do
  kill -0 $pid 2>/dev/null || break
  titles=$(visible_titles)
  case $titles in '' | "$title") ;; *) expect "windows after the dialog" "$titles" '' ;; esac
  sleep 0.1
done
kill -0 $pid 2>/dev/null && give_up "the program did not end"
wait $pid
expect "exit code" $? 1
expect "requests" "$(cat "$requests")" ''
conclude
