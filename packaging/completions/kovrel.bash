# Completions of bash. What there is to complete is asked of the program itself.

_kovrel_synopses() { kovrel --help 2>/dev/null | sed -n 's/^\(usage:\)\? *kovrel //p'; }

# _kovrel_words : what may stand at $index of the words after the program's name, one of them on each line.
_kovrel_words() {
  local command=${words[1]} index=$((cword - 1))
  if [ "$index" -eq 0 ]; then
    _kovrel_synopses | grep -oE '^[a-z][a-z-]*( |$)'
    echo '--background --help --version'
  elif [[ $cur == -* ]]; then
    _kovrel_synopses | grep -E "^$command( |\$)" | grep -oE -- '--[a-z-]+'
  elif [ "$command $index" = 'capture 1' ]; then
    kovrel --help 2>/dev/null | sed -n 's/^ *MODE: //p' | sed 's/([^)]*)//g; s/|/ /g'
  elif [ "$command $index" = 'preferences 1' ]; then
    echo 'list get set reset'
  elif [ "$command $index" = 'preferences 2' ]; then
    kovrel preferences list 2>/dev/null | sed 's/ = .*//'
  fi
}

_kovrel() {
  local cur prev words cword
  _get_comp_words_by_ref -n = cur prev words cword
  case $prev in
    --output) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$cur"); return ;;
    --rect) return ;;
  esac
  if [ "$cword" -gt 1 ] && [[ $cur != -* ]] && _kovrel_synopses | grep -q "^${words[1]} FILE"; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    return
  fi
  mapfile -t COMPREPLY < <(compgen -W "$(_kovrel_words)" -- "$cur")
}

complete -F _kovrel kovrel
