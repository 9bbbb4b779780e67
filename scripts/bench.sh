#!/usr/bin/env bash
# Runs the benchmarks, each beside its goals and other programs in the same run.
# bench.sh [NAME…] [--rounds N] [--cold] [--remove]
# On a busy machine, "chrt -f 1 ./dev bench …" as root keeps other processes from interrupting.
#   scan        scanning three generated folders of 400,000 files
#   measure     measuring two of them, one and both at once, as the breakdown and the cleanup catalogue do
#   remove      moving 100,000 files to the Trash, and deleting folders of 1,000,000 files, 5,000 and 100,000 levels
#   summary     what recognising build folders adds to the summary of 1,000,000 files
#   apps        finding the leftovers of 400 applications among 60,000 items of the Library
#   duplicates  finding duplicates among 3 GB of files
#   lists       filtering and sorting 500,000 files
#   publish     how long publishing a scan of 1,000,000 files blocks the window (needs Qt)
#   window      how fast the window starts and draws, and its memory (needs Qt, and Xvfb if there is no display); with
#               the software renderer, or with QT_QUICK_BACKEND= in the environment the one that Qt chooses
#               Without a name, all of them.
#   --rounds N  how often each program runs (7)
#   --cold      scan, duplicates: empty the system's disk cache before each run (needs root); otherwise runs are warm
#   --remove    remove the generated folders, which are kept for the next run, and do nothing else
set -euo pipefail

cd "$(dirname "$0")/.."
# shellcheck source=scripts/packages.sh
source scripts/packages.sh
# shellcheck source=scripts/build.sh
source scripts/build.sh

cache=${XDG_CACHE_HOME:-$HOME/.cache}/corvane-bench
seed=7
version=1 # of what the generator makes of a seed
rounds=7
cold=
remove=
names=()
while [[ $# -gt 0 ]]; do
    case $1 in
    scan | measure | remove | summary | apps | duplicates | lists | publish | window) names+=("$1") ;;
    --rounds)
        rounds=${2:-}
        if [[ ! $rounds =~ ^[1-9][0-9]*$ ]]; then
            echo "bench: --rounds needs a number" >&2
            exit 2
        fi
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

