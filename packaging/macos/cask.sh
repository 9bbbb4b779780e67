#!/usr/bin/env bash
# Writes the Homebrew cask of build/package/Corvane-VERSION.dmg: build/package/corvane.rb.
#
# usage: packaging/macos/cask.sh
#
# Needs the image as users are to get it, so after notarise.sh. Of the environment:
#   CORVANE_DOWNLOADS    the address (https) of the folder that the image is offered in
#   CORVANE_HOMEPAGE     the product's website (https)
#   CORVANE_UPDATE_FEED  the address of the update feed (https), by which Homebrew sees new versions

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
need_variable CORVANE_DOWNLOADS "the address of the folder that the image is offered in"
need_variable CORVANE_HOMEPAGE "the product's website"
need_variable CORVANE_UPDATE_FEED "the address of the update feed"
for address in "$CORVANE_DOWNLOADS" "$CORVANE_HOMEPAGE" "$CORVANE_UPDATE_FEED"; do
    [[ $address =~ ^https://[A-Za-z0-9._~:/?%@=\&+-]+$ ]] || complain "$address is not an address of https"
done
image=$(disk_image)
[[ -f $image ]] || complain "there is no $image; packaging/macos/dmg.sh makes it"
if command -v shasum >/dev/null; then
    sum=$(shasum -a 256 "$image")
else
    need_tools "coreutils" sha256sum
    sum=$(sha256sum "$image")
fi

cat >"$output/corvane.rb" <<CASK
cask "corvane" do
  version "$(version)"
  sha256 "${sum%% *}"

  url "${CORVANE_DOWNLOADS%/}/Corvane-#{version}.dmg"
  name "Corvane"
  desc "Explains where the space on a disk went and helps you reclaim it safely"
  homepage "$CORVANE_HOMEPAGE"

  livecheck do
    url "$CORVANE_UPDATE_FEED"
    strategy :sparkle, &:short_version
  end

  auto_updates true
  depends_on macos: ">= :ventura"

  app "Corvane.app"
  binary "#{appdir}/Corvane.app/Contents/MacOS/corvane-cli"

  uninstall quit: "app.corvane.Corvane"

  zap trash: [
    "~/Library/Caches/app.corvane.Corvane",
    "~/Library/HTTPStorages/app.corvane.Corvane",
    "~/Library/Preferences/app.corvane.Corvane.plist",
    "~/Library/Saved Application State/app.corvane.Corvane.savedState",
  ]
end
CASK
echo "$output/corvane.rb"
