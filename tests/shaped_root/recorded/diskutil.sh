#!/bin/sh
# Answers as a Mac's diskutil did, for the one question that is asked.
if [ "$*" = "apfs list -plist" ]; then
    exec cat /System/Volumes/recorded/diskutil-apfs-list.plist
fi
echo "diskutil: did not recognize verb \"$1\"" >&2
exit 1
