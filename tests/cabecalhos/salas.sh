#!/usr/bin/env bash
# The rooms: their order is the same in cmake/salas.txt and in the README, and no include leads to a
# room above or beside; the operating system's headers are named in platform/ alone.
set -euo pipefail

falhas=0
falha() {
  printf '%s\n' "$*"
  falhas=1
}

declare -A nivel
n=0
while read -ra salas; do
  for sala in "${salas[@]}"; do nivel[$sala]=$n; done
  n=$((n + 1))
done <cmake/salas.txt

# The README's list, from its top room down.
no_readme=$(sed -n '/^## Where what lives/,/^## /s/^    \([a-z/ ]*\/\)\( .*\)\?$/\1/p' README.md |
  sed 's/\/ .*tools.*//; s/\///g' | awk '{ $1 = $1 } NF' | sed '/tools/,$d')
esperado=$(tac cmake/salas.txt)
normaliza() { while read -ra salas; do printf '%s\n' "${salas[@]}" | sort | paste -sd ' '; done; }
if [[ $(normaliza <<<"$no_readme") != "$(normaliza <<<"$esperado")" ]]; then
  falha "README.md, 'Where what lives', and cmake/salas.txt differ: $no_readme"
fi

for sala in "${!nivel[@]}"; do
  while IFS=: read -r arquivo linha incluido; do
    acima=${nivel[${incluido%%/*}]:-}
    if [[ -z $acima ]]; then
      [[ $incluido == gerado/* ]] || falha "$arquivo:$linha: includes $incluido, of no room"
    elif [[ ${incluido%%/*} != "$sala" ]] && ((acima >= nivel[$sala])); then
      falha "$arquivo:$linha: includes $incluido, which is not below $sala"
    fi
  done < <(grep -rnoP '^#include "\K[^"]+' "$sala" --include='*.h' --include='*.cpp')
done

if [[ $(grep -rlE '^#include <(windows|objbase|dlfcn|unistd|signal|sys/)' "${!nivel[@]}" |
  grep -v '^platform/') ]]; then
  falha "an operating system's header outside platform/"
fi
exit "$falhas"
