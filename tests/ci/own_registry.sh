#!/usr/bin/env bash
# With CORVANTA_TEST_REGISTRY set a test program passes as well, and changes only the key in the registry that
# the variable names: so it cannot change a shared Windows. Run by run-under-wine.
#
#   own_registry.sh PROGRAM.exe
set -euo pipefail

program=$1
export CORVANTA_TEST_REGISTRY='Software\Corvanta tests\a test'

# What programs write in both hives, each value with its key. Excludes Wine's own settings and devices, which
# Wine writes at some time after a program has started.
registry() {
  local key
  for key in 'HKLM\Software' HKCU; do
    timeout 100 wine reg export "$key" 'C:\export.reg' /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$WINEPREFIX/drive_c/export.reg" | tr -d '\r' |
      awk '/^\[/ { key = $0; wine = /^\[HKEY_CURRENT_USER\\Software\\Wine[\\\]]/ } !wine { print (/^\[/ ? "" : key) $0 }'
  done
}

registry >"$TEST_DIRECTORY/before"
# Leftovers of an earlier run are removed.
wine reg add "HKCU\\$CORVANTA_TEST_REGISTRY\\stale" /f >/dev/null
timeout 100 wine "$program" -o "Z:${TEST_DIRECTORY//\//\\}\\log.txt,txt" ||
  { cat "$TEST_DIRECTORY/log.txt"; echo "FAIL: the test program does not pass"; exit 1; }
registry >"$TEST_DIRECTORY/after"

[ "$(wc -l <"$TEST_DIRECTORY/before")" -gt 1000 ] || { echo "FAIL: the export is too short"; exit 1; }
changes=$(diff "$TEST_DIRECTORY/before" "$TEST_DIRECTORY/after" | grep '^[<>] .') || true
own='> [HKEY_CURRENT_USER\Software\Corvanta tests\a test\'
for expected in 'HKEY_LOCAL_MACHINE\' 'HKEY_CURRENT_USER\'; do
  grep -qF "$own$expected" <<<"$changes" || { echo "FAIL: nothing was written to its own $expected"; exit 1; }
done
foreign=$(grep -vF -e "$own" -e '> [HKEY_CURRENT_USER\Software\Corvanta tests' <<<"$changes") || true
[ -z "$foreign" ] || { printf 'FAIL: other keys changed:\n%s\n' "$foreign"; exit 1; }
! grep -qF 'a test\stale' <<<"$changes" || { echo "FAIL: a key of a run before is still there"; exit 1; }
