#!/bin/sh
# What the journal of the Linux-shaped root takes.
[ "$*" = --disk-usage ] || exit 1
printf 'Archived and active journals take up 3.0G in the file system.\n'
