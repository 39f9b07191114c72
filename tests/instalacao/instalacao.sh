#!/usr/bin/env bash
# Installs what was built into an empty folder and uses it from there, as a stranger would.
# usage: CXX=compiler CONSTRUIDO=build-folder LIBDIR=lib instalacao.sh CASE
set -euo pipefail

FONTE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly FONTE
readonly CASO=$1 LUGAR=$CONSTRUIDO/instalacao
readonly RAIZ=$LUGAR/raiz
readonly USR=$RAIZ/usr
readonly COMANDOS=(compara confere grava importa leiaute mostra)
# Nothing but what the test installs may be found.
unset LD_LIBRARY_PATH CPATH LIBRARY_PATH CMAKE_PREFIX_PATH PKG_CONFIG_PATH

falha() {
  printf 'FALHOU: %s\n' "$*" >&2
  exit 1
}

# contem TEXT PATTERN MESSAGE
contem() { grep -qE -- "$2" <<<"$1" || falha "$3: $1"; }

# usa_compartilhada PROGRAM yes|no: whether the program needs the shared library.
usa_compartilhada() {
  local usa=no
  [[ $(readelf -d "$1") == *NEEDED*libkxldadoscm.so.* ]] && usa=yes
  [[ $usa == "$2" ]] || falha "$1 needs the shared library: $usa, expected $2"
}

# sem_caminho: nothing that is installed may look for libraries in the build folder.
sem_caminho() {
  local caminhos
  caminhos=$(find "$USR/bin" "$USR/$LIBDIR" -type f \( -name kxdados -o -name '*.so*' \) \
    -exec readelf -d {} + | grep -E 'RPATH|RUNPATH' || true)
  [[ -z $caminhos ]] || falha "run path: $caminhos"
}

# consome PROGRAM: runs the consumer.
consome() { "$1" || falha "step $? of consumidor.cpp"; }

# consome_cmake PREFIX TARGET: builds and runs the consumer by find_package.
consome_cmake() {
  local pasta=$LUGAR/$CASO
  cmake -S "$FONTE/consumidor" -B "$pasta" -G Ninja -DCMAKE_CXX_COMPILER="$CXX" \
    -DCMAKE_PREFIX_PATH="$1" -DKX_BIBLIOTECA="$2" -DKX_CABECALHOS="$1/include/kxldadoscm"
  grep -q "^kxldadoscm_DIR:PATH=$1/" "$pasta/CMakeCache.txt" || falha "another package was found"
  cmake --build "$pasta"
  consome "$pasta/consumidor"
}

# pkgconfig OPTION...: prints what pkg-config says of the installed library.
pkgconfig() { PKG_CONFIG_LIBDIR=$USR/$LIBDIR/pkgconfig pkg-config "$@" kxldadoscm; }

# kxdados ARG...: runs the installed tool.
kxdados() { LD_LIBRARY_PATH=$USR/$LIBDIR "$USR/bin/kxdados" "$@"; }

# completa WORD...: what the shell would offer for the last word.
completa() {
  COMP_WORDS=(kxdados "$@")
  COMP_CWORD=$#
  _kxdados kxdados "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}"
  printf '%s\n' "${COMPREPLY[@]}" | sort
}

# cabecalhos_instalados: every header and table of the rooms, and none that says to be internal.
cabecalhos_instalados() {
  local projeto=$FONTE/../.. salas esperados instalados
  read -rd '' -a salas <"$projeto/cmake/salas.txt" || true
  esperados=$(cd "$projeto" && find "${salas[@]}" \( -name '*.h' -o -name '*.def' \) -print0 |
    xargs -0 grep -LE "^// Internal to the library" | sort)
  instalados=$(cd "$USR/include/kxldadoscm" && find . -type f -printf '%P\n' | sort)
  diff <(echo "$esperados") <(echo "$instalados") || falha "headers in the tree < > installed"
}

