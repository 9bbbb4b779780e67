#!/usr/bin/env bash
# Opens the window over an example disk of a kind, "mac" or "linux", which is created anew each time.
# demo.sh PROGRAM KIND
set -euo pipefail

cd "$(dirname "$0")/.."
program=$1
kind=$2
folder=build/roots/$kind
home=/Users/studio
[[ $kind == mac ]] || home=/home/studio
python3 tests/shaped_root/shaped_root.py build "$kind" "$folder"
disk=$folder/disk.so
scripts/root-disk.sh "$disk"
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    exec scripts/root-run.sh --preload "$disk" "$folder" "$program" "$home"
fi
echo "No display here (neither DISPLAY nor WAYLAND_DISPLAY is set): this is the report of the example's home folder."
exec scripts/root-run.sh --preload "$disk" "$folder" "$(dirname "$program")/corvane-cli" scan "$home"
