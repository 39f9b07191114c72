#!/usr/bin/env bash
# Carries out what docs/novo_documento.md and the README say of adding a document and a field, in a
# copy of the tree, to the letter: the files are those of the page.
# usage: receitas.sh FOLDER
set -euo pipefail

fonte=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
mkdir -p "$1"
pasta=$(cd "$1" && pwd)
copia=$pasta/copia
instalada=$pasta/instalada

falha() {
  printf 'FAILED: %s\n' "$*" >&2
  exit 1
}

# quieto COMMAND...: its output only when it fails.
quieto() {
  "$@" >"$pasta/log" 2>&1 || {
    tail -n 100 "$pasta/log" >&2
    falha "$*"
  }
}

rm -rf "$copia" "$instalada"
mkdir -p "$copia"
(cd "$fonte" && git ls-files -z | xargs -0 cp --parents -t "$copia")
cd "$copia"

# The page's blocks: each belongs to the file named before it.
mkdir av
awk '
  match($0, /^`[A-Za-z_\/]+\.[a-z]+`,/) { file = substr($0, 2, RLENGTH - 3) }
  /^```/ { code = !code; next }
  code { print > file }
  /^    / && !code && file ~ /(leiautes\.txt|\.md)$/ { print substr($0, 5) > file }
  /^    / && !code && file ~ /salas\.txt$/ { rooms = substr($0, 5) }
  END { print rooms > "../salas" }' docs/novo_documento.md
antes=$(sed -n '/ oc /p' cmake/salas.txt)
[[ "$antes av" == "$(cat ../salas)" ]] || falha "the page's rooms are not those of cmake/salas.txt"
sed -i "s/^$antes\$/$antes av/" cmake/salas.txt

constroi() { quieto ./dev build release; }
paginas() { quieto build/release/bin/kxdados leiaute --tudo docs; }

constroi
paginas
quieto ./dev symbols
quieto ctest --preset release -R 'testes_unidade|testes_ferramenta|simbolos|^salas|instalacao'
grep -q 'Motivo' docs/registros/tagREG_AVARIAPS.md || falha "no page of the record"
grep -q 'CKXDadosCM_AVAvaria::CopiarPara' tests/simbolos/simbolos.txt || falha "not exported"

quieto cmake --install build/release --prefix "$instalada"
usa() {
  quieto g++ -std=c++20 -I"$instalada/include/kxldadoscm" "$1" -o "$pasta/programa" \
    -L"$instalada/lib" -lkxldadoscm -Wl,-rpath,"$instalada/lib"
  quieto "$pasta/programa"
}
usa examples/avaria.cpp

# A field: its bytes come from the reserve.
sed -i 's/^KX_RESERVA(12, 4, \( *\)0)/KX_CAMPO  (12, std::uint16_t, PonteiroLocal, 0, "place (key)")\nKX_RESERVA(14, 2, \10)/' \
  av/tagREG_AVARIA_ITEMPS.def
sed -i 's/^tagREG_AVARIA_ITEMPS .*/& PonteiroLocal=12 !PonteiroLocal/' av/leiautes.txt
constroi
paginas
quieto ctest --preset release -R 'testes_unidade|testes_ferramenta'
grep -q 'SetPonteiroLocal' docs/registros/tagREG_AVARIA_ITEMPS.md || falha "no accessor in the page"
quieto cmake --install build/release --prefix "$instalada"
sed 's/SetQuantidade(CY{30000})/SetPonteiroLocal(7)/' examples/avaria.cpp >"$pasta/campo.cpp"
usa "$pasta/campo.cpp"
