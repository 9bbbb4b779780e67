"""Reads and writes the tables of TrueType and OpenType font files."""

import struct

HEADER = struct.Struct(">4sHHHH")
ENTRY = struct.Struct(">4sIII")

# Where a font's own checksum lies in its table "head", and what it makes the file's sum come to.
ADJUSTMENT = slice(8, 12)
SUM_OF_A_FONT = 0xB1B0AFBA


def read_tables(font):
    """The content of each table, by its tag."""
    _, count, *_ = HEADER.unpack_from(font)
    entries = (ENTRY.unpack_from(font, HEADER.size + index * ENTRY.size) for index in range(count))
    return {tag.decode("latin-1"): font[offset:offset + length] for tag, _, offset, length in entries}


def padded(content):
    return content + bytes(-len(content) % 4)


def checksum(content):
    words = padded(content)
    return sum(struct.unpack(f">{len(words) // 4}I", words)) & 0xFFFFFFFF


def write_font(flavor, tables):
    """A font file of these tables; its own checksum is written into its head."""
    tables = dict(sorted(tables.items()))
    head = bytearray(tables["head"])
    head[ADJUSTMENT] = bytes(4)
    tables["head"] = bytes(head)

    # The directory's search parameters follow from the number of tables.
    power = 1 << (len(tables).bit_length() - 1)
    directory = bytearray(HEADER.pack(flavor, len(tables), power * 16, power.bit_length() - 1,
                                      (len(tables) - power) * 16))
    offsets = {}
    offset = HEADER.size + len(tables) * ENTRY.size
    for tag, content in tables.items():
        directory += ENTRY.pack(tag.encode("latin-1"), checksum(content), offset, len(content))
        offsets[tag] = offset
        offset += len(padded(content))
    font = directory + b"".join(map(padded, tables.values()))
    adjustment = (SUM_OF_A_FONT - checksum(bytes(font))) & 0xFFFFFFFF
    struct.pack_into(">I", font, offsets["head"] + ADJUSTMENT.start, adjustment)
    return bytes(font)
