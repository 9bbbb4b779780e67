#!/usr/bin/env bash
# Every check that is not a test. Prints what it finds; when all is clean, one line.
set -uo pipefail

cd "$(dirname "$0")/.." || exit 1
source scripts/sources.sh

preset=dev
failed=()
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# Runs one check; its output is shown only when it fails. check NAME COMMAND…
check() {
    local name=$1
    shift
    if ! "$@" >"$log" 2>&1; then
        cat "$log"
        failed+=("$name")
    fi
}

formatting() {
    cxx_sources | xargs "$(llvm_tool clang-format)" --dry-run -Werror
}

shell_check() {
    shell_scripts | xargs shellcheck --external-sources
}

# The engine's target does not link Qt, so such an include would not compile; this says so in words, and
# reaches headers that nothing includes yet.
no_qt_in_the_engine() {
    local hits
    hits=$(find src -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.mm' \) \
        -not -path '*/ui/*' -not -path 'src/core/store/*' -not -path 'src/shell/*' -not -path 'src/main/*' -print0 |
        xargs -0 grep -nE '^[[:space:]]*#[[:space:]]*(include|import)[[:space:]]*[<"]Q(t|[A-Z])')
    if [[ -n $hits ]]; then
        echo "The engine, the platform seam and the command line do not use Qt:"
        echo "$hits"
        return 1
    fi
}

# The files that a Linux desktop and its software catalogue read.
desktop_files() {
    desktop-file-validate packaging/linux/*.desktop && appstreamcli validate --no-net packaging/linux/*.metainfo.xml
}

# clang-tidy and qmllint look at what the build generates, too.
built() {
    source scripts/build.sh
    build "$preset"
}

check clang-format formatting
check shellcheck shell_check
check layers no_qt_in_the_engine
[[ $(uname -s) == Linux ]] && check desktop-files desktop_files
check build built
if [[ " ${failed[*]} " != *" build "* ]]; then
    check qmllint cmake --build "build/$preset" --target all_qmllint
    check clang-tidy python3 scripts/clang_tidy.py --build "build/$preset" \
        --clang-tidy "$(llvm_tool clang-tidy)" --cache build/lint
fi

if [[ ${#failed[@]} -gt 0 ]]; then
    echo "lint: found something: ${failed[*]}"
    exit 1
fi
echo "lint: clean"
