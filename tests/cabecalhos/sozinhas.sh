#!/usr/bin/env bash
# Each file must fail to compile alone, and an #error, its own or that of the head of all tables,
# must be the first that is said.
# usage: sozinhas.sh COMPILER FILE...
set -euo pipefail

compilador=$1
shift
(($#)) || exit 1
falhas=0
for arquivo in "$@"; do
  erro=$("$compilador" -std=c++20 -x c++ -fsyntax-only -I. "$arquivo" 2>&1 |
    grep -m1 'error:' || true)
  IFS=: read -r onde linha _ <<<"$erro"
  if [[ $onde != @("$arquivo"|*core/tabela/Linhas.h) ]] ||
    ! sed -n "${linha}p" "$onde" | grep -q '^#error'; then
    printf '%s: no #error at its head, but: %s\n' "$arquivo" "${erro:-it compiles}"
    falhas=1
  fi
done
exit "$falhas"
