# What the steps of packaging for macOS share. Sourced, from bash.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# Where the steps leave what they make.
output=${CORVANE_OUTPUT:-$root/build/package}
bundle=$output/Corvane.app
step=$(basename "$0")

complain() {
    echo "$step: $*" >&2
    exit 1
}

# Prints the comment at the script's top, for --help.
usage_of() {
    sed -n '2,/^$/s/^# \{0,1\}//p' "$1"
}

# Ends with the text where a variable is not set: need_variable NAME "what it is"
need_variable() {
    [[ -n ${!1:-} ]] || complain "$1 is not set: $2"
}

# Ends where a program is not there: need_tools "where they come from" NAME...
need_tools() {
    local from=$1 tool missing=()
    shift
    for tool in "$@"; do
        command -v "$tool" >/dev/null || missing+=("$tool")
    done
    [[ ${#missing[@]} -eq 0 ]] || complain "these programs are missing (they come with $from): ${missing[*]}"
}

need_bundle() {
    [[ -d $bundle/Contents/MacOS ]] || complain "there is no $bundle; packaging/macos/build.sh makes it"
}

# The version that CMakeLists.txt gives.
version() {
    sed -n 's/^project(corvane VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt"
}

disk_image() {
    echo "$output/Corvane-$(version).dmg"
}
