#!/usr/bin/env bash
# Uses the program at random on a machine of its own, on which nothing can be started but stand-ins.
#
#   soak.sh SOAK STAND_IN PROGRAMS ACTIONS SEED
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tools=$here/../../tools
source "$tools/wine/display"
source "$tools/demo-machine/web-server"

web_server=
soak=$1 stand_in=$2 programs=$3 actions=$4 seed=$5
program_dir="$WINEPREFIX/drive_c/Program Files/Corvanta for HALCON"

# The Windows path of a file of this machine.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

stand_ins=$TEST_DIRECTORY/stand-ins
mkdir "$stand_ins"
for name in hdevelop hdevelopxl devenv; do
  cp "$stand_in" "$stand_ins/$name.exe"
done
cp "$programs/demo/vswhere.exe" "$programs/demo/com_library.dll" "$stand_ins/"
"$tools/demo-machine/make" "$WINEPREFIX" "$stand_ins" "$here/machine.table"
cp "$programs"/{corvanta,qz_com_helper,huebox}.exe "$program_dir/"

mkdir "$TEST_DIRECTORY/soak"
: >"$TEST_DIRECTORY/soak/starts"
# The same as in the table: root, root of the examples, architecture.
printf '%s\t%s\t%s\n' >"$TEST_DIRECTORY/soak/installations" \
  'C:\Program Files (x86)\MVTec\HALCON-11.0' 'C:\Program Files (x86)\MVTec\HALCON-11.0' x86-win32 \
  'C:\Program Files\MVTec\HALCON-12.0' 'C:\Users\Public\Documents\MVTec\HALCON-12.0' x86sse2-win32 \
  'C:\Program Files\MVTec\HALCON-12.0' 'C:\Users\Public\Documents\MVTec\HALCON-12.0' x64-win64 \
  'C:\Program Files\MVTec\HALCON-13.0' 'C:\Program Files\MVTec\HALCON-13.0' x64-win64 \
  'C:\Program Files\MVTec\HALCON-18.11-Progress' 'C:\Users\Public\Documents\MVTec\HALCON-18.11-Progress Übungen' x64-win64 \
  'C:\Program Files\MVTec\HALCON-20.11-Progress' 'C:\Program Files\MVTec\HALCON-20.11-Progress' x64-win64
printf '%s\n' >"$TEST_DIRECTORY/soak/licenses" \
  'C:\Mail\license_1.dat' 'C:\Mail\license & more.dat' 'C:\Download\license_1.dat'

start_web_server "$(dirname "$programs")/demo-web"
trap 'kill "$web_server" 2>/dev/null' EXIT

SOAK_STARTS=$(windows_path "$TEST_DIRECTORY/soak/starts")
SOAK_HOME=$(windows_path "$HOME")
export SOAK_STARTS SOAK_HOME SOAK_SHELL='C:\Viewer\viewer.exe'

wine "$soak" 'C:\Program Files\Corvanta for HALCON\corvanta.exe' "$actions" "$seed" \
  "$(windows_path "$TEST_DIRECTORY/soak")" | sed -u 's/\r$//'
