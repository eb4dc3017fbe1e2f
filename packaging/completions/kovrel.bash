# Completions of bash. What there is to complete is asked of the program itself.

_kovrel() {
  local cur prev words cword candidates
  _get_comp_words_by_ref -n = cur prev words cword
  candidates=$(kovrel --complete "${words[@]:1:cword}" 2>/dev/null)
  case $candidates in
    '<files>') compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$cur"); return ;;
    '<settings>') candidates=$(kovrel preferences list 2>/dev/null | sed 's/ = .*//') ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$cur")
}

complete -F _kovrel kovrel
