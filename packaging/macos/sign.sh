#!/usr/bin/env bash
# Signs build/package/Corvane.app, from the inside out: what it loads first, the program with its entitlements last.
#
# usage: packaging/macos/sign.sh
#
# Needs a Mac and what packaging/macos/build.sh has made. Of the environment:
#   CORVANE_SIGN_IDENTITY  the name of a "Developer ID Application" certificate in the keychain, or "-" for a signature
#                          that holds on this Mac alone. That one leaves the hardened runtime out, which loads no
#                          library without a team's signature.

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
need_variable CORVANE_SIGN_IDENTITY 'the name of a "Developer ID Application" certificate, or "-"'
need_tools "Xcode's command line tools" codesign
need_bundle

options=(--force --sign "$CORVANE_SIGN_IDENTITY")
if [[ $CORVANE_SIGN_IDENTITY != - ]]; then
    options+=(--options runtime --timestamp)
fi
sign() {
    codesign "${options[@]}" "$@"
}

# The update framework's own programs keep the entitlements that they were given.
framework=$bundle/Contents/Frameworks/Sparkle.framework
if [[ -d $framework ]]; then
    while IFS= read -r inner; do
        sign --preserve-metadata=entitlements "$inner"
    done < <(find "$framework/Versions/Current/" \( -name '*.xpc' -o -name '*.app' -o -name Autoupdate \) -prune)
fi
while IFS= read -r library; do
    sign "$library"
done < <(find "$bundle/Contents" -type f \( -name '*.dylib' -o -name '*.so' \) -not -path "$framework/*" | sort)
while IFS= read -r inner; do
    sign "$inner"
done < <(find "$bundle/Contents/Frameworks" -maxdepth 1 -name '*.framework' 2>/dev/null | sort)
sign "$bundle/Contents/MacOS/corvane-cli"
sign --entitlements "$root/packaging/macos/Corvane.entitlements" "$bundle"

codesign --verify --strict --verbose=2 "$bundle"
