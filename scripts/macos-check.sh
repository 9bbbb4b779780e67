#!/usr/bin/env bash
# Compiles every source of the macOS build on a machine that is not a Mac, and links corvane-cli: see macos_check.py.
#
# usage: scripts/macos-check.sh SDK [HEADERS]
set -euo pipefail

cd "$(dirname "$0")/.."
if [[ $(uname -s) != Linux ]]; then
    echo "macos-check: this checks on Linux what a Mac compiles by itself: ./dev test" >&2
    exit 2
fi
# shellcheck source=scripts/packages.sh
source scripts/packages.sh
require_packages build ui macos-check
exec python3 -B scripts/macos_check.py "$@"
