#!/usr/bin/env bash
# One screenshot of every screen and sheet, light and dark, from the real program over the Mac-shaped root and over the
# Linux-shaped one; the names of the latter's contain "-linux".
#
#   screenshots.sh PROGRAM DIR [NAME…]            saves them to DIR; with names only those, such as overview-linux-light
#   screenshots.sh --docs PROGRAM DIR             and copies those used in the documents to docs/screenshots
#   screenshots.sh --check COMPARE PROGRAM DIR    and compares docs/screenshots with them using the program COMPARE
#
# Exit status of --check: 1 if a screenshot is out of date; 77 if that cannot be determined, with the reason.
set -euo pipefail

mode=
case $1 in
--docs)
    mode=docs
    shift
    ;;
--check)
    mode=check
    compare=$(readlink -f "$2")
    shift 2
    ;;
esac
program=$(readlink -f "$1")
mkdir -p "$2"
output=$(readlink -f "$2")
shift 2
cd "$(dirname "$0")/.."

if [[ $mode == check ]]; then
    # Other versions of Qt or FreeType render text slightly differently.
    if ! grep -qx 'VERSION_CODENAME=bookworm' /etc/os-release; then
        echo "screenshots: skipped: the pictures of the documents are made on Debian 12, and compared only there"
        exit 77
    fi
    scripts/root-run.sh --check
fi

wanted=("$@") # none for all of them
if [[ -n $mode ]]; then
    mapfile -t wanted < <(find docs/screenshots -name '*.png' -printf '%f\n' | sed 's/\.png$//')
fi
declare -A inside=([mac]=/System/Volumes/output [linux]=/run/output)
for kind in mac linux; do
    names=()
    for name in "${wanted[@]}"; do
        if [[ $name == *-linux-* ]]; then of=linux; else of=mac; fi
        [[ $of != "$kind" ]] || names+=("$name")
    done
    [[ ${#wanted[@]} -eq 0 || ${#names[@]} -gt 0 ]] || continue
    python3 tests/shaped_root/shaped_root.py build "$kind" "build/roots/$kind"
    scripts/root-run.sh --output "$output" "build/roots/$kind" "$program" "${inside[$kind]}" "${names[@]}"
done

case $mode in
docs)
    for picture in docs/screenshots/*.png; do
        cp "$output/$(basename "$picture")" "$picture"
    done
    ;;
check)
    if ! "$compare" docs/screenshots "$output"; then
        echo "screenshots: these pictures are out of date; \"./dev screenshots --docs\" makes them anew"
        exit 1
    fi
    ;;
esac
