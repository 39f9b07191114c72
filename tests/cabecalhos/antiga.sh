#!/usr/bin/env bash
# A compiler in an older mode says in one line that the headers are C++20.
# usage: antiga.sh COMPILER HEADER...
set -euo pipefail

compilador=$1
shift
falhas=0
for cabecalho in "$@"; do
  erros=$("$compilador" -std=c++17 -x c++ -fsyntax-only -I. "$cabecalho" 2>&1 | grep 'error:' || true)
  [[ -z $erros || ($(wc -l <<<"$erros") == 1 && $erros == *C++20*) ]] && continue
  printf '%s: %s\n' "$cabecalho" "$erros"
  falhas=1
done
exit "$falhas"
