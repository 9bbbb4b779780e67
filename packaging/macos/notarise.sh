#!/usr/bin/env bash
# Has Apple check build/package/Corvane-VERSION.dmg, and attaches the ticket to it, so that it opens on every Mac.
#
# usage: packaging/macos/notarise.sh
#
# Needs a Mac, the image that packaging/macos/dmg.sh has made, signed with a "Developer ID Application" certificate, and
# a network. Of the environment:
#   CORVANE_NOTARY_PROFILE  the name under which "xcrun notarytool store-credentials" has kept an account in the
#                           keychain

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
need_variable CORVANE_NOTARY_PROFILE 'the name that "xcrun notarytool store-credentials" has kept an account under'
need_tools "Xcode" xcrun spctl
image=$(disk_image)
[[ -f $image ]] || complain "there is no $image; packaging/macos/dmg.sh makes it"

xcrun notarytool submit "$image" --keychain-profile "$CORVANE_NOTARY_PROFILE" --wait
xcrun stapler staple "$image"
spctl --assess --type open --context context:primary-signature --verbose "$image"
