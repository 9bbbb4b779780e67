# Completion of corvane-cli for bash.

_corvane_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local command='' word onlyPaths=''
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word == -- ]]; then
            onlyPaths=1
        elif [[ -z $command && $word != -* ]]; then
            command=$word
        fi
    done

    COMPREPLY=()
    local commands='scan map breakdown snapshots cleanup apps duplicates large old protected remove help'
    if [[ -z $command ]]; then
        if [[ -z $onlyPaths ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$commands --json --help -h --version -V " -- "$current")
        fi
        # A path in the place of a command is scanned.
        if [[ ${#COMPREPLY[@]} -eq 0 ]]; then
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
        fi
        return
    fi
    if [[ $command == help ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
        return
    fi

    local options='--json --help -h '
    case $command in
    map) options+='--size --svg ' ;;
    breakdown) options+='--scan ' ;;
    large) options+='--min --type --name ' ;;
    old) options+='--months --min --name ' ;;
    remove) options+='--permanently --yes -y ' ;;
    esac

    if [[ -z $onlyPaths && $command == map && $previous == --size ]]; then
        mapfile -t COMPREPLY < <(compgen -W '900x600 1600x1000 1920x1080' -- "$current")
        return
    fi
    if [[ -z $onlyPaths && $command == large && $previous == --type ]]; then
        mapfile -t COMPREPLY < <(compgen -W 'video image audio archive diskImage app document code other' -- "$current")
        return
    fi
    if [[ -z $onlyPaths && $command == old && $previous == --months ]]; then
        mapfile -t COMPREPLY < <(compgen -W '6 12 24 36 60' -- "$current")
        return
    fi
    if [[ -z $onlyPaths && $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi

    # These take no path but what an option wants.
    if [[ $command == snapshots || $command == cleanup || $command == apps || \
        ($command == breakdown && $previous != --scan) ]]; then
        return
    fi

    compopt -o filenames
    local kind=-f
    if [[ $command == scan || $command == duplicates || $command == large || $command == old || \
        $command == breakdown || ($command == map && $previous != --svg) ]]; then
        kind=-d
    fi
    mapfile -t COMPREPLY < <(compgen "$kind" -- "$current")
}

complete -F _corvane_cli corvane-cli
