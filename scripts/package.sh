#!/usr/bin/env bash
# Builds the Debian package of the release build in build/package, and checks it.
set -euo pipefail

cd "$(dirname "$0")/.."
if [[ $(uname -s) != Linux ]]; then
    echo "package: the Debian package is made on Linux; for a Mac there are the scripts in packaging/macos" >&2
    exit 1
fi
rm -rf build/package
cmake --build build/release --target package
for package in build/package/*.deb; do
    echo "$package"
    lintian --fail-on error --tag-display-limit 0 "$package"
done
