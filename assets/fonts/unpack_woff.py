#!/usr/bin/env python3
"""Unpacks a font from the web's wrapping (WOFF 1.0), which not every system's font reader opens.

    unpack_woff.py FONT.woff FONT.ttf
"""

import pathlib
import struct
import sys
import zlib

WOFF_HEADER = struct.Struct(">4s4sIHHIHHIIIII")
WOFF_ENTRY = struct.Struct(">4sIIII")
FONT_HEADER = struct.Struct(">4sHHHH")
FONT_ENTRY = struct.Struct(">4sIII")


def read_tables(packed):
    """The font's flavour, and (tag, checksum, content) of every table."""
    signature, flavor, _, count, *_ = WOFF_HEADER.unpack_from(packed)
    if signature != b"wOFF":
        sys.exit("not a WOFF 1.0 font")
    tables = []
    for index in range(count):
        tag, offset, packed_length, length, checksum = WOFF_ENTRY.unpack_from(
            packed, WOFF_HEADER.size + index * WOFF_ENTRY.size)
        content = packed[offset:offset + packed_length]
        # A table that would not have become smaller is stored as it is.
        if packed_length < length:
            content = zlib.decompress(content)
        if len(content) != length:
            sys.exit(f"the table {tag.decode()} is damaged")
        tables.append((tag, checksum, content))
    return flavor, tables


def write_font(flavor, tables):
    # The directory's search parameters follow from the number of tables.
    power = 1 << (len(tables).bit_length() - 1)
    font = bytearray(FONT_HEADER.pack(flavor, len(tables), power * 16, power.bit_length() - 1,
                                      (len(tables) - power) * 16))
    offset = FONT_HEADER.size + len(tables) * FONT_ENTRY.size
    for tag, checksum, content in tables:
        font += FONT_ENTRY.pack(tag, checksum, offset, len(content))
        offset += len(content) + -len(content) % 4
    for _, _, content in tables:
        font += content + bytes(-len(content) % 4)
    return bytes(font)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__.strip())
    source, target = map(pathlib.Path, sys.argv[1:])
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(write_font(*read_tables(source.read_bytes())))


if __name__ == "__main__":
    main()
