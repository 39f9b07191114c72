#!/usr/bin/env bash
# Builds the project as a stranger would, without a preset: each compiler, each kind of build, and as
# a folder inside another project. Warnings are said and stop nothing.
# usage: simples.sh FOLDER
set -euo pipefail

fonte=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
pasta=$1
mkdir -p "$pasta"

# constroi NAME SOURCE OPTION...: configures and builds, quietly unless it fails.
constroi() {
  local nome=$1 raiz=$2 log=$pasta/$1.log
  shift 2
  rm -rf "${pasta:?}/$nome"
  if ! { cmake -S "$raiz" -B "$pasta/$nome" "$@" &&
    cmake --build "$pasta/$nome" -j "$(nproc)"; } >"$log" 2>&1; then
    cat "$log" >&2
    printf 'FAILED: %s\n' "$nome" >&2
    exit 1
  fi
}

for compilador in g++ clang++; do
  for tipo in Release Debug RelWithDebInfo; do
    tudo=OFF
    if [[ $compilador-$tipo == g++-Release ]]; then tudo=ON; fi
    constroi "$compilador-$tipo" "$fonte" -DCMAKE_CXX_COMPILER="$compilador" \
      -DCMAKE_BUILD_TYPE="$tipo" -DKX_TESTES="$tudo"
    "$pasta/$compilador-$tipo/bin/kxdados" importa "$fonte"/examples/notas/*.xml >/dev/null
  done
done

mkdir -p "$pasta/dentro"
cat >"$pasta/dentro/CMakeLists.txt" <<FIM
cmake_minimum_required(VERSION 3.25)
project(dentro LANGUAGES CXX)
add_subdirectory("$fonte" kxldadoscm)
add_executable(programa "$fonte/examples/minimo.cpp")
target_link_libraries(programa PRIVATE kxldadoscm::kxldadoscm)
FIM
constroi subpasta "$pasta/dentro" -DCMAKE_BUILD_TYPE=Release
"$pasta/subpasta/programa"
