#!/usr/bin/env bash
# Every check that is not a test. Says which one runs, and what it finds.
set -uo pipefail

cd "$(dirname "$0")/.." || exit 1
source scripts/sources.sh

preset=dev
failed=()
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# Runs one check, whose output is shown only when it fails: check NAME COMMAND…
check() {
    local name=$1 start=$SECONDS
    shift
    echo "lint: $name"
    if "$@" >"$log" 2>&1; then
        echo "lint: $name: clean ($((SECONDS - start)) s)"
    else
        cat "$log"
        failed+=("$name")
    fi
}

# Runs one that tells how far it is: check_aloud NAME COMMAND…
check_aloud() {
    local name=$1 start=$SECONDS
    shift
    echo "lint: $name"
    if "$@"; then
        echo "lint: $name: clean ($((SECONDS - start)) s)"
    else
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

# What another version than the sources' finds is told, but is no fault.
tidy() {
    python3 scripts/clang_tidy.py --build "build/$preset" --clang-tidy "$(llvm_tool clang-tidy)" --cache build/lint && return
    ! is_wanted_llvm clang-tidy "what it found does not count"
}

if is_wanted_llvm clang-format "the layout is not checked"; then
    check clang-format formatting
fi
check shellcheck shell_check
check layers no_qt_in_the_engine
[[ $(uname -s) == Linux ]] && check desktop-files desktop_files
check_aloud build built
if [[ " ${failed[*]} " != *" build "* ]]; then
    check qmllint cmake --build "build/$preset" --target all_qmllint
    check_aloud clang-tidy tidy
fi

if [[ ${#failed[@]} -gt 0 ]]; then
    echo "lint: found something: ${failed[*]}"
    exit 1
fi
echo "lint: clean"
