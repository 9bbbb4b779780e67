# Lists of the repository's hand-written files. Sourced from the repository's root.
# shellcheck shell=bash

# C++ and Objective-C++ sources and headers.
cxx_sources() {
    find src tests bench -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.mm' \) | LC_ALL=C sort
}

# Shell scripts, by ending or by first line.
shell_scripts() {
    {
        find scripts tests packaging bench -type f -name '*.sh'
        grep -lE '^#! ?(/usr)?/bin/(env )?(ba)?sh' -r dev .ci scripts tests packaging bench
    } | LC_ALL=C sort -u
}

# Homebrew's names carry no version.
llvm_tool() {
    if [[ $(uname -s) == Darwin ]]; then
        echo "$(brew --prefix llvm)/bin/$1"
    else
        echo "$1-14"
    fi
}
