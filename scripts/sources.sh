# Lists of the repository's hand-written files. Sourced from the repository's root.
# shellcheck shell=bash
# shellcheck source=scripts/llvm.sh
source scripts/llvm.sh

# C++ and Objective-C++ sources and headers.
cxx_sources() {
    find src tests bench -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.mm' \) | LC_ALL=C sort
}

# Shell scripts, by extension or by shebang line.
shell_scripts() {
    {
        find scripts tests packaging bench -type f -name '*.sh'
        grep -lE '^#! ?(/usr)?/bin/(env )?(ba)?sh' -r dev .ci scripts tests packaging bench
    } | LC_ALL=C sort -u
}

# The wanted version of an LLVM tool, or else the installed one. Homebrew's names have no version suffix.
llvm_tool() {
    if [[ $(uname -s) == Darwin ]]; then
        echo "$(brew --prefix llvm)/bin/$1"
    elif command -v "$1-$lint_llvm" >/dev/null; then
        echo "$1-$lint_llvm"
    else
        echo "$1"
    fi
}

# Whether the tool has the wanted version; reports it if not: is_wanted_llvm TOOL WHAT_FOLLOWS
is_wanted_llvm() {
    local version
    version=$("$(llvm_tool "$1")" --version | sed -n 's/.*version \([0-9]*\).*/\1/p' | head -n 1)
    [[ $version == "$lint_llvm" ]] && return 0
    echo "$1 is version ${version:-unknown} here, and the sources follow version $lint_llvm: $2"
    return 1
}
