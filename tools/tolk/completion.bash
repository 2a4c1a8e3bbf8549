# Completion of tolk for bash: commands and options from what --help prints, functions from list, formats from formats.
_tolk() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} tolk=${COMP_WORDS[0]}
  local command=${COMP_WORDS[1]} words
  if ((COMP_CWORD == 1)); then
    words=$("$tolk" --help 2>/dev/null | sed -n '/^Subcommands:/,$ s/^  \([a-z0-9]*\)  .*/\1/p')
  elif [[ $current == -* ]]; then
    words=$("$tolk" "$command" --help 2>/dev/null | grep -o '^  [^ ]*' | tr ', ' '\n\n' | grep '^--')
  elif [[ $command == @(run|info|selftest) && COMP_CWORD -eq 2 ]]; then
    words=$("$tolk" list 2>/dev/null | grep -o '^tolk[^ ]*')
  elif [[ $previous == @(--from|--to|--space) ]]; then
    words=$("$tolk" formats 2>/dev/null | grep -o '^[^ ]*')
  else
    words=$("$tolk" "$command" --help 2>/dev/null | sed -n "s/^  $previous .*{\([^}]*\)}.*/\1/p" | tr , ' ')
  fi
  if [[ -n $words ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  else
    compopt -o default
    COMPREPLY=()
  fi
}
complete -F _tolk tolk
