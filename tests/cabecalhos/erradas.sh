#!/usr/bin/env bash
# A table with one wrong row does not compile, and the first error is said at that row.
# usage: erradas.sh COMPILER
set -euo pipefail

pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT
compilador=$1
falhas=0

# tabela ROW...: the table of a record of 24 bytes, its middle rows as given.
tabela() {
  {
    echo '#include "core/tabela/Linhas.h"'
    echo 'KX_INICIO (tagREG_PROVAPS, 24, "record")'
    echo 'KX_CAMPO  ( 0, CY,            Valor,  1, "value")'
    printf '%s\n' "$@"
    echo 'KX_RESERVA(21, 3, 0)'
    echo 'KX_FIM    (tagREG_PROVAPS)'
    echo '#include "core/tabela/Desfaz.h"'
  } >"$pasta/prova.def"
}

compila() {
  printf '#define KX_TABELA "%s/prova.def"\n#include "core/tabela/Registro.h"\n' "$pasta" |
    "$compilador" -std=c++20 -x c++ -fsyntax-only -I. - 2>&1
}

# errada WHAT LINE ROW...: the line of the row that must be named before a second error is.
errada() {
  local que=$1 linha=$2 primeiro
  shift 2
  tabela "$@"
  primeiro=$(compila | awk '/ error: / && ++erros == 2 { exit } { print }' || true)
  if [[ $primeiro != *"prova.def:$linha:"* ]]; then
    printf '%s: line %s is not named\n%s\n' "$que" "$linha" "$primeiro"
    falhas=1
  fi
}

readonly FILIAL='KX_CAMPO  ( 8, std::uint16_t, Filial, 1, "branch")'
readonly CODIGO='KX_TEXTO  (10, 10,            Codigo, 1, "code")'
readonly MARCA='KX_CAMPO  (20, std::uint8_t,  Marca,  0, "flag")'
tabela "$FILIAL" "$CODIGO" "$MARCA"
compila || falhas=1

errada 'wrong offset' 4 "${FILIAL/ 8,/ 9,}" "$CODIGO" "$MARCA"
errada 'wrong offset of the last field' 6 "$FILIAL" "$CODIGO" "${MARCA/20,/19,}"
errada 'text too wide' 5 "$FILIAL" "${CODIGO/10, /12, }" "$MARCA"
errada 'text too narrow' 5 "$FILIAL" "${CODIGO/10,   /9,   }" "$MARCA"
errada 'type too wide' 4 "${FILIAL/uint16_t/uint32_t}" "$CODIGO" "$MARCA"
errada 'type too narrow' 4 "${FILIAL/uint16_t/uint8_t}" "$CODIGO" "$MARCA"
errada 'duplicate name' 6 "$FILIAL" "$CODIGO" "${MARCA/Marca/Filial}"
errada 'unknown type' 4 "${FILIAL/uint16_t/uint17_t}" "$CODIGO" "$MARCA"
errada 'type that no field has' 4 "${FILIAL/std::uint16_t/std::int16_t}" "$CODIGO" "$MARCA"
errada 'unknown kind of row' 4 "${FILIAL/CAMPO/CANPO}" "$CODIGO" "$MARCA"
errada 'missing column' 5 "$FILIAL" "${CODIGO/ 1,/}" "$MARCA"
errada 'compared, neither 0 nor 1' 5 "$FILIAL" "${CODIGO/ 1,/ 2,}" "$MARCA"
errada 'part elsewhere' 5 "$FILIAL" 'KX_PARTE  ( 9, std::int16_t, X, Filial, 1, "part")' "$CODIGO" "$MARCA"
errada 'part of another width' 5 "$FILIAL" 'KX_PARTE  ( 8, std::int32_t, X, Filial, 1, "part")' "$CODIGO" "$MARCA"
exit "$falhas"
