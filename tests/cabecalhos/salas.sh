#!/usr/bin/env bash
# The rooms: the README has them in the order of cmake/salas.txt, and no include leads to a room above
# or beside; the operating system's headers are named in platform/ alone.
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

# The README's list, from its top room down; it may leave out a room, but not move one.
n=$((n - 1))
while read -ra salas; do
  for sala in "${salas[@]}"; do
    [[ ${nivel[$sala]:-} == "$n" ]] || falha "README.md, 'Where what lives': $sala is not on this level"
  done
  n=$((n - 1))
done < <(sed -n '/^## Where what lives/,/^## /s/^    \([a-z]\{2\}.*\)/\1/p' README.md |
  sed -n '/^tools/q; s/^\(\([a-z]*\/ *\)*\).*/\1/p' | tr -d / )
((n == -1)) || falha "README.md, 'Where what lives': a level of the house is missing"

for sala in "${!nivel[@]}"; do
  while IFS=: read -r arquivo linha incluido; do
    acima=${nivel[${incluido%%/*}]:-}
    if [[ -z $acima ]]; then
      [[ $incluido == gerado/* ]] || falha "$arquivo:$linha: includes $incluido, of no room"
    elif [[ ${incluido%%/*} != "$sala" ]] && ((acima >= nivel[$sala])); then
      falha "$arquivo:$linha: includes $incluido, which is not below $sala"
    fi
  done < <(grep -rnoP '^#include "\K[a-z]+/[^"]+' "$sala" --include='*.h' --include='*.cpp')
done

if [[ $(grep -rlE '^#include <(windows|objbase|dlfcn|unistd|signal|sys/)' "${!nivel[@]}" |
  grep -v '^platform/') ]]; then
  falha "an operating system's header outside platform/"
fi
exit "$falhas"
