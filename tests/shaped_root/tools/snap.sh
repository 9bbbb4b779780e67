#!/bin/sh
# The Snaps of the Linux-shaped root, two of which have older revisions.
[ "$*" = 'list --all' ] || exit 1
line() { printf '%-22s %-8s %-5s %-14s %-10s %s\n' "$@"; }
line Name Version Rev Tracking Publisher Notes
line chartroom 2.0.1 214 latest/stable chartroom -
line core24 20240920 1006 latest/stable canonical base,disabled
line core24 20241004 1007 latest/stable canonical base,disabled
line core24 20241119 1008 latest/stable canonical base
line desktop-platform-2404 0+git.1 41 latest/stable canonical disabled
line desktop-platform-2404 0+git.2 42 latest/stable canonical disabled
line desktop-platform-2404 0+git.3 43 latest/stable canonical -
line old-mill-layout 19.3 214 latest/stable old-mill -
line signal-deck 5.4.1 214 latest/stable signaldeck -
