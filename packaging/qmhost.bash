# Completion of qmhost for bash. It asks the program's own help, and so knows every command, kind and option.

# The names in one part of a help ("Subcommands:", "Positionals:"), the first word of each line.
_qmhost_part() {
    sed -n "/^$1:/,/^\$/ s/^  \([^ ]\+\) .*/\1/p" <<<"$2"
}

_qmhost() {
    local program=$1 word=$2 before=$3
    local -a commands=() words=()
    local help place=0 i
    help=$("$program" --help 2>/dev/null)
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if ((place == 0)) && grep -qxF -e "${COMP_WORDS[i]}" <<<"$(_qmhost_part Subcommands "$help")"; then
            commands+=("${COMP_WORDS[i]}")
            help=$("$program" "${commands[@]}" --help 2>/dev/null)
        elif [[ ${COMP_WORDS[i]} != -* ]] && ! _qmhost_takes_value "${COMP_WORDS[i - 1]}" "$help"; then
            ((++place))
        fi
    done
    if _qmhost_takes_value "$before" "$help"; then
        compopt -o default 2>/dev/null
        COMPREPLY=()
        return
    fi
    if [[ $word == -* ]]; then
        words=($(sed -n 's/^  \(-[a-z],\)\?\(--[a-z-]\+\).*/\2/p' <<<"$help"))
    elif ((place == 0)) && grep -q '^Subcommands:' <<<"$help"; then
        words=($(_qmhost_part Subcommands "$help"))
    else
        words=($(_qmhost_choices "$place" "$help"))
        ((${#words[@]})) || compopt -o default 2>/dev/null
    fi
    COMPREPLY=($(compgen -W "${words[*]}" -- "$word"))
}

# Whether the help tells of an option that something stands behind.
_qmhost_takes_value() {
    [[ $1 == -* ]] && grep -qE -e "^  (-[a-z],)?$1 [A-Z]" <<<"$2"
}

# What may stand in a place, where that is told: the words of a set, the names of the screens.
_qmhost_choices() {
    local line
    line=$(sed -n '/^Positionals:/,/^$/ s/^  //p' <<<"$2" | sed -n "$(($1 + 1))p")
    case $line in
        SCREEN*) sed -n 's/^Screens: //p' <<<"$2" ;;
        *{*}*) line=${line#*\{} && tr , ' ' <<<"${line%%\}*}" ;;
    esac
}

complete -F _qmhost qmhost
