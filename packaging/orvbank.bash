# Completion of orvbank for bash; belongs in /usr/share/bash-completion/completions/orvbank.
_orvbank() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} sub=${COMP_WORDS[1]} words=
    case $prev in
    --format) words='csv gift aiken text' ;;
    --level) words='1 2 3' ;;
    --count) return ;;
    *)
        if [ "$COMP_CWORD" -eq 1 ]; then
            words='create check import export prompts list search show set delete stats sheet admin backup restore --help --version'
        elif [[ $cur == -* ]]; then
            case $sub in
            create | check) words='--from --format --level --help' ;;
            import) words='--format --level --replace --update --skip-known --skip-unfit --shuffle --dry-run --help' ;;
            export) words='--format --level --help' ;;
            list | search) words='--level --help' ;;
            delete) words='--yes --help' ;;
            stats) words='--from --format --hardest --easiest --csv --reset --help' ;;
            sheet) words='--count --help' ;;
            admin) words='--generate --help' ;;
            backup) words='--for-others --help' ;;
            prompts) words='--replace --help' ;;
            *) words='--help' ;;
            esac
        elif [ "$COMP_CWORD" -eq 3 ]; then
            case $sub in
            admin) words='list add password rename remove' ;;
            prompts) words='import export' ;;
            esac
        fi
        ;;
    esac
    if [ -n "$words" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
        compopt -o filenames
    fi
}
complete -F _orvbank orvbank
