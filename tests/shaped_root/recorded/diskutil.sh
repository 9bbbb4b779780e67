#!/bin/sh
# Prints the recorded output of a Mac's diskutil for the one query that is used.
if [ "$*" = "apfs list -plist" ]; then
    exec cat /System/Volumes/recorded/diskutil-apfs-list.plist
fi
echo "diskutil: did not recognize verb \"$1\"" >&2
exit 1