# documentos_instalados FOLDER: every link of a page leads to a file, and every file that a header
# names is there, but for the system's own.
documentos_instalados() {
  local pagina destino cabecalho nome
  while IFS=: read -r pagina destino; do
    [[ -e ${pagina%/*}/$destino ]] || falha "$pagina leads to $destino, which is not installed"
  done < <(grep -roP '\]\(\K[^)#:]+(?=[)#])' "$1" --include='*.md')
  while IFS=: read -r cabecalho nome; do
    [[ -e $USR/include/kxldadoscm/$nome || -e ${cabecalho%/*}/$nome ]] ||
      falha "$cabecalho names $nome, which is not installed"
  done < <(grep -roP '\b(?!windows\.h)[A-Za-z_]+(/[A-Za-z_]+)*\.(h|def|cpp|md|py)\b' \
    "$USR/include/kxldadoscm")
}

caso_instalacao() {
  rm -rf "$LUGAR"
  cmake --install "$CONSTRUIDO" --prefix "$USR" >/dev/null
  cabecalhos_instalados
  documentos_instalados "$USR/share/doc/kxldadoscm"
  consome_cmake "$USR" kxldadoscm::kxldadoscm
  sem_caminho
  kxdados --versao
}

# The ZIP, by the toolchain that made it: the consumer runs beside the library, as it would ship.
caso_windows() {
  local cmake_ferramentas=$FONTE/../../cmake zip raiz pasta=$LUGAR/consumidor relato
  rm -rf "$LUGAR" "$CONSTRUIDO"/*.zip
  mkdir -p "$LUGAR"
  (cd "$CONSTRUIDO" && cpack)
  zip=$(echo "$CONSTRUIDO"/kxldadoscm-*-windows-x64.zip)
  (cd "$LUGAR" && cmake -E tar xf "$zip")
  raiz=$LUGAR/$(basename "$zip" .zip)
  cmake -S "$FONTE/consumidor" -B "$pasta" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$cmake_ferramentas/FerramentasWindows.cmake" \
    -Dkxldadoscm_DIR="$raiz/lib/cmake/kxldadoscm" -DKX_BIBLIOTECA=kxldadoscm::kxldadoscm \
    -DKX_CABECALHOS="$raiz/include/kxldadoscm"
  cmake --build "$pasta"
  cp "$pasta/consumidor.exe" "$raiz/bin"
  cd "$raiz"
  consome() { "$cmake_ferramentas/wine.sh" "$@"; }
  consome bin/consumidor.exe || falha "step $? of consumidor.cpp"
  relato=$(consome bin/kxdados.exe importa "$FONTE"/../../examples/notas/*.xml)
  [[ $(grep -cE ': nota (de serviço )?[0-9]+, série' <<<"$relato") == 4 ]] ||
    falha "four invoices, but: $relato"
  contem "$(cat licencas/*.txt)" 'GCC RUNTIME LIBRARY EXCEPTION' "no licence of the runtime"
}

caso_pacotes() {
  rm -rf "$LUGAR" "$CONSTRUIDO"/*.deb
  mkdir -p "$RAIZ"
  (cd "$CONSTRUIDO" && cpack)
  local pacote
  for pacote in "$CONSTRUIDO"/*.deb; do dpkg-deb -x "$pacote" "$RAIZ"; done
  local repetidos
  repetidos=$(for pacote in "$CONSTRUIDO"/*.deb; do dpkg-deb -c "$pacote"; done |
    awk '$1 !~ /^d/ {print $6}' | sort | uniq -d)
  [[ -z $repetidos ]] || falha "in more than one package: $repetidos"
  cabecalhos_instalados
  documentos_instalados "$USR/share/doc/libkxldadoscm-dev"
}

# The examples, where they lie, against what is installed.
caso_pacotes_exemplos() {
  cmake -S "$USR/share/doc/libkxldadoscm-dev/examples" -B "$LUGAR/$CASO" -G Ninja \
    -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_PREFIX_PATH="$USR"
  cmake --build "$LUGAR/$CASO"
  ctest --test-dir "$LUGAR/$CASO" --no-tests=error
}

# Into a system of its own, and out of it again.
caso_pacotes_remocao() {
  local sistema=$LUGAR/$CASO sobra
  local opcoes=(--root="$sistema" --force-depends --force-not-root --force-script-chrootless)
  rm -rf "$sistema"
  mkdir -p "$sistema"/var/lib/dpkg/{info,updates}
  touch "$sistema"/var/lib/dpkg/{status,available}
  PATH=$PATH:/usr/sbin:/sbin dpkg "${opcoes[@]}" -i "$CONSTRUIDO"/*.deb
  [[ -x $sistema/usr/bin/kxdados ]] || falha "not installed"
  PATH=$PATH:/usr/sbin:/sbin dpkg "${opcoes[@]}" -P kxdados libkxldadoscm-dev libkxldadoscm1
  sobra=$(find "$sistema" -path "$sistema/var" -prune -o -not -path "$sistema" -print)
  [[ -z $sobra ]] || falha "left behind: $sobra"
}

caso_pacotes_campos() {
  local biblioteca desenvolvimento ferramenta palavra
  biblioteca=$(dpkg-deb -f "$CONSTRUIDO"/libkxldadoscm[0-9]_*.deb Depends)
  desenvolvimento=$(dpkg-deb -f "$CONSTRUIDO"/libkxldadoscm-dev_*.deb Depends)
  ferramenta=$(dpkg-deb -f "$CONSTRUIDO"/kxdados_*.deb Depends)
  # The C and C++ libraries, with the GCC runtime that belongs to them, and nothing else.
  contem "$biblioteca, " '^((libc6|libgcc-s1|libstdc\+\+6) [^,]+, )+$' \
    "the library depends on more than the standard library"
  contem "$desenvolvimento" 'libkxldadoscm[0-9] \(= ' "-dev does not name its library's version"
  contem "$ferramenta" 'libkxldadoscm[0-9] \(= ' "kxdados does not name its library's version"
  for palavra in libpugixml1 libsqlite3-0 libzstd1; do
    contem "$ferramenta" "$palavra" "kxdados does not name $palavra"
  done
  contem "$(dpkg-deb -I "$CONSTRUIDO"/libkxldadoscm[0-9]_*.deb triggers)" ldconfig \
    "the loader's cache is not renewed"
}

caso_pacotes_cmake() {
  consome_cmake "$USR" kxldadoscm::kxldadoscm
  usa_compartilhada "$LUGAR/$CASO/consumidor" yes
}

caso_pacotes_cmake_estatica() {
  consome_cmake "$USR" kxldadoscm::estatica
  usa_compartilhada "$LUGAR/$CASO/consumidor" no
}

caso_pacotes_pkgconfig() {
  # shellcheck disable=SC2046  # the words are arguments
  "$CXX" -std=c++20 $(pkgconfig --cflags) "$FONTE/consumidor/consumidor.cpp" \
    $(pkgconfig --libs) -o "$LUGAR/$CASO"
  usa_compartilhada "$LUGAR/$CASO" yes
  LD_LIBRARY_PATH=$USR/$LIBDIR consome "$LUGAR/$CASO"
}

caso_pacotes_pkgconfig_estatica() {
  # shellcheck disable=SC2046  # the words are arguments
  "$CXX" -std=c++20 $(pkgconfig --static --cflags) "$FONTE/consumidor/consumidor.cpp" \
    -Wl,-Bstatic $(pkgconfig --libs) -Wl,-Bdynamic -o "$LUGAR/$CASO"
  usa_compartilhada "$LUGAR/$CASO" no
  consome "$LUGAR/$CASO"
}

caso_pacotes_kxdados() {
  local relato
  sem_caminho
  relato=$(kxdados importa "$FONTE"/../../examples/notas/*.xml)
  [[ $(grep -cE ': nota (de serviço )?[0-9]+, série' <<<"$relato") == 4 ]] ||
    falha "four invoices, but: $relato"
}

# Every option and command of the help stands in the page, which groff reads without a complaint.
caso_pacotes_manual() {
  local pagina=$USR/share/man/man1/kxdados.1.gz avisos texto ajuda palavra
  avisos=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings=w -l "$pagina" 2>&1 >/dev/null)
  [[ -z $avisos ]] || falha "$avisos"
  texto=$(LC_ALL=C.UTF-8 man -l "$pagina" | col -bx)
  ajuda=$(for palavra in '' "${COMANDOS[@]}"; do kxdados ${palavra:+"$palavra"} --help; done)
  for palavra in "${COMANDOS[@]}" $(grep -oE '^ +-[^ ]+' <<<"$ajuda" | tr ',' '\n'); do
    contem "$texto" "^ +(-h, |--help, )*${palavra}( |,|$)" "the manual page lacks $palavra"
  done
}

caso_pacotes_completacao() {
  # shellcheck source=/dev/null
  . "$USR/share/bash-completion/completions/kxdados"
  [[ $(completa '') == "$(printf '%s\n' --ajuda --help --versao -h "${COMANDOS[@]}")" ]] ||
    falha "commands: $(completa '')"
  [[ $(completa leiaute --t) == --tudo ]] || falha "option: $(completa leiaute --t)"
  [[ $(completa leiaute tagREG_ENTRADA) == tagREG_ENTRADAPS ]] ||
    falha "records: $(completa leiaute tagREG_ENTRADA)"
  [[ -z $(completa importa --filial '') ]] || falha "a key has no completion"
  cd "$FONTE/../../examples"
  [[ $(completa leiaute --tudo not) == notas ]] ||
    falha "folders: $(completa leiaute --tudo not)"
  [[ $(completa importa not) == notas ]] || falha "folders: $(completa importa not)"
  [[ $(completa importa notas/01) == notas/01*.xml ]] || falha "files: $(completa importa notas/01)"
}

"caso_$CASO"
