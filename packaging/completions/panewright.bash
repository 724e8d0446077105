# bash completion for panewright                                            -*- shell-script -*-

# _panewright_quoted NAME QUOTE: prints the name as it stands on a command line, behind that opening
# quote if there is one. A colon and the like would otherwise begin a new word.
_panewright_quoted() {
    local name=$1 i character
    case $2 in
    \') printf %s "${name//\'/\'\\\'\'}" ;;
    \")
        name=${name//\\/\\\\}
        name=${name//\"/\\\"}
        name=${name//\$/\\\$}
        name=${name//\`/\\\`}
        printf %s "${name//!/\"\\!\"}" # no backslash keeps it from the history
        ;;
    *)
        for ((i = 0; i < ${#name}; i++)); do
            character=${name:i:1}
            case $character in
            [[:cntrl:]]) printf %q "$character" ;;
            [[:alnum:]_./,+%-]) printf %s "$character" ;;
            [[:ascii:]]) printf '\\%s' "$character" ;;
            *) printf %s "$character" ;;
            esac
        done
        ;;
    esac
}

# _panewright_names COMMAND WORD HAS_DASHES: fills COMPREPLY with the names of the states that begin
# with the word; with those that begin with - only behind --.
_panewright_names() {
    local word=$2 quote='' line name
    case $word in
    \$\'*) return ;;
    \'*) quote=\' word=${word:1} ;;
    \"*)
        quote=\"
        word=${word:1}
        word=${word//\\\"/\"} word=${word//\\\$/\$} word=${word//\\\`/\`} word=${word//\\\\/\\}
        ;;
    *)
        # shellcheck disable=SC2162 # it takes the backslashes away
        IFS= read -d '' word <<<"$word"
        word=${word%$'\n'}
        ;;
    esac
    while IFS= read -r line; do
        printf -v name %b "$line"
        [[ $name && $name == "$word"* && ($3 || $name != -*) ]] &&
            COMPREPLY+=("$(_panewright_quoted "$name" "$quote")")
    done < <("${1/#\~/$HOME}" list --names 2>/dev/null)
}

# _panewright_argument COMMAND WORD: completes the argument of "apply", if one can follow. Fails where
# an option can, too.
_panewright_argument() {
    local i names=0 dashes=
    for ((i = 2; i < COMP_CWORD; i++)); do
        case $dashes${COMP_WORDS[i]} in
        --) dashes=1 ;;
        --application)
            ((++i))
            [[ ${COMP_WORDS[i]} == = ]] && ((++i))
            ((i < COMP_CWORD)) || return 0 # the application's name
            ;;
        -*) ;;
        *) ((++names)) ;;
        esac
    done
    [[ $2 == -* && ! $dashes ]] && return 1
    ((names > 0)) || _panewright_names "$1" "$2" "$dashes"
    return 0
}

_panewright() {
    local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} words='--help -h'
    local -A options=(
        [apply]='--application --'
        [list]='--json --names'
        [next-display]=''
        [menu]='--flat'
        [save]=''
        [settings]=''
        [quit]=''
    )
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words+=" --background --version -V ${!options[*]}"
    elif [[ ! $command || ! -v options[$command] ]]; then
        return
    elif [[ $command == apply ]] && _panewright_argument "$1" "$current"; then
        return
    else
        words+=" ${options[$command]}"
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

complete -F _panewright panewright
