#!/usr/bin/env bash
# Builds for another system what the tool and the tests need beside the compiler, from Debian's own
# sources: GoogleTest, pugixml, and the headers of CLI11 and nlohmann-json. What is there already
# stays, as long as it is of the versions that are installed here.
# usage: raiz.sh TOOLCHAIN-FILE FOLDER
set -euo pipefail

ferramentas=$(realpath "$1")
mkdir -p "$2"
raiz=$(realpath "$2")
feita=$raiz/feita

versoes=$(dpkg-query -W googletest libpugixml-dev libcli11-dev nlohmann-json3-dev)
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

# fonte_pugixml: its source package, from wherever its binary package comes.
fonte_pugixml() {
  local pasta=$raiz/obra/apt uri
  uri=$(apt-get download --print-uris libpugixml-dev | cut -d"'" -f2)
  mkdir -p "$pasta/lists/partial"
  printf 'deb-src %s %s main\n' "${uri%/pool/*}" \
    "$(. /etc/os-release && printf %s "$VERSION_CODENAME")" >"$pasta/fontes.list"
  local apt=(apt-get -q -o "Dir::Etc::SourceList=$pasta/fontes.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$pasta/lists" -o "Dir::Cache=$pasta" -o APT::Sandbox::User=root)
  "${apt[@]}" update
  (cd "$pasta" && "${apt[@]}" source --download-only pugixml)
  tar -C "$raiz/obra" -xf "$pasta"/pugixml_*.orig.tar.gz
}

rm -rf "$raiz"
mkdir -p "$raiz/obra" "$raiz/include" "$raiz/share/cmake"
constroi /usr/src/googletest googletest -DBUILD_GMOCK=OFF
fonte_pugixml
constroi "$raiz"/obra/pugixml-*/ pugixml
# In place they would bring the whole of /usr/include along.
cp -r /usr/include/CLI /usr/include/nlohmann "$raiz/include"
cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$raiz/share/cmake"
rm -rf "$raiz/obra"
printf '%s\n' "$versoes" >"$feita"
