# Completion of orvbank for bash, which asks the program itself what it knows.

_orvbank_commands()
{
    "$@" --help 2> /dev/null | sed -n '/^Subcommands:/,$ s/^  \([a-z]\{1,\}\) .*/\1/p'
}

_orvbank()
{
    local cur prev words cword
    _init_completion || return
    local command=()
    ((cword == 1)) || command=("${words[1]}")
    case $prev in
        --format) COMPREPLY=($(compgen -W 'csv gift aiken text' -- "$cur")) ;;
        --level) COMPREPLY=($(compgen -W '1 2 3' -- "$cur")) ;;
        *)
            if [[ $cur == -* ]]; then
                ((cword < 4)) || [[ ! ${words[1]} =~ ^(admin|prompts)$ ]] || command=("${words[1]}" x "${words[3]}")
                COMPREPLY=($(compgen -W "$(_parse_help "$1" "${command[*]} --help")" -- "$cur"))
            elif ((cword == 1)) || [[ $cword == 3 && ${words[1]} =~ ^(admin|prompts)$ ]]; then
                COMPREPLY=($(compgen -W "$(_orvbank_commands "$1" "${command[@]}")" -- "$cur"))
            else
                _filedir
            fi
            ;;
    esac
} && complete -F _orvbank orvbank
