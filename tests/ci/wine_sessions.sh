#!/usr/bin/env bash
# Test programs share a session of Wine: it runs on for the next one, which finds files of its own, and ends
# when a program fails or leaves a process behind. Writing to their common registry is found out. Run by
# run-under-wine.
#
#   wine_sessions.sh PROGRAM.exe
set -euo pipefail

support=$(cd "$(dirname "${BASH_SOURCE[0]}")/../support" && pwd)
program=$1
unset TEST_RESULTS
export TEST_SESSIONS=$TEST_DIRECTORY/sessions
session=$TEST_SESSIONS/1
export TMPDIR=$TEST_DIRECTORY/temporary
mkdir "$TMPDIR"
trap '"$support/end-wine-sessions" "$TEST_SESSIONS"' EXIT

fail() { echo "FAIL: $*"; exit 1; }
display() { cat "$session/display" 2>/dev/null || echo none; }
run() { "$support/run-under-wine" "$@" >"$TEST_DIRECTORY/output" 2>&1; }

run "$program" || { cat "$TEST_DIRECTORY/output"; fail "the program does not pass in a new session"; }
first=$(display)
[ "$first" != none ] || fail "the session has ended with the program"
prefix=$session/prefix/drive_c
touch "$prefix/stale" "$session/home/stale"
run "$program" || { cat "$TEST_DIRECTORY/output"; fail "the program does not pass in a used session"; }
[ "$(display)" = "$first" ] || fail "the session was not used again"
[ ! -e "$prefix/stale" ] && [ ! -e "$session/home/stale" ] || fail "files stay in a session"
[ -d "$prefix/users" ] && [ -d "$prefix/windows/temp" ] || fail "files of Windows are missing"

# Two at a time need two sessions.
run "$program" &
run "$program"
wait $! || fail "two programs cannot run at a time"
[ -e "$TEST_SESSIONS/2/display" ] || fail "two programs ran in one session"

run "$program" -no-such-option && fail "a program passes whose arguments are wrong"
[ "$(display)" = none ] || fail "the session has survived a program that failed"
run "$prefix/windows/system32/cmd.exe" /c 'start /b ping -n 300 127.0.0.1' || fail "no process was left behind"
[ "$(display)" = none ] || fail "the session has survived a program that left a process"
run "$program" || fail "the program does not pass in a third session"
displays=("$(cut -d' ' -f1 "$session/display")" "$(cut -d' ' -f1 "$TEST_SESSIONS/2/display")")
"$support/end-wine-sessions" "$TEST_SESSIONS"
[ ! -e "$TEST_SESSIONS" ] || fail "the files of the sessions are still there"
for display in "${displays[@]}"; do
  timeout 20 tail --pid="$display" -f /dev/null || fail "an X server still runs"
done

run "$program" || fail "the program does not pass in a session after the end"
WINEPREFIX=$session/prefix TMPDIR=$session/prefix/tmp wine reg add 'HKCU\Software\A maker' /v Stray /d text /f >/dev/null
! "$support/end-wine-sessions" "$TEST_SESSIONS" 2>"$TEST_DIRECTORY/written" || fail "a stray value is not found"
expected='end-wine-sessions: tests wrote to the registry that they share:
[Software\\A maker] "Stray"="text"'
[ "$(<"$TEST_DIRECTORY/written")" = "$expected" ] || { cat "$TEST_DIRECTORY/written"; fail "another message"; }
[ -z "$(ls -A "$TMPDIR")" ] || fail "temporary files are left: $(ls -A "$TMPDIR")"
