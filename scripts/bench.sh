#!/usr/bin/env bash
# The benchmarks, each beside its goals and other programs in the same run. bench.sh [scan] [--rounds N]
# [--cold] [--remove]
#   scan        scanning two generated folders of 400,000 files (the only one, and the default)
#   --rounds N  how often each program runs (7)
#   --cold      with the system's disk cache emptied before each run (needs root); without, all runs are warm
#   --remove    remove the generated folders, which are kept for the next run, and do nothing else
set -euo pipefail

cd "$(dirname "$0")/.."
# shellcheck source=scripts/build.sh
source scripts/build.sh

cache=${XDG_CACHE_HOME:-$HOME/.cache}/corvane-bench
seed=7
version=1 # of what the generator makes of a seed
rounds=7
cold=
remove=
while [[ $# -gt 0 ]]; do
    case $1 in
    scan) ;;
    --rounds)
        rounds=${2:?--rounds needs a number}
        shift
        ;;
    --cold) cold=yes ;;
    --remove) remove=yes ;;
    *)
        echo "bench: unknown option $1" >&2
        exit 2
        ;;
    esac
    shift
done

if [[ $remove ]]; then
    rm -rf "$cache"
    exit
fi
if [[ $cold && $(id -u) -ne 0 ]]; then
    echo "bench: only root may empty the disk cache, which --cold needs" >&2
    exit 2
fi

bin=${CORVANE_BENCH_BIN:-}
if [[ ! $bin ]]; then
    build bench
    bin=build/bench/bin
fi
bin=$(cd "$bin" && pwd)

# A generated folder is whole once its mark lies beside it.
generate() {
    local shape=$1 folder=$cache/$1-$version-$seed
    if [[ ! -e $folder.done ]]; then
        echo "Generating the $shape folder in $cache (once; ./dev bench --remove takes it away again) …" >&2
        rm -rf "$folder"
        mkdir -p "$cache"
        "$bin/bench_tree_generator" "$shape" "$seed" "$folder"
        sync -f "$cache"
        touch "$folder.done"
    fi
}

# Adds a program to the race if it is installed: peer NAME COMMAND
peers=()
peer() {
    if command -v "${2%% *}" >/dev/null; then
        peers+=("$1" "$2")
    else
        echo "  ($1 is not installed and left out)"
    fi
}

scan() {
    local shape=$1 folder=$cache/$1-$version-$seed
    generate "$shape"
    peers=()
    if [[ -x $bin/bench_floor ]]; then
        peer floor "$bin/bench_floor $folder"
        if [[ $shape == deep ]]; then
            peer 'floor, one thread' "$bin/bench_floor 1 $folder"
        fi
    fi
    peer du "du -s $folder"
    peer ncdu "ncdu -0 -o /dev/null $folder"
    peer gdu "gdu -npc $folder"
    local before=()
    if [[ $cold ]]; then
        before=(--before "sh -c 'sync; echo 3 >/proc/sys/vm/drop_caches'")
    fi
    "$bin/bench_race" --rounds "$rounds" "${before[@]}" --at-most floor 1.15 --at-least du 2 --at-least ncdu 2 \
        --at-least gdu 5 --peak 40 'corvane-cli scan' "$bin/corvane-cli scan $folder" "${peers[@]}"
    echo "  alone:"
    "$bin/bench_scan" "$folder" | sed 's/^/    /; s/^\(    bytes per folder node: .*\)$/\1 (goal: at most 250, path index included)/'
    echo
}

echo "$(nproc) cores, $(if [[ $cold ]]; then echo cold; else echo warm; fi), $rounds rounds"
echo
echo "wide: 400,000 files in 40,000 folders, many of them at the top"
scan wide
echo "deep: the same below one chain of folders, where the scan has one thread by design"
scan deep
