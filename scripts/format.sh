#!/usr/bin/env bash
# Formats the C++ sources according to .clang-format.
set -euo pipefail

cd "$(dirname "$0")/.."
source scripts/sources.sh
sources() {
    if is_wanted_llvm clang-format "only files with changes of your own are rewritten" >&2; then
        cxx_sources
    else
        # Other versions format some lines differently, which would pollute the change.
        comm -12 <(cxx_sources) <({
            git diff --name-only HEAD
            git ls-files --others --exclude-standard
        } | LC_ALL=C sort -u)
    fi
}
sources | xargs --no-run-if-empty "$(llvm_tool clang-format)" -i
