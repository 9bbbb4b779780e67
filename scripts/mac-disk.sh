#!/usr/bin/env bash
# Builds the library that gives a program in the Mac-shaped root the volume and the file sizes of the Mac whose container
# "diskutil" reports there. mac-disk.sh OUTPUT
set -euo pipefail

cd "$(dirname "$0")/.."
exec c++ -std=c++20 -O1 -shared -fPIC -Itests -o "$1" tests/screenshots/mac_disk.cpp
