#!/usr/bin/env bash
# Runs one of our programs inside a Mac-shaped root, as the user of its home folder.
#
#   scripts/mac-root-run.sh [--output DIR] [--preload LIBRARY] FOLDER PROGRAM [ARGUMENT…]
#   scripts/mac-root-run.sh --check        says why it would not run, if so
#
# FOLDER is what tests/mac_root/mac_root.py built. The program sees FOLDER/root as "/" and cannot leave it; what
# it removes is removed there. The Linux system that it needs lies read-only under /System/Volumes, where no
# scan goes. DIR, if given, is /System/Volumes/output inside; LIBRARY is loaded into the program before its own. A
# display of the desktop is passed through.
#
# Exit status: the program's own; 77 where bubblewrap cannot run, with the reason.
set -euo pipefail

# Only inside a user namespace of its own, without capabilities, is the program bound by permissions even where
# it was started by root.
namespace=(--unshare-user --uid 501 --gid 20 --cap-drop ALL)

if ! command -v bwrap >/dev/null; then
    echo "mac-root-run: skipped: bubblewrap (bwrap) is not installed"
    exit 77
fi
if ! reason=$(bwrap "${namespace[@]}" --ro-bind / / true 2>&1); then
    echo "mac-root-run: skipped: bubblewrap cannot run here: $reason"
    exit 77
fi
if [[ ${1:-} == --check ]]; then
    exit 0
fi

output=
if [[ ${1:-} == --output ]]; then
    output=$(readlink -f "$2")
    shift 2
fi
preload=
if [[ ${1:-} == --preload ]]; then
    preload=$(readlink -f "$2")
    shift 2
fi
if [[ $# -lt 2 ]]; then
    echo "usage: mac-root-run.sh [--output DIR] [--preload LIBRARY] FOLDER PROGRAM [ARGUMENT…]" >&2
    exit 2
fi
root=$(readlink -f "$1")/root
program=$(readlink -f "$2")
shift 2

options=(
    "${namespace[@]}" --unshare-pid --unshare-net --unshare-uts --die-with-parent --new-session
    --bind "$root" /
    --proc /proc --dev /dev --tmpfs /private/tmp --tmpfs /System/Volumes/linux
    --ro-bind "$(dirname "$program")" /System/Volumes/program
    --clearenv
    --setenv HOME /Users/studio --setenv USER studio --setenv PATH /usr/bin:/bin:/usr/sbin:/sbin
    --setenv LANG C.UTF-8 --setenv TZ UTC --setenv TERM "${TERM:-dumb}"
    # Caches and settings of the libraries must not lie in the home folder that is being looked at.
    --dir /private/tmp/cache --setenv XDG_CACHE_HOME /private/tmp/cache
    --dir /private/tmp/config --setenv XDG_CONFIG_HOME /private/tmp/config
    --perms 0700 --dir /private/tmp/run --setenv XDG_RUNTIME_DIR /private/tmp/run
    --chdir /Users/studio
)

# The Linux system: its folders, or the links to them where /bin, /lib and the like have moved into /usr.
for name in usr etc bin sbin lib lib32 lib64; do
    if [[ -L /$name ]]; then
        options+=(--symlink "$(readlink "/$name")" "/System/Volumes/linux/$name")
    elif [[ -d /$name ]]; then
        options+=(--ro-bind "/$name" "/System/Volumes/linux/$name")
    fi
done

# A sanitizer ends the program where it cannot read its list of exceptions.
sanitizers=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/sanitizers
options+=(--ro-bind "$sanitizers" /private/tmp/sanitizers)
for name in QT_QPA_PLATFORM QT_QUICK_BACKEND QT_SCALE_FACTOR QT_FATAL_WARNINGS NO_COLOR ASAN_OPTIONS LSAN_OPTIONS \
    TSAN_OPTIONS UBSAN_OPTIONS; do
    if [[ -n ${!name:-} ]]; then
        options+=(--setenv "$name" "${!name//$sanitizers//private/tmp/sanitizers}")
    fi
done
if [[ -n $output ]]; then
    options+=(--bind "$output" /System/Volumes/output)
fi
if [[ -n $preload ]]; then
    options+=(--ro-bind "$preload" /private/tmp/preload.so --setenv LD_PRELOAD /private/tmp/preload.so)
fi

# The desktop, as far as a window needs it.
if [[ -n ${DISPLAY:-} && -d /tmp/.X11-unix ]]; then
    options+=(--ro-bind /tmp/.X11-unix /private/tmp/.X11-unix --setenv DISPLAY "$DISPLAY")
    if [[ -f ${XAUTHORITY:-$HOME/.Xauthority} ]]; then
        options+=(--ro-bind "${XAUTHORITY:-$HOME/.Xauthority}" /private/tmp/xauthority
            --setenv XAUTHORITY /private/tmp/xauthority)
    fi
fi
if [[ -n ${WAYLAND_DISPLAY:-} && -S ${XDG_RUNTIME_DIR:-}/$WAYLAND_DISPLAY ]]; then
    options+=(--ro-bind "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" /private/tmp/run/wayland-0
        --setenv WAYLAND_DISPLAY wayland-0)
fi
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    options+=(--dev-bind-try /dev/dri /dev/dri --ro-bind-try /sys /sys)
fi

exec bwrap "${options[@]}" "/System/Volumes/program/$(basename "$program")" "$@"
