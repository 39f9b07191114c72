#!/usr/bin/env bash
# Builds for another system what the tool and the tests need beside the compiler, from Debian's own
# sources: GoogleTest, pugixml, SQLite, zstd, and the headers of CLI11 and nlohmann-json. What is there
# already stays, as long as it is of the versions that are installed here.
# usage: raiz.sh TOOLCHAIN-FILE FOLDER
set -euo pipefail

ferramentas=$(realpath "$1")
mkdir -p "$2"
raiz=$(realpath "$2")
feita=$raiz/feita

versoes=$(dpkg-query -W googletest libpugixml-dev libcli11-dev nlohmann-json3-dev libsqlite3-dev \
  libzstd-dev)
[[ ! -f $feita || $(<"$feita") != "$versoes" ]] || exit 0

# constroi SOURCE NAME [CMAKE ARG...]
constroi() {
  local fonte=$1 pasta=$raiz/obra/$2
  shift 2
  cmake -S "$fonte" -B "$pasta" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$ferramentas" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$raiz" -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$pasta"
  cmake --install "$pasta"
}

# fonte PACKAGE SOURCE: the source package, from wherever the binary package comes, in obra/SOURCE.
fonte() {
  local pasta=$raiz/obra/apt/$2 uri suite
  uri=$(apt-get download --print-uris "$1" | cut -d"'" -f2)
  suite=$(. /etc/os-release && printf %s "$VERSION_CODENAME")
  [[ $uri != *-security/* ]] || suite+=-security
  mkdir -p "$pasta/lists/partial" "$raiz/obra/$2"
  printf 'deb-src %s %s main\n' "${uri%/pool/*}" "$suite" >"$pasta/fontes.list"
  local apt=(apt-get -q -o "Dir::Etc::SourceList=$pasta/fontes.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$pasta/lists" -o "Dir::Cache=$pasta" -o APT::Sandbox::User=root)
  "${apt[@]}" update
  (cd "$pasta" && "${apt[@]}" source --download-only "$2")
  tar -C "$raiz/obra/$2" --strip-components=1 -xf "$pasta/$2"_*.orig.tar.*z
}

# sqlite: its one file, made of its sources, as a library.
sqlite() {
  local pasta=$raiz/obra/sqlite3
  fonte libsqlite3-dev sqlite3
  (cd "$pasta" && ./configure --disable-tcl --disable-readline && make sqlite3.c)
  mkdir "$pasta/so"
  cp "$pasta/sqlite3.c" "$pasta/sqlite3.h" "$pasta/so"
  cat >"$pasta/so/CMakeLists.txt" <<'FIM'
cmake_minimum_required(VERSION 3.25)
project(sqlite3 LANGUAGES C)
add_library(sqlite3 STATIC sqlite3.c)
target_compile_definitions(sqlite3 PRIVATE SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
install(TARGETS sqlite3 DESTINATION lib)
install(FILES sqlite3.h DESTINATION include)
FIM
  constroi "$pasta/so" sqlite3-feita
}

rm -rf "$raiz"
mkdir -p "$raiz/obra" "$raiz/include" "$raiz/share/cmake"
constroi /usr/src/googletest googletest -DBUILD_GMOCK=OFF
fonte libpugixml-dev pugixml
constroi "$raiz/obra/pugixml" pugixml-feita
sqlite
fonte libzstd-dev libzstd
constroi "$raiz/obra/libzstd/build/cmake" libzstd-feita -DZSTD_BUILD_SHARED=OFF \
  -DZSTD_BUILD_PROGRAMS=OFF
# In place they would bring the whole of /usr/include along.
cp -r /usr/include/CLI /usr/include/nlohmann "$raiz/include"
cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$raiz/share/cmake"
rm -rf "$raiz/obra"
printf '%s\n' "$versoes" >"$feita"
