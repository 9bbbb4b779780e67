#!/usr/bin/env bash
# Tests the newest package of build/package in a fresh Debian made by debootstrap: installs it without recommended
# packages, starts it as an ordinary user and as root, without a session bus and without /proc, and removes it again.
# package-check.sh [PICTURE]: if given, a screenshot of the window on a virtual display is saved there.
set -euo pipefail

cd "$(dirname "$0")/.."
picture=${1:-}
suite=${CORVANE_SUITE:-bookworm}
mirror=${CORVANE_MIRROR:-} # empty: debootstrap's own
if [[ $EUID -ne 0 ]]; then
    echo "package-check: a fresh system can be made by root only" >&2
    exit 1
fi
package=$(find build/package -name 'corvane_*.deb' -printf '%T@ %p\n' 2>/dev/null | sort -n | tail -n 1 | cut -d' ' -f2)
if [[ -z $package ]]; then
    echo "package-check: there is no package yet: ./dev package" >&2
    exit 1
fi

work=$(mktemp -d)
root=$work/root
server=
finish() {
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    rm -rf --one-file-system "$work"
}
trap finish EXIT

# in_root USER COMMAND… runs without this machine's environment, except for a display if there is one.
in_root() {
    local user=$1 home=/root
    shift
    [[ $user == root ]] || home=/home/$user
    chroot --userspec="$user" "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME="$home" LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive ${display:+DISPLAY="$display"} "$@"
}

step() {
    echo "package-check: $*"
}

fail() {
    echo "package-check: failed: $*" >&2
    exit 1
}

# The window stays open without messages until it is killed: start_window USER [VARIABLE=VALUE…]
start_window() {
    local user=$1 status=0 said
    shift
    said=$(in_root "$user" "$@" timeout 10 corvane "/home/ann/My Photos" 2>&1) || status=$?
    [[ $status -eq 124 ]] || fail "the window of $user ended with status $status: $said"
    [[ -z $said ]] || fail "the window of $user says: $said"
}

step "a fresh $suite in $root"
if [[ -n ${CORVANE_FRESH_ROOT:-} ]]; then
    cp -a "$CORVANE_FRESH_ROOT" "$root"
else
    debootstrap --variant=minbase "$suite" "$root" ${mirror:+"$mirror"} >"$work/log" 2>&1 || {
        tail "$work/log"
        fail "debootstrap"
    }
fi
cp /etc/resolv.conf "$root/etc/resolv.conf"
cp "$package" "$root/tmp/corvane.deb"
in_root root useradd --create-home ann
mkdir -p "$root/home/ann/My Photos" "$root/home/ann/.config/Corvane"
printf '[General]\ndidOnboard=true\n' >"$root/home/ann/.config/Corvane/Corvane.conf"
head -c 3000000 /dev/zero >"$root/home/ann/My Photos/picture.raw"
chown -R --reference="$root/home/ann" "$root/home/ann"
in_root root apt-get -qq update

step "install"
in_root root apt-get -qq -y install --no-install-recommends /tmp/corvane.deb >"$work/log" 2>&1 || {
    tail "$work/log"
    fail "the installation"
}
in_root root dpkg-query -W -f "package-check: \${Package} \${Version}, \${Installed-Size} KiB\n" corvane
if in_root root dpkg-query -W -f "\${Package}\n" | grep -E -- '-dev(el)?$'; then
    fail "the packages above came along"
fi
in_root root dpkg --verify corvane

step "the command line"
in_root ann corvane-cli scan "/home/ann/My Photos" | grep -q picture.raw || fail "corvane-cli scan"
in_root ann corvane-cli protected /usr | grep -q . || fail "corvane-cli protected"

step "the window, as a user and as root, without a session bus and without /proc"
for user in ann root; do
    start_window "$user" QT_QPA_PLATFORM=offscreen
done

if [[ -n $picture ]]; then
    step "the window on a display"
    Xvfb -displayfd 3 -screen 0 1280x860x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
    server=$!
    until [[ -s $work/display ]]; do
        sleep 0.2
    done
    display=:$(cat "$work/display")
    in_root ann timeout 40 corvane "/home/ann/My Photos" &
    sleep 25
    DISPLAY=$display import -window root "$picture"
    wait $! || true
fi

step "install again over it, and take it off"
in_root root apt-get -qq -y install --reinstall --no-install-recommends /tmp/corvane.deb >"$work/log" 2>&1 ||
    fail "the second installation"
in_root root apt-get -qq -y purge corvane >"$work/log" 2>&1 || fail "the removal"
rm -f "$root/tmp/corvane.deb"
left=$(find "$root" -xdev -iname '*corvane*' -not -path "$root/home/*" -not -path "$root/root/*")
[[ -z $left ]] || fail "these stay behind: $left"
[[ -f $root/home/ann/.config/Corvane/Corvane.conf ]] || fail "the user's settings are gone"
step "nothing is wrong"
