#!/usr/bin/env bash
# One picture of every screen and sheet, light and dark, from the real program over the Mac-shaped root.
# screenshots.sh PROGRAM DIR
set -euo pipefail

program=$(readlink -f "$1")
mkdir -p "$2"
output=$(readlink -f "$2")
cd "$(dirname "$0")/.."
python3 tests/mac_root/mac_root.py build build/mac_root
scripts/mac-root-run.sh --output "$output" build/mac_root "$program" /System/Volumes/output
