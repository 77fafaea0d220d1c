#!/usr/bin/env bash
# Runs a program that prints figures.
#
#   program.sh BENCH
set -uo pipefail
wine "$1" 2>/dev/null | tr -d '\r'
exit "${PIPESTATUS[0]}"
