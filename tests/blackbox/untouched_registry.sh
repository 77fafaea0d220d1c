#!/usr/bin/env bash
# Searching changes nothing: a start and an end of the program leave the registry unchanged, except for the
# program's own settings, whether or not the machine has what is searched for.
#
#   untouched_registry.sh PROGRAM STAND_INS empty|filled
set -uo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/expectations"

program=$1 stand_ins=$2 machine=$3

# Different keys exist, and different keys are missing.
if [ "$machine" = filled ]; then
  cat >"$TEST_DIRECTORY/table" <<'TABLE'
product 12.0 'C:\Program Files\MVTec\HALCON-12.0' x86 sse2 view=32
product 20.11-Progress 'C:\Program Files\MVTec\HALCON-20.11-Progress' x64
uninstall 'MVTec HALCON 22.11 Steady' 'C:\Program Files\MVTec\HALCON-22.11' user
visual_studio 14.0 Professional 'C:\Program Files (x86)\Microsoft Visual Studio 14.0' amd64 x86
registry_key 'HKEY_LOCAL_MACHINE\Software\Microsoft\VisualStudio\14.0_Config'
registry_key 'HKEY_LOCAL_MACHINE\Software\Microsoft\VCExpress\10.0'
registry_key 'HKEY_LOCAL_MACHINE\Software\MVTec\HALCON\13.0'
TABLE
else
  : >"$TEST_DIRECTORY/table"
fi
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$TEST_DIRECTORY/table" || give_up "no demo machine"

show_first_window "$stand_ins/hdevelop.exe"

export_registry "$TEST_DIRECTORY/before"
if [ "$machine" = filled ]; then
  start_program "$program"
  end_program
else
  wine "$program" &
  program_process=$!
  answer 'Corvanta for HALCON' Return
  wait_for_end $program_process
  expect "exit code" "$exit_code" 1
fi
export_registry "$TEST_DIRECTORY/after"

for hive in HKLM HKCU; do
  expect "$hive" "$(diff "$TEST_DIRECTORY/before/$hive" "$TEST_DIRECTORY/after/$hive")" ''
done
conclude
