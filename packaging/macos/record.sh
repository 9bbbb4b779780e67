#!/usr/bin/env bash
# Keeps what the tools that Corvane reads print on this Mac, and what Corvane makes of it, as files of a folder: for the
# recordings that the tests use, and for seeing what a new version of macOS prints.
#
# usage: packaging/macos/record.sh FOLDER [CORVANE-CLI]
#
# Needs a Mac. A tool that fails is no fault of this script: its exit status and its words are kept too.

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
[[ $# -eq 1 || $# -eq 2 ]] || complain "say where the files go: $step FOLDER [CORVANE-CLI]"
folder=$1
mkdir -p "$folder"

# Keeps what a command prints: record FILE COMMAND...
record() {
    local file=$folder/$1 status=0
    shift
    "$@" >"$file" 2>"$file.errors" || status=$?
    [[ -s $file.errors ]] || rm "$file.errors"
    echo "$step: $* ended with $status, $(wc -c <"$file" | tr -d ' ') bytes"
}

if [[ $# -eq 2 ]]; then
    record breakdown.json "$2" breakdown --json
    record snapshots.json "$2" snapshots --json
    record protected.json "$2" protected --json / "$HOME" "$HOME/Library" /Applications /Applications/Safari.app
    record scan.json "$2" scan --json /usr/share
    exit
fi
need_tools "macOS" sw_vers diskutil tmutil
record sw_vers.txt sw_vers
record diskutil-apfs-list.plist diskutil apfs list -plist
record diskutil-info.plist diskutil info -plist /
record tmutil.txt tmutil listlocalsnapshots /
record mount.txt mount
record df.txt df -k
record sysctl.txt sysctl hw.model hw.optional.arm64 kern.osproductversion
