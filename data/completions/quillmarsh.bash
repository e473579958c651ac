_quillmarsh()
{
    [ "$COMP_CWORD" -eq 1 ] || return
    COMPREPLY=($(compgen -W "launch swop preferences check-for-updates feedback help welcome clear-all quit --help --version" -- "$2"))
}
complete -F _quillmarsh quillmarsh
