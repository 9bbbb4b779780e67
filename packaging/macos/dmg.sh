#!/usr/bin/env bash
# Puts build/package/Corvane.app on a disk image beside a link to the Applications folder:
# build/package/Corvane-VERSION.dmg.
#
# usage: packaging/macos/dmg.sh
#
# Needs a Mac and what packaging/macos/build.sh and sign.sh have made. Of the environment:
#   CORVANE_SIGN_IDENTITY  as for sign.sh; the image is signed too unless it is "-" or not set

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
need_tools "macOS" hdiutil codesign
need_bundle
codesign --verify --strict "$bundle" || complain "$bundle is not signed; packaging/macos/sign.sh signs it"

image=$(disk_image)
contents=$(mktemp -d)
trap 'rm -rf "$contents"' EXIT
cp -R "$bundle" "$contents/"
ln -s /Applications "$contents/Applications"
hdiutil create -volname Corvane -srcfolder "$contents" -fs HFS+ -format UDZO -ov "$image"
if [[ ${CORVANE_SIGN_IDENTITY:--} != - ]]; then
    codesign --force --sign "$CORVANE_SIGN_IDENTITY" --timestamp "$image"
fi
echo "$image"
