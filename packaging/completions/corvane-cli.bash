# Completion of corvane-cli for bash.

_corvane_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local command='' word onlyPaths='' isValue=''
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ -n $isValue ]]; then
            isValue=''
        elif [[ $word == -- ]]; then
            onlyPaths=1
        elif [[ -z $command && ($word == --units || $word == --color) ]]; then
            isValue=1
        elif [[ -z $command && $word != -* ]]; then
            command=$word
        fi
    done

    COMPREPLY=()
    local values=''
    case $previous in
    --units) values='decimal binary bytes' ;;
    --color) values='auto always never' ;;
    --sort) values='size name modified' ;;
    esac
    if [[ $command == scan && $previous == --sort ]]; then
        values+=' files'
    fi
    if [[ -z $onlyPaths && -n $values ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
        return
    fi
    local commands='scan map breakdown snapshots cleanup apps duplicates large old protected remove help'
    if [[ -z $command ]]; then
        if [[ -z $onlyPaths ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$commands --json --units --color --no-progress --help -h --version -V " -- "$current")
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

    local options='--json --units --color --no-progress --help -h '
    local filter='--exclude --one-file-system '
    case $command in
    scan) options+="--depth --top --sort --files --apparent $filter" ;;
    map) options+="--size --svg --apparent $filter" ;;
    breakdown) options+='--scan ' ;;
    duplicates) options+="--top $filter" ;;
    large) options+="--min --type --name --sort --top --apparent $filter" ;;
    old) options+="--months --min --name --sort --top --apparent $filter" ;;
    remove) options+='--permanently --yes -y --dry-run ' ;;
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
