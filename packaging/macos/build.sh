#!/usr/bin/env bash
# Builds a release for macOS and puts it together with all that it needs: build/package/Corvane.app.
#
# usage: packaging/macos/build.sh
#
# Needs a Mac with Xcode's command line tools and what ./dev setup installs. Of the environment:
#   CORVANE_UPDATE_FEED, CORVANE_UPDATE_PUBLIC_KEY  the update feed's address (https) and its Ed25519 key (base64);
#                         without either the build never looks for updates
#   CORVANE_SPARKLE       a folder that holds Sparkle.framework; without it the build has no updates
#   CORVANE_QT            the folder of a Qt, for macOS 13 and later as its makers build it; Homebrew's by default, which
#                         runs on this version of macOS and later alone
#   CORVANE_ARCHITECTURES arm64, x86_64 or "arm64;x86_64"; this machine's by default. Qt and the other libraries must
#                         be there for each, which Homebrew's are not.

set -euo pipefail
# shellcheck source=packaging/macos/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
if [[ ${1:-} == --help ]]; then
    usage_of "$0"
    exit
fi
[[ $(uname -s) == Darwin ]] || complain "a bundle for macOS is built on a Mac"
need_tools "Homebrew" brew
cd "$root"
# shellcheck source=scripts/packages.sh
source scripts/packages.sh
require_packages build ui
require_assets
qt=${CORVANE_QT:-$(brew --prefix qt)}
[[ -x $qt/bin/macdeployqt ]] || complain "there is no macdeployqt in $qt/bin"

build=$root/build/macos-release
options=(-DCMAKE_PREFIX_PATH="$qt;$(brew --prefix openssl@3)"
    -DCORVANE_UPDATE_FEED="${CORVANE_UPDATE_FEED:-}" -DCORVANE_UPDATE_PUBLIC_KEY="${CORVANE_UPDATE_PUBLIC_KEY:-}")
if [[ -n ${CORVANE_ARCHITECTURES:-} ]]; then
    options+=(-DCMAKE_OSX_ARCHITECTURES="$CORVANE_ARCHITECTURES")
fi
if [[ -n ${CORVANE_SPARKLE:-} ]]; then
    [[ -d $CORVANE_SPARKLE/Sparkle.framework ]] || complain "there is no Sparkle.framework in $CORVANE_SPARKLE"
    options+=(-DCORVANE_SPARKLE="$CORVANE_SPARKLE/Sparkle.framework")
else
    options+=(-DCORVANE_SPARKLE=OFF)
fi
cmake -S "$root" --preset release -B "$build" "${options[@]}"
cmake --build "$build"

rm -rf "$bundle"
mkdir -p "$output"
cp -R "$build/bin/corvane.app" "$bundle"
cp "$build/bin/corvane-cli" "$bundle/Contents/MacOS/corvane-cli"
if [[ -n ${CORVANE_SPARKLE:-} ]]; then
    mkdir -p "$bundle/Contents/Frameworks"
    cp -R "$CORVANE_SPARKLE/Sparkle.framework" "$bundle/Contents/Frameworks/"
fi
"$qt/bin/macdeployqt" "$bundle" -qmldir="$root/src" -executable="$bundle/Contents/MacOS/corvane-cli"
mkdir -p "$bundle/Contents/Resources/licences"
cp "$root/LICENSE" "$root"/assets/licences/* "$bundle/Contents/Resources/licences/"
echo "$bundle"
