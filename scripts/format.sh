#!/usr/bin/env bash
# Rewrites the C++ sources as .clang-format wants them.
set -euo pipefail

cd "$(dirname "$0")/.."
source scripts/sources.sh
cxx_sources | xargs "$(llvm_tool clang-format)" -i
