#!/usr/bin/env bash
# Compares what the shared library, of either system, exports with the list checked in.
# usage: simbolos.sh LIBRARY LIST [--renova]
set -euo pipefail

nomes() {
  case $1 in
    *.dll)
      x86_64-w64-mingw32-objdump -p "$1" |
        awk '/^\[Ordinal\/Name Pointer\]/ { dentro = 1; next } !NF { dentro = 0 } dentro { print $NF }' |
        c++filt
      ;;
    *) nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //' ;;
  esac
}

lista() {
  printf '# What the shared library exports; renewed by ./dev symbols.\n'
  nomes "$1" | LC_ALL=C sort -u
}

if [[ ${3:-} == --renova ]]; then
  lista "$1" >"$2"
elif ! diff -U0 --label 'checked in' --label exported "$2" <(lista "$1"); then
  echo "The exports changed. If they are meant to: ./dev symbols, and a line in CHANGELOG.md;"
  echo "if not: what must stay inside is not to carry KX_API (platform/Exporta.h)."
  exit 1
fi
