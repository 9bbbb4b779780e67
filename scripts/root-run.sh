#!/usr/bin/env bash
# Runs one of our programs inside a Mac- or Linux-shaped root, as the user of its home folder.
#
#   scripts/root-run.sh [--output DIR] [--preload LIBRARY] [--administrator] [--home-mount] FOLDER PROGRAM [ARGUMENT…]
#   scripts/root-run.sh --check        reports the reason if it cannot run
#
# FOLDER is built by tests/shaped_root/shaped_root.py. The program sees FOLDER/root as "/" and cannot leave it; what it
# removes is removed there. The parts of this machine that it needs are mounted read-only where no scan goes: under
# /System/Volumes in a Mac-shaped root, under /run in a Linux-shaped one. DIR, if given, is the folder "output" there;
# LIBRARY is preloaded into the program. With --administrator the program can read every folder; with --home-mount the
# home folders are a separate mount of the same file system. A display of the desktop is passed through.
#
# Exit status: the program's own; 77 if bubblewrap cannot run, with the reason.
set -euo pipefail

if ! command -v bwrap >/dev/null; then
    echo "root-run: skipped: bubblewrap (bwrap) is not installed"
    exit 77
fi
if ! reason=$(bwrap --unshare-user --uid 1000 --gid 1000 --cap-drop ALL --ro-bind / / true 2>&1); then
    echo "root-run: skipped: bubblewrap cannot run here: $reason"
    exit 77
fi
if [[ ${1:-} == --check ]]; then
    exit 0
fi

output=
preload=
home_mount=
# A program started by root obeys file permissions only in a user namespace of its own, without capabilities.
capabilities=(--cap-drop ALL)
while [[ ${1:-} == --* ]]; do
    case $1 in
    --output)
        output=$(readlink -f "$2")
        shift
        ;;
    --preload)
        preload=$(readlink -f "$2")
        shift
        ;;
    --administrator) capabilities+=(--cap-add CAP_DAC_OVERRIDE) ;;
    --home-mount) home_mount=1 ;;
    esac
    shift
done
if [[ $# -lt 2 ]]; then
    echo "usage: root-run.sh [OPTION…] FOLDER PROGRAM [ARGUMENT…]" >&2
    exit 2
fi
folder=$(readlink -f "$1")
root=$folder/root
kind=$(<"$folder/.corvane-shaped-root")
program=$(readlink -f "$2")
shift 2

case $kind in
mac)
    home=/Users/studio
    user=(--uid 501 --gid 20)
    machine=/System/Volumes # holds this machine's system in "linux", the program, and what it writes
    system=$machine/linux
    run=/private/tmp
    temporary=$run
    mounts=(--tmpfs "$run" --tmpfs "$system")
    # The libraries' caches and settings must not be in the home folder under test.
    places=(--dir "$run/cache" --setenv XDG_CACHE_HOME "$run/cache"
        --dir "$run/config" --setenv XDG_CONFIG_HOME "$run/config")
    ;;
linux)
    home=/home/studio
    user=(--uid 1000 --gid 1000)
    machine=/run
    system=$machine/host
    run=/run
    temporary=/tmp
    mounts=(--tmpfs "$run" --tmpfs /var/cache/fontconfig --ro-bind "$root/proc/swaps" /proc/swaps)
    places=(--setenv QML_DISABLE_DISK_CACHE 1)
    ;;
esac
if [[ -n $home_mount ]]; then
    mounts+=(--bind "$root${home%/*}" "${home%/*}")
fi

options=(
    --unshare-user "${user[@]}" "${capabilities[@]}"
    --unshare-pid --unshare-net --unshare-uts --die-with-parent --new-session
    --bind "$root" /
    --proc /proc --dev /dev "${mounts[@]}"
    --ro-bind "$(dirname "$program")" "$machine/program"
    --clearenv
    --setenv HOME "$home" --setenv USER studio --setenv PATH /usr/bin:/bin:/usr/sbin:/sbin
    --setenv LANG C.UTF-8 --setenv TZ UTC --setenv TERM "${TERM:-dumb}"
    "${places[@]}"
    --perms 0700 --dir "$run/run" --setenv XDG_RUNTIME_DIR "$run/run"
    --chdir "$home"
)

# This machine's system: its folders, or symlinks to them if /bin, /lib and the like have been merged into /usr.
for name in usr etc bin sbin lib lib32 lib64; do
    if [[ -L /$name ]]; then
        options+=(--symlink "$(readlink "/$name")" "$system/$name")
    elif [[ -d /$name ]]; then
        options+=(--ro-bind "/$name" "$system/$name")
    fi
done

# A sanitizer aborts the program if it cannot read its suppressions.
sanitizers=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/sanitizers
options+=(--ro-bind "$sanitizers" "$run/sanitizers")
for name in QT_QPA_PLATFORM QT_QUICK_BACKEND QT_SCALE_FACTOR QT_FATAL_WARNINGS NO_COLOR ASAN_OPTIONS LSAN_OPTIONS \
    TSAN_OPTIONS UBSAN_OPTIONS; do
    if [[ -n ${!name:-} ]]; then
        options+=(--setenv "$name" "${!name//$sanitizers/$run/sanitizers}")
    fi
done
if [[ -n $output ]]; then
    options+=(--bind "$output" "$machine/output")
fi
if [[ -n $preload ]]; then
    options+=(--ro-bind "$preload" "$run/preload.so" --setenv LD_PRELOAD "$run/preload.so")
fi

# The parts of the desktop session that a window needs.
if [[ -n ${DISPLAY:-} && -d /tmp/.X11-unix ]]; then
    options+=(--ro-bind /tmp/.X11-unix "$temporary/.X11-unix" --setenv DISPLAY "$DISPLAY")
    if [[ -f ${XAUTHORITY:-$HOME/.Xauthority} ]]; then
        options+=(--ro-bind "${XAUTHORITY:-$HOME/.Xauthority}" "$run/xauthority" --setenv XAUTHORITY "$run/xauthority")
    fi
fi
if [[ -n ${WAYLAND_DISPLAY:-} && -S ${XDG_RUNTIME_DIR:-}/$WAYLAND_DISPLAY ]]; then
    options+=(--ro-bind "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" "$run/run/wayland-0"
        --setenv WAYLAND_DISPLAY wayland-0)
fi
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    options+=(--dev-bind-try /dev/dri /dev/dri --ro-bind-try /sys /sys)
fi

exec bwrap "${options[@]}" "$machine/program/$(basename "$program")" "$@"
