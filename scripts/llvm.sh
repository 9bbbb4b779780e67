# The versions of LLVM's tools on Linux. Sourced from bash; Python scripts read the assignments.
# shellcheck shell=bash
# shellcheck disable=SC2034

# clang-format and clang-tidy: the sources follow this version, and others differ in both.
lint_llvm=14
# clang for ./dev fuzz and ./dev macos-check, with its fuzzer and its linker.
clang_llvm=19