[[ ${#names[@]} -gt 0 ]] || names=(scan measure remove summary apps duplicates lists publish window)
require_packages build bench

# Qt is needed only by the window, so the benchmarks that need it have a separate build.
window_targets=()
window_programs=$PWD/build/bench-window/bin
for name in "${names[@]}"; do
    case $name in
    publish) window_targets+=(bench_publish) ;;
    window) [[ $(uname -s) == Darwin ]] || window_targets+=(bench_window corvane) ;;
    esac
done
if [[ ${#window_targets[@]} -gt 0 ]]; then
    require_packages ui
    [[ " ${names[*]} " != *" window "* ]] || require_packages window display
    require_assets
    build bench-window "${window_targets[@]}"
fi
if [[ ! "${names[*]}" =~ ^(publish|window| )*$ ]] || [[ " ${names[*]} " == *" window "* ]]; then
    build bench
    cd build/bench/bin
fi

# A generated folder is complete once its marker file exists.
generate() {
    local shape=$1 folder=$cache/$1-$version-$seed
    if [[ ! -e $folder.done ]]; then
        echo "Generating the $shape folder in $cache (once; ./dev bench --remove takes it away again) …" >&2
        rm -rf "$folder"
        mkdir -p "$cache"
        case $shape in
        duplicates) ./bench_duplicates_generator "$seed" "$folder" ;;
        *) ./bench_tree_generator "$shape" "$seed" "$folder" ;;
        esac
        sync
        touch "$folder.done"
    fi
}

# Whether a benchmark has been built: some use calls of one system. is_here NAME PROGRAM
is_here() {
    [[ ! -x $2 ]] || return 0
    echo "$1: not on this system"
    echo
    return 1
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
    local shape=$1 folder=$cache/$1-$version-$seed quoted threads
    local conditions=(--at-most floor 1.10 --at-least du 2 --at-least ncdu 2 --at-least gdu 5 --peak 40)
    quoted=$(printf %q "$folder")
    generate "$shape"
    peers=()
    if [[ $cold ]]; then
        # How fast the floor is on a cold cache depends on the disk: some are fastest with one thread, some with many.
        conditions=(--before "sh -c 'sync; echo 3 >/proc/sys/vm/drop_caches'" --at-most-fastest floor 1.25
            --at-least du 2 --at-least gdu 2)
        for threads in 1 2 4 8 16 32; do
            [[ ! -x ./bench_floor ]] || peer "floor, $threads threads" "./bench_floor $threads $quoted"
        done
    elif [[ -x ./bench_floor ]]; then
        peer floor "./bench_floor $quoted"
    fi
    peer du "du -s $quoted"
    peer ncdu "ncdu -0 -o /dev/null $quoted"
    peer gdu "gdu -npc $quoted"
    ./bench_race --rounds "$rounds" "${conditions[@]}" 'corvane-cli scan' "./corvane-cli scan $quoted" "${peers[@]}"
    if [[ -x ./bench_scan ]]; then
        echo "  one scan by itself:"
        ./bench_scan "$folder" | sed 's/^/    /'
    fi
    echo
}

all_scans() {
    echo "wide: 400,000 files in 40,000 folders, many of them at the top"
    scan wide
    echo "deep: the same below one chain of folders"
    scan deep
    echo "uneven: the same, nine tenths of it in one folder at the top"
    scan uneven
}

# A home folder in which two places of the catalogue are the two generated folders, entered through links.
measure() {
    local home=$cache/home wide=$cache/wide-$version-$seed deep=$cache/deep-$version-$seed caches=.cache
    [[ $(uname -s) != Darwin ]] || caches=Library/Caches
    generate wide
    generate deep
    rm -rf "$home"
    mkdir -p "$home/Library" "$home/.gradle"
    ln -s "$wide" "$home/$caches"
    ln -s "$deep" "$home/.gradle/caches"
    local one two in_home=env\ -u\ GRADLE_USER_HOME\ HOME=$home\ XDG_CACHE_HOME=$home/.cache\ XDG_CONFIG_HOME=$home/config\ XDG_DATA_HOME=$home/data
    printf -v one %q "$wide"
    printf -v two %q "$deep"
    peers=()
    if [[ -x ./bench_floor ]]; then
        peer floor "./bench_floor $one"
    fi
    peer du "du -s $one"
    echo "one location: 400,000 files"
    ./bench_race --rounds "$rounds" --at-most floor 1.1 'allocatedSize' "./bench_measure $one" "${peers[@]}"
    echo "two big locations of the catalogue: 400,000 files in each"
    peers=()
    peer du "du -s $one $two"
    ./bench_race --rounds "$rounds" --at-least du 1.8 'measureAll' "$in_home ./corvane-cli cleanup --json" "${peers[@]}"
    echo
}

remove() {
    mkdir -p "$cache"
    rm -rf "$cache/removed" # of a run that was ended
    ./bench_remove "$rounds" "$cache/removed"
    echo
}

# Messages of the programs about a missing message bus and the like are not results.
window() {
    local folder=$cache/files-$version sandbox=$cache/window backend=${QT_QUICK_BACKEND-software}
    local launcher=()
    if [[ ! -e $folder.done ]]; then
        echo "Generating 1,000,000 files in $cache (once; ./dev bench --remove takes them away again) …" >&2
        rm -rf "$folder"
        mkdir -p "$cache"
        ./bench_remove make 1000000 "$folder"
        touch "$folder.done"
    fi
    rm -rf "$sandbox"
    mkdir -p "$sandbox"/{home,config/Corvane,cache,data}
    [[ -n ${DISPLAY:-} ]] || launcher=(xvfb-run -a -s "-screen 0 1920x1200x24")
    echo "window: ${backend:-the default} renderer, xcb, on $(if [[ -n ${DISPLAY:-} ]]; then
        echo "$DISPLAY"
    else
        echo Xvfb
    fi)"
    env -u DBUS_SESSION_BUS_ADDRESS -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb QT_QUICK_BACKEND="$backend" \
        "${launcher[@]}" "$window_programs/bench_window" "$rounds" "$window_programs/corvane" "$folder" "$sandbox" \
        2>"$sandbox/messages" || {
        cat "$sandbox/messages" >&2
        return 1
    }
}

# jdupes compares bytes where the others use fingerprints; it is included to show what that costs.
duplicates() {
    local folder=$cache/duplicates-$version-$seed quoted
    local conditions=(--at-most floor 1.10 --at-least rmlint 1 --at-least rdfind 1 --at-least fdupes 1 --peak 40)
    quoted=$(printf %q "$folder")
    generate duplicates
    peers=()
    peer floor "./bench_duplicates_floor $quoted"
    peer rmlint "rmlint -a sha256 -T df -o json:stdout $quoted"
    peer rdfind "rdfind -checksum sha256 -dryrun true -makeresultsfile false $quoted"
    peer fdupes "fdupes -q $quoted"
    peer jdupes "jdupes -q $quoted"
    if [[ $cold ]]; then
        conditions+=(--before "sh -c 'sync; echo 3 >/proc/sys/vm/drop_caches'")
    fi
    ./bench_race --rounds "$rounds" "${conditions[@]}" \
        'corvane-cli duplicates' "./corvane-cli duplicates $quoted" "${peers[@]}"
    echo
}

echo "$(getconf _NPROCESSORS_ONLN) cores, $(if [[ $cold ]]; then echo cold; else echo warm; fi), $rounds rounds"
echo
for name in "${names[@]}"; do
    case $name in
    scan) all_scans ;;
    measure) measure ;;
    remove)
        if is_here remove ./bench_remove; then
            echo "remove: the Trash, the tree, and folders for good"
            remove
        fi
        ;;
    summary)
        echo "summary: recognising build folders"
        ./bench_summary "$rounds"
        echo
        ;;
    apps)
        echo "apps: matching the items of the Library"
        ./bench_apps "$rounds"
        echo
        ;;
    duplicates)
        echo "duplicates: 3 GB in files of 1 to 60 MB"
        duplicates
        ;;
    lists)
        echo "lists: filters and orders of 500,000 files"
        ./bench_lists "$rounds"
        echo
        ;;
    publish)
        "$window_programs/bench_publish" "$rounds"
        echo
        ;;
    window)
        if is_here window "$window_programs/bench_window"; then
            window
            echo
        fi
        ;;
    esac
done
