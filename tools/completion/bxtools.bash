# Completion of bxgen and bxconvert for bash. What there is to complete is what --help says.

_bx_complete() {
    local program=$1 word=$2 previous=$3 value
    # --option=value comes in three words.
    if [[ $word == = ]]; then
        word=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    COMPREPLY=()
    if [[ $previous == -* ]]; then
        value=$("$program" --help 2>/dev/null | sed -n "s/^  $previous \([^ ][^ ]*\).*/\1/p")
    fi
    case $value in
        *'|'*) mapfile -t COMPREPLY < <(compgen -W "${value//|/ }" -- "$word") ;;
        DIR) _bx_files -d ;;
        FILE | OUTPUT | '') if [[ -z $value && $word == -* ]]; then _bx_options; else _bx_files -f; fi ;;
    esac
}

_bx_options() {
    mapfile -t COMPREPLY < <(compgen -W "$("$program" --help 2>/dev/null | sed -n 's/^  \(-[^ ]*\).*/\1/p')" -- "$word")
}

_bx_files() {
    mapfile -t COMPREPLY < <(compgen "$1" -- "$word")
    compopt -o filenames 2>/dev/null
}

complete -F _bx_complete bxgen bxconvert
