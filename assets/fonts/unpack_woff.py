#!/usr/bin/env python3
"""Unpacks a font from the web's wrapping (WOFF 1.0), which not every system's font reader opens.

    unpack_woff.py FONT.woff FONT.ttf
"""

import pathlib
import struct
import sys
import zlib

import sfnt

WOFF_HEADER = struct.Struct(">4s4sIHHIHHIIIII")
WOFF_ENTRY = struct.Struct(">4sIIII")


def read_tables(packed):
    """The font's flavour, and the content of each table, by its tag."""
    signature, flavor, _, count, *_ = WOFF_HEADER.unpack_from(packed)
    if signature != b"wOFF":
        sys.exit("not a WOFF 1.0 font")
    tables = {}
    for index in range(count):
        tag, offset, packed_length, length, _ = WOFF_ENTRY.unpack_from(
            packed, WOFF_HEADER.size + index * WOFF_ENTRY.size)
        content = packed[offset:offset + packed_length]
        # A table that would not have become smaller is stored as it is.
        if packed_length < length:
            content = zlib.decompress(content)
        if len(content) != length:
            sys.exit(f"the table {tag.decode()} is damaged")
        tables[tag.decode("latin-1")] = content
    return flavor, tables


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__.strip())
    source, target = map(pathlib.Path, sys.argv[1:])
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(sfnt.write_font(*read_tables(source.read_bytes())))


if __name__ == "__main__":
    main()
