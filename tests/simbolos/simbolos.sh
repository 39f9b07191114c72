#!/usr/bin/env bash
# Compares what the shared library exports with the list checked in.
# usage: simbolos.sh LIBRARY LIST [--renova]
set -euo pipefail

lista() {
  printf '# What the shared library exports; renewed by ./dev symbols.\n'
  nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]+ . //' | LC_ALL=C sort -u
}

if [[ ${3:-} == --renova ]]; then
  lista "$1" >"$2"
elif ! diff -U0 --label 'checked in' --label exported "$2" <(lista "$1"); then
  echo "The exports changed. If they are meant to: ./dev symbols, and a line in CHANGELOG.md;"
  echo "if not: what must stay inside is not to carry KX_API (platform/Exporta.h)."
  exit 1
fi
