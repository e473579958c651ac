_quillmarsh()
{
    local words=
    if [ "$COMP_CWORD" -eq 1 ]; then
        words="launch swop preferences check-for-updates feedback help welcome clear-all quit list get copy paste delete import export --help --version"
    else
        case ${COMP_WORDS[1]} in
        import | export)
            case $2 in
            -*) words="--yes" ;;
            *)
                COMPREPLY=($(compgen -f -- "$2"))
                return
                ;;
            esac
            ;;
        list) words="--json --null" ;;
        get | paste | delete) words=$(quillmarsh list 2>/dev/null | head -n 50 | cut -f 1) ;;
        esac
    fi
    COMPREPLY=($(compgen -W "$words" -- "$2"))
}
complete -F _quillmarsh quillmarsh
