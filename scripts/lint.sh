#!/usr/bin/env bash
# Runs every check that is not a test, and reports which one runs and what it finds. lint.sh [--all]: slow checks only
# cover what has changed since the upstream branch; with --all, or without such a branch, they cover everything.
set -uo pipefail

cd "$(dirname "$0")/.." || exit 1
source scripts/sources.sh

preset=dev
case "${1:-}" in
'') base=$(git merge-base HEAD '@{upstream}' 2>/dev/null) ;;
--all) base= ;;
*)
    echo "lint: there is no option \"$1\"; --all checks everything" >&2
    exit 2
    ;;
esac
failed=()
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# Runs one check and shows its output only if it fails: check NAME COMMAND…
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

# Runs a check that reports its own progress: check_aloud NAME COMMAND…
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

# Whether the screens, or the C++ types that they use, have changed.
screens_have_changed() {
    [[ -z $base ]] && return
    {
        git diff --name-only "$base"
        git ls-files --others --exclude-standard
    } | grep -qE '\.qml$|^src/(.*/ui|core/store)/.*\.h$|CMakeLists\.txt$'
}

# clang-tidy and qmllint also need the files that the build generates.
built() {
    source scripts/build.sh
    if [[ -n $base ]]; then
        configure "$preset"
    else
        build "$preset"
    fi
}

# Findings of another version than the sources' are shown, but do not fail.
tidy() {
    python3 scripts/clang_tidy.py --build "build/$preset" --clang-tidy "$(llvm_tool clang-tidy)" --cache build/lint \
        ${base:+--since "$base"} && return
    ! is_wanted_llvm clang-tidy "what it found does not count"
}

[[ -z $base ]] || echo "lint: what has changed since ${base:0:12}; --all looks at everything"
if is_wanted_llvm clang-format "the layout is not checked"; then
    check clang-format formatting
fi
check shellcheck shell_check
check yamllint yamllint --strict .github .yamllint
check layers python3 scripts/layers.py
check_aloud build built
if [[ " ${failed[*]} " != *" build "* ]]; then
    screens_have_changed && check qmllint cmake --build "build/$preset" --target all_qmllint
    check_aloud clang-tidy tidy
fi

if [[ ${#failed[@]} -gt 0 ]]; then
    echo "lint: found something: ${failed[*]}"
    exit 1
fi
echo "lint: clean"
