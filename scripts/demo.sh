#!/usr/bin/env bash
# Opens the window over an example Mac's disk, made anew each time. demo.sh PROGRAM
set -euo pipefail

cd "$(dirname "$0")/.."
program=$1
python3 tests/mac_root/mac_root.py build build/mac_root
disk=build/mac_root/mac_disk.so
scripts/mac-disk.sh "$disk"
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    exec scripts/mac-root-run.sh --preload "$disk" build/mac_root "$program" /Users/studio
fi
echo "No display here (neither DISPLAY nor WAYLAND_DISPLAY is set): this is the report of the example's home folder."
exec scripts/mac-root-run.sh --preload "$disk" build/mac_root "$(dirname "$program")/corvane-cli" scan /Users/studio
