#!/usr/bin/env bash
# Builds the library that shows a program in a shaped root the capacity and file sizes of the disk that the root
# describes. root-disk.sh OUTPUT
set -euo pipefail

cd "$(dirname "$0")/.."
exec c++ -std=c++20 -O1 -shared -fPIC -Itests -o "$1" tests/screenshots/shaped_disk.cpp
