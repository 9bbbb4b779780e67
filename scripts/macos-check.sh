#!/usr/bin/env bash
# Type-checks every source of the macOS side against a macOS SDK, with clang, on a machine that is no Mac: selectors,
# signatures, availability and our own types. Nothing is linked.
#
# usage: scripts/macos-check.sh SDK [HEADERS]    where SDK holds "Frameworks" and "include", and HEADERS a folder
# "Sparkle" with the headers of the update framework; without it, what uses them is left out

set -uo pipefail

complain() {
    echo "macos-check: $*" >&2
    exit 2
}

[[ $# -eq 1 || $# -eq 2 ]] || complain "say where the macOS SDK is (a folder with Frameworks and include)"
sdk=$(cd "$1" 2>/dev/null && pwd) || complain "there is no folder $1"
[[ -d $sdk/Frameworks && -d $sdk/include ]] || complain "$sdk lacks a Frameworks or an include folder"
framework=
if [[ $# -eq 2 ]]; then
    framework=$(cd "$2" 2>/dev/null && pwd) || complain "there is no folder $2"
    [[ -d $framework/Sparkle ]] || complain "$framework lacks a Sparkle folder"
fi
cd "$(dirname "$0")/.." || exit 2
# shellcheck source=scripts/packages.sh
source scripts/packages.sh
require_packages build ui macos-check || exit 1

clang="clang++-19"
libcxx=/usr/lib/llvm-19/include/c++/v1
qt=$(pkg-config --variable=includedir Qt6Core 2>/dev/null || true)
[[ -n $qt ]] || qt=$(echo /usr/include/*/qt6)

# The folder of this machine's own headers must not be searched, so what the code takes from there is set apart.
libraries=$(mktemp -d)
trap 'rm -rf "$libraries"' EXIT
ln -s /usr/include/tl /usr/include/fmt "$libraries"

flags=(-target arm64-apple-macos13 -std=c++20 -fblocks -nostdlibinc -nostdinc++
    -Wall -Wextra -Wconversion -Werror -fsyntax-only
    -Isrc -isystem "$libcxx" -isystem "$sdk/include" -isystem "$libraries"
    -iframework "$sdk/Frameworks" -F "$sdk/Frameworks" -isystem "$qt")
for module in "$qt"/Qt*/; do
    flags+=(-isystem "${module%/}")
done

[[ $framework ]] && flags+=(-isystem "$framework")

mapfile -t sources < <(find src -path '*/macos/*' \( -name '*.mm' -o -name '*.cpp' \) | sort)
((${#sources[@]} > 0)) || complain "found no macOS source"
failed=0
for source in "${sources[@]}"; do
    if [[ ! $framework ]] && grep -q '<Sparkle/' "$source"; then
        echo "skipped $source: it needs the headers of the update framework"
        continue
    fi
    arc=()
    [[ $source == *.mm ]] && arc=(-fobjc-arc)
    if output=$("$clang" "${flags[@]}" "${arc[@]}" "$source" 2>&1); then
        echo "ok      $source"
    else
        echo "FAILED  $source"
        echo "$output" >&2
        failed=$((failed + 1))
    fi
done
((failed == 0)) || {
    echo "macos-check: $failed of ${#sources[@]} files failed" >&2
    exit 1
}
