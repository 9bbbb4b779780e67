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
cd "$bin"

# A generated folder is whole once its mark lies beside it.
generate() {
    local shape=$1 folder=$cache/$1-$version-$seed
    if [[ ! -e $folder.done ]]; then
        echo "Generating the $shape folder in $cache (once; ./dev bench --remove takes it away again) …" >&2
        rm -rf "$folder"
        mkdir -p "$cache"
        ./bench_tree_generator "$shape" "$seed" "$folder"
        sync
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
    local shape=$1 folder=$cache/$1-$version-$seed quoted
    local conditions=(--at-most floor 1.15 --at-least du 2 --at-least ncdu 2 --at-least gdu 5 --peak 40)
    quoted=$(printf %q "$folder")
    generate "$shape"
    peers=()
    if [[ -x ./bench_floor ]]; then
        peer floor "./bench_floor $quoted"
        if [[ $shape == deep ]]; then
            peer 'floor, one thread' "./bench_floor 1 $quoted"
        fi
    fi
    peer du "du -s $quoted"
    peer ncdu "ncdu -0 -o /dev/null $quoted"
    peer gdu "gdu -npc $quoted"
    if [[ $cold ]]; then
        # The goals are for what the processor has to do; this is the disk.
        conditions=(--before "sh -c 'sync; echo 3 >/proc/sys/vm/drop_caches'")
    fi
    ./bench_race --rounds "$rounds" "${conditions[@]}" 'corvane-cli scan' "./corvane-cli scan $quoted" "${peers[@]}"
    if [[ -x ./bench_scan ]]; then
        echo "  one scan by itself:"
        ./bench_scan "$folder" | sed 's/^/    /; s/bytes per folder node: .*/& (goal: at most 250, path index included)/'
    fi
    echo
}

echo "$(getconf _NPROCESSORS_ONLN) cores, $(if [[ $cold ]]; then echo cold; else echo warm; fi), $rounds rounds"
echo
echo "wide: 400,000 files in 40,000 folders, many of them at the top"
scan wide
echo "deep: the same below one chain of folders, where the scan has one thread by design"
scan deep
