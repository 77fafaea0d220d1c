#!/usr/bin/env bash
# With CORVANTA_TEST_REGISTRY set a test program passes, too, and changes nothing of the registry but the key that the
# variable names; that is what keeps it from changing a Windows that others use. Run by run-under-wine.
#
#   own_registry.sh PROGRAM.exe
set -euo pipefail

program=$1
export CORVANTA_TEST_REGISTRY='Software\Corvanta tests\a test'

# What programs write of both hives, each value behind its key. Wine's own settings, and the machine's devices, Wine
# enters when a program has started, and in its own time.
registry() {
  local key
  for key in 'HKLM\Software' HKCU; do
    timeout 100 wine reg export "$key" 'C:\export.reg' /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$WINEPREFIX/drive_c/export.reg" | tr -d '\r' |
      awk '/^\[/ { key = $0; wine = /^\[HKEY_CURRENT_USER\\Software\\Wine[\\\]]/ } !wine { print (/^\[/ ? "" : key) $0 }'
  done
}

registry >"$TEST_DIRECTORY/before"
# What lies there from a run before does not stay.
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
