# bash completion of kxdados. What there is to complete is asked of the program itself.

_kxdados() {
  local programa=$1 palavra=$2 anterior=$3 comando=${COMP_WORDS[1]} ajuda
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    ajuda=$("$programa" --help 2>/dev/null)
    mapfile -t COMPREPLY < <(compgen -W "$(_kxdados_opcoes) $(_kxdados_comandos)" -- "$palavra")
    return
  fi
  ajuda=$("$programa" "$comando" --help 2>/dev/null)
  if grep -qE -- "^ +$anterior (N|CHAVE|NÚMERO)( |$)" <<<"$ajuda"; then
    return # a number or a key, which only the user knows
  elif grep -qE -- "^ +$anterior PASTA( |$)" <<<"$ajuda"; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$palavra")
  elif [[ $palavra == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_kxdados_opcoes)" -- "$palavra")
  elif [[ $comando == leiaute ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$("$programa" leiaute | cut -d ' ' -f 1)" -- "$palavra")
  elif [[ $comando =~ ^(mostra|compara|confere|grava)$ || $anterior == --grava ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$palavra")
  elif [[ $comando == importa ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -X '!*.xml' -- "$palavra"; compgen -d -- "$palavra")
  fi
}

# Both read the help in the caller's variable: the options at the start of a line; the words under
# the heading of the commands.
_kxdados_opcoes() { grep -oE -- '^ +-[^ ]+' <<<"$ajuda" | tr ',' '\n'; }
_kxdados_comandos() { sed -nE '/^Comandos:/,$ s/^  ([a-z]+) .*/\1/p' <<<"$ajuda"; }

complete -F _kxdados kxdados
