#!/usr/bin/env python3
"""Puts square PNG pictures together to an icon file of macOS.

    make_icns.py OUTPUT PNG...

Needs a picture of each of the sizes 16, 32, 64, 128, 256, 512 and 1024 pixels. Needs no tool of macOS.
"""
import pathlib
import struct
import sys

# What each entry of the file is for: its type, and how many pixels wide its picture is. An icon of 32 points on a
# display with two pixels a point is another entry than one of 64 points, with the same picture.
ENTRIES = [(b"icp4", 16), (b"ic11", 32), (b"icp5", 32), (b"ic12", 64), (b"ic07", 128), (b"ic13", 256),
           (b"ic08", 256), (b"ic14", 512), (b"ic09", 512), (b"ic10", 1024)]


def width_of(png, name):
    """The picture's width in pixels."""
    if png[:8] != b"\x89PNG\r\n\x1a\n" or png[12:16] != b"IHDR":
        raise ValueError(f"{name} is not a PNG picture")
    width, height = struct.unpack(">II", png[16:24])
    if width != height:
        raise ValueError(f"{name} is not square: {width} by {height} pixels")
    return width


def icon_file(pictures):
    """The bytes of the icon file made of PNG pictures by their widths."""
    missing = sorted({width for _, width in ENTRIES} - set(pictures))
    if missing:
        raise ValueError("no picture is this many pixels wide: " + ", ".join(map(str, missing)))
    entries = b"".join(kind + struct.pack(">I", 8 + len(pictures[width])) + pictures[width]
                       for kind, width in ENTRIES)
    return b"icns" + struct.pack(">I", 8 + len(entries)) + entries


def main():
    if len(sys.argv) < 3:
        sys.exit("usage: make_icns.py OUTPUT PNG...")
    try:
        pictures = {}
        for name in sys.argv[2:]:
            png = pathlib.Path(name).read_bytes()
            pictures[width_of(png, name)] = png
        pathlib.Path(sys.argv[1]).write_bytes(icon_file(pictures))
    except (OSError, ValueError) as error:
        sys.exit(f"make_icns: {error}")


if __name__ == "__main__":
    main()
