#!/usr/bin/env bash
# What a user's program may write, and what the compiler must refuse or warn of.
# usage: usos.sh COMPILER
set -euo pipefail

compilador=$1
falhas=0

compila() {
  printf '#include "kxldados/Dinheiro.h"\n#include "oc/DadosOC.h"\nint main() {\nCKXDadosCM_OrdemCompra o;\n%s\n}\n' "$1" |
    "$compilador" -std=c++20 -Wall -Wextra -Werror -x c++ -fsyntax-only -I. - 2>&1
}

recusa() {
  local erros
  if erros=$(compila "$1") || [[ $erros != *"$2"* ]]; then
    printf 'not refused (%s): %s\n%s\n' "$2" "$1" "$erros"
    falhas=1
  fi
}

compila 'o.SetCodigo(std::string("1")).SetCodigo(std::string_view("2")).SetCodigo("3");
  const std::string s(o.GetCodigo()), t = std::string(o.GetCodigo());
  std::string u; u = o.GetCodigo(); u += o.GetCodigo();
  return o.GetCodigo() == s && t != o.GetCodigo() && o.GetCodigo() == "3";' || falhas=1
recusa 'o.SetValorFrete("1.234,50"_rs);' 'error:'  # the name has to be asked for
compila 'using namespace kx::literais; o.SetValorFrete("1.234,50"_rs);' || falhas=1
for texto in 12.50 1,23456 922.337.203.685.477,5808 ''; do
  recusa "using namespace kx; o.SetValorFrete(\"$texto\"_rs);" TextoNaoEhDinheiro
done
if "$compilador" --version | grep -q clang; then
  recusa 'const char* p = o.GetCodigo(); return p[0];' 'dangling'
  recusa 'std::string_view v = o.GetCodigo().Vista(); return v[0];' 'dangling'
fi

# What the examples teach: records release themselves, indexes are tested.
if grep -nE 'Zerar(Delete|GlobalAlloc)|GetRef[A-Z][A-Za-z]*\([0-9]' examples/*.cpp; then falhas=1; fi
exit "$falhas"
