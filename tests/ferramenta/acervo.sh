#!/usr/bin/env bash
# The archive under what happens to it, and read by other programs.
# usage: acervo.sh CASE, with KXDADOS the tool, DADOS the sample documents, NOTAS the examples
set -euo pipefail
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT
cd "$pasta"

falha() {
  echo "acervo.sh: $*" >&2
  exit 1
}

importa() { "$KXDADOS" importa --grava "$@"; }

# notas MANY: invoices with keys of their own, in a folder.
notas() {
  mkdir notas
  python3 - "$NOTAS" "$1" <<'FIM'
import glob, re, sys

def digito(chave):
    soma = sum((ord(c) - 48) * (2 + i % 8) for i, c in enumerate(reversed(chave)))
    return 0 if soma % 11 < 2 else 11 - soma % 11

exemplos = [open(nome, encoding="latin-1").read() for nome in sorted(glob.glob(sys.argv[1] + "/*.xml"))]
exemplos = [nota for nota in exemplos if 'Id="NFe' in nota]
for i in range(int(sys.argv[2])):
    nota = exemplos[i % len(exemplos)]
    velha = re.search(r'Id="NFe(\w{44})"', nota)[1]
    chave = velha[:35] + f"{i:08d}"
    with open(f"notas/{i:05d}.xml", "w", encoding="latin-1") as arquivo:
        arquivo.write(nota.replace(velha, chave + str(digito(chave))))
FIM
}

quantos() { sqlite3 "$1" 'SELECT count(*) FROM documento'; }

# What was committed stays whole, and the next run goes on from there.
# Killed at any moment of a whole import, from nothing every fifth time.
caso_morto() {
  local antes=0 agora processo inicio duracao
  notas 1500
  inicio=$(date +%s%N)
  importa inteiro.db notas >/dev/null
  duracao=$((($(date +%s%N) - inicio) / 1000000))
  for vez in {0..49}; do
    if ((vez % 5 == 0)); then
      rm -f compras.db*
      antes=0
    fi
    "$KXDADOS" importa --grava compras.db notas >/dev/null 2>&1 &
    processo=$!
    sleep "$(awk -v ms="$duracao" -v r="$RANDOM" 'BEGIN { print ms * r / 32768000 }')"
    kill -KILL "$processo" 2>/dev/null || true
    wait "$processo" 2>/dev/null || true
    [[ -s compras.db && $(sqlite3 compras.db 'PRAGMA application_id') != 0 ]] || continue
    "$KXDADOS" confere compras.db >confere.txt 2>&1 || falha "$(<confere.txt)"
    agora=$(quantos compras.db)
    ((agora >= antes)) || falha "lost: $antes, then $agora"
    antes=$agora
  done
  importa compras.db notas >/dev/null
  [[ $(quantos compras.db) == 1500 ]] || falha "not completed: $(quantos compras.db)"
  "$KXDADOS" confere compras.db
}

caso_interrompido() {
  notas 1500
  "$KXDADOS" importa --grava compras.db notas notas notas notas >saida.txt 2>erros.txt &
  sleep 0.2
  kill -INT $!
  ! wait $! || falha "exit 0"
  grep -q 'interrompido' erros.txt || falha "$(<erros.txt)"
  "$KXDADOS" confere compras.db
}

# A limit stands for a full disk: the file cannot grow.
caso_cheio() {
  notas 1500
  importa compras.db notas/000*.xml >/dev/null
  (ulimit -f 200 && importa compras.db notas >saida.txt 2>erros.txt) && falha "exit 0"
  [[ $(wc -l <erros.txt) == 1 ]] || falha "$(<erros.txt)"
  (($(quantos compras.db) >= 100)) || falha "lost what was committed"
  "$KXDADOS" confere compras.db
}

# A document is booked within some seconds though no other follows it.
caso_espera() {
  notas 1
  importa um.db notas >/dev/null
  ("$KXDADOS" mostra --json um.db && sleep 5) | "$KXDADOS" grava compras.db >/dev/null &
  sleep 3
  [[ $(quantos compras.db) == 1 ]] || falha "still waiting"
  wait
}

caso_dois() {
  local outro
  notas 1500
  importa compras.db notas >a.txt &
  outro=$!
  importa compras.db notas >b.txt
  wait "$outro"
  [[ $(quantos compras.db) == 1500 ]] || falha "$(quantos compras.db) documents"
  "$KXDADOS" confere compras.db
}

# esperado: the totals of the sample documents that are booked, as they were read elsewhere.
esperado() {
  importa compras.db "$DADOS/nfe" >/dev/null 2>&1 || true
  jq -r '[.nfe[] | select(.file != "nfe/25_medicamento_combustivel_12itens_totais_incoerentes.xml")
          | .vNF | tonumber] | add * 100 | round' "$DADOS/expected.json"
}

caso_leitores() {
  local total
  total=$(esperado)
  [[ $(sqlite3 compras.db 'SELECT sum(total) / 100 FROM documento') == "$total" ]] || falha sqlite3
  [[ $(sqlite3 compras.db 'SELECT round(sum(total) * 100) FROM documento_reais') == "$total.0" ]] ||
    falha "sqlite3, the view"
  [[ $("$KXDADOS" mostra --json compras.db | jq -s '[.[].ValorTotalNotaFiscalNFe // "0" | tonumber]
      | add * 100 | round') == "$total" ]] || falha jq
}

# A server of its own, of a user who is not root, heard on a socket of its folder alone.
caso_postgresql() {
  local total binarios
  total=$(esperado)
  binarios=$(printf '%s\n' /usr/lib/postgresql/*/bin | tail -n 1)
  "$KXDADOS" mostra --json compras.db >documentos.jsonl
  local como=()
  if ((EUID == 0)); then
    chown -R nobody "$pasta"
    como=(setpriv --reuid=nobody --regid=nogroup --clear-groups env HOME="$pasta")
  fi
  "${como[@]}" "$binarios/initdb" -D servidor -A trust -U kx >initdb.txt
  # shellcheck disable=SC2064  # the folder as it is now
  trap "$(printf '%q ' "${como[@]}" "$binarios/pg_ctl" -D "$pasta/servidor" -m immediate -s stop); rm -rf '$pasta'" EXIT
  "${como[@]}" "$binarios/pg_ctl" -D servidor -s -w -o "-k '$pasta' -h ''" -l servidor.txt start
  "$binarios/psql" -qAt -h "$pasta" -U kx -d postgres -v ON_ERROR_STOP=1 >soma.txt <<'FIM'
CREATE TABLE documento (dados jsonb);
\copy documento FROM 'documentos.jsonl' WITH (FORMAT csv, QUOTE E'\x01', DELIMITER E'\x02')
SELECT round(sum((dados->>'ValorTotalNotaFiscalNFe')::numeric) * 100) FROM documento;
FIM
  [[ $(<soma.txt) == "$total" ]] || falha "PostgreSQL: $(<soma.txt) for $total"
}

"caso_$1"
