# Bash completion for broomtide-cli. Needs nothing but Bash.
_broomtide_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} word awaited='' chosen='' folder='' choices=''
  # Bash takes --mode=caches for three words.
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    if [[ $word == = ]]; then
      continue
    elif [[ -n $awaited ]]; then
      awaited=
    elif [[ $word == --@(mode|sort|item) ]]; then
      awaited=$word
    elif [[ -z $chosen ]]; then
      chosen=$word
    elif [[ $word != -* ]]; then
      folder=$word
    fi
  done
  [[ $current != = ]] || current=

  COMPREPLY=()
  if [[ -z $awaited && $chosen == @(scan|clean) && $current != -* ]]; then
    # Bash itself lists folders, and knows how to quote them.
    [[ -n $folder ]] || compopt -o dirnames
    return
  fi
  case ${awaited:-$chosen} in
    --mode) choices="project caches downloads" ;;
    --sort) choices="size name date" ;;
    scan) choices="--mode --sort --details --json --help" ;;
    clean) choices="--mode --safe --item --dry-run --yes --json --help" ;;
    history) choices="--json --help" ;;
    "") choices="scan clean history --help --version" ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
}
complete -F _broomtide_cli broomtide-cli
