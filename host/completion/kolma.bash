# bash completion for kolma

_kolma_printers() {
  kolma printer list --json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",\{0,1\}$/\1/p'
}

_kolma_drivers() {
  kolma drivers --json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",\{0,1\}$/\1/p'
}

# Offers the lines of the standard input that begin with the current word, quoted for the shell.
_kolma_offer_lines() {
  local line word=${cur#[\"\']}
  while IFS= read -r line; do
    [[ $line == "${word//\\/}"* ]] && COMPREPLY+=("$(printf '%q' "$line")")
  done
}

_kolma() {
  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local words=() word
  COMPREPLY=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -* ]] || words+=("$word")
  done

  case $previous in
    --shots) compopt -o dirnames; mapfile -t COMPREPLY < <(compgen -d -- "$cur"); return ;;
    -o | --output | --abil | --devmode | --play) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$cur"); return ;;
    --printer) _kolma_offer_lines < <(_kolma_printers); return ;;
    --driver) _kolma_offer_lines < <(_kolma_drivers); return ;;
  esac

  local options="--help --verbose" offered=""
  case "${words[*]:0:2}" in
    "") offered="drivers printer devmode ticket capabilities stocks properties" options="--help --version --verbose" ;;
    printer) offered="add list remove" ;;
    devmode) offered="default convert merge show from-ticket to-ticket" ;;
    ticket) offered="show check fix" ;;
    capabilities) offered="show import clear" ;;
    stocks) offered="list" ;;
    drivers* | "printer list") options+=" --json" ;;
    "printer add") options+=" --driver" ;;
    "printer remove") ((${#words[@]} == 2)) && [[ $cur != -* ]] && _kolma_offer_lines < <(_kolma_printers) ;;
    "capabilities "*)
      [[ ${words[1]} == show ]] && options+=" --json --abil"
      if ((${#words[@]} == 2)) && [[ $cur != -* ]]; then
        _kolma_offer_lines < <(_kolma_printers)
        return
      fi
      [[ ${words[1]} == import ]] && offered=FILES ;;
    "stocks list")
      options+=" --json"
      ((${#words[@]} == 2)) && [[ $cur != -* ]] && _kolma_offer_lines < <(_kolma_printers) ;;
    properties*)
      options+=" --devmode --device --fresh --read-only --play --shots"
      ((${#words[@]} == 1)) && [[ $cur != -* ]] && _kolma_offer_lines < <(_kolma_printers; echo demo) ;;
    "devmode default" | "devmode convert" | "devmode merge")
      options+=" --output"
      if ((${#words[@]} == 2)) && [[ $cur != -* ]]; then
        _kolma_offer_lines < <(_kolma_printers)
        return
      fi
      [[ ${words[1]} != default ]] && offered=FILES ;;
    "devmode from-ticket" | "devmode to-ticket") options+=" --output" offered=FILES ;;
    "ticket check"*) options+=" --printer --json" offered=FILES ;;
    "ticket fix") options+=" --printer --output --yes --no" offered=FILES ;;
    "devmode show" | "ticket show") options+=" --json" offered=FILES ;;
  esac

  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
  elif [[ $offered == FILES ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  elif [[ $offered ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$offered" -- "$cur")
  fi
}

complete -F _kolma kolma
