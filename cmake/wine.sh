#!/usr/bin/env bash
# Runs a program of Windows: quietly, with a time limit, with its own settings under build/, and
# without the debugger that would wait for somebody when it crashes.
# usage: wine.sh PROGRAM [ARGUMENT...]
set -euo pipefail
raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export WINEPREFIX=${WINEPREFIX:-$raiz/build/wine}
export WINEDEBUG=-all WINEDLLOVERRIDES='winedbg.exe=d;mscoree=d;mshtml=d'
export LC_ALL=C.UTF-8
unset DISPLAY
# A server that outlives each program: one that was just ending would take the next one with it.
wineserver --persistent=60 >/dev/null 2>&1 || true
exec timeout --kill-after=5 "${KX_LIMITE_WINE:-120}" wine "$@"
