#!/bin/sh
# The runtimes of the Linux-shaped root; no application needs the two older ones any more.
case "$*" in
'list --runtime --columns=ref,size')
    printf 'org.freedesktop.Platform/x86_64/24.08\t1.9 GB\n'
    printf 'org.freedesktop.Platform/x86_64/22.08\t1.9 GB\n'
    printf 'org.freedesktop.Platform.GL.default/x86_64/24.08\t480 MB\n'
    printf 'org.gnome.Platform/x86_64/47\t2.6 GB\n'
    printf 'org.gnome.Platform/x86_64/45\t2.3 GB\n'
    ;;
'list --app --columns=runtime') printf 'org.gnome.Platform/x86_64/47\norg.freedesktop.Platform/x86_64/24.08\n' ;;
pin) printf 'No pinned patterns\n' ;;
*) exit 1 ;;
esac
