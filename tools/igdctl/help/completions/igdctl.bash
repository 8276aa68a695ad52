# Completion of igdctl for bash. igdctl itself knows the words.

# Prints a word as it is without the quoting that its typist gave it.
_igdctl_unquoted() {
  local word=$1
  case $word in
    [\"\']*) word=${word:1} word=${word%"${1:0:1}"} ;;
    *) word=${word//\\/} ;;
  esac
  printf '%s' "$word"
}

_igdctl() {
  local words=() word reply last after_equals='' i
  # bash parts "--store=FILE" into three words, igdctl does not.
  for ((i = 1; i <= COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [[ ${#words[@]} -gt 0 && ( $word == = || -n $after_equals ) ]]; then
      words[-1]+=$(_igdctl_unquoted "$word")
    else
      words+=("$(_igdctl_unquoted "$word")")
    fi
    after_equals=
    [[ $word == = ]] && after_equals=yes
  done
  last=${words[-1]}

  COMPREPLY=()
  while IFS= read -r reply; do
    if [[ $reply == :files ]]; then
      compopt -o default -o filenames 2>/dev/null
      local file=${last##*=}
      while IFS= read -r word; do COMPREPLY+=("$word"); done < <(compgen -f -- "$file")
      return
    fi
    reply=${reply%%$'\t'*}
    [[ $last == -*=* ]] && reply=${reply#"${last%%=*}="}
    [[ $reply == *[.=] ]] && compopt -o nospace 2>/dev/null
    if [[ ${COMP_WORDS[COMP_CWORD]} == [\"\']* ]]; then
      COMPREPLY+=("$reply")
    else
      COMPREPLY+=("$(printf '%q' "$reply")")
    fi
  done < <("$1" __complete line -- "${words[@]}" 2>/dev/null)
}

complete -F _igdctl igdctl
