#!/usr/bin/env bash
# Makes the Debian package of the release build, in build/package.
set -euo pipefail

cd "$(dirname "$0")/.."
if [[ $(uname -s) != Linux ]]; then
    echo "package: only the Debian package exists so far, and that is made on Linux" >&2
    exit 1
fi
cmake --build build/release --target package
ls build/package/*.deb
