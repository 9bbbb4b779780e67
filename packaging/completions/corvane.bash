# Completion of corvane for bash.

_corvane()
{
    local word=${COMP_WORDS[COMP_CWORD]}
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$word")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    fi
}
complete -F _corvane corvane
