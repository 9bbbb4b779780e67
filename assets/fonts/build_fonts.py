#!/usr/bin/env python3
"""Makes the fonts that the program embeds, from an installed Inter.

Per weight two files. "Inter Text" is Inter with TrueType outlines: Qt draws the original's outlines with thickened
stems, so that every weight looks like the next one. "Inter Tabular" has figures of one width besides: Qt 6.4 has no
font features, so the tabular forms are put in the place of the ordinary ones; it keeps only the characters that
columns of figures use. Their own family names keep an installed Inter from being taken in their place.
"""

import argparse
import pathlib
import struct
import sys

import cff
import sfnt
import truetype

WEIGHTS = ("Regular", "Medium", "SemiBold", "Bold")

# How far a converted outline may lie from the original, in units of the font (2816 to the em).
LARGEST_ERROR = 1.0

# Basic Latin, Latin-1 and the punctuation of the program's own texts: dashes, quotation marks, the dot between
# facts, the ellipsis, arrows, minus, "at least" and the narrow spaces.
TABULAR_CHARACTERS = {
    *range(0x20, 0x7F),
    *range(0xA0, 0x100),
    *(0x2009, 0x2013, 0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2026, 0x202F),
    *(0x2190, 0x2192, 0x2212, 0x2248, 0x2264, 0x2265),
}


def numbers(content, offset, count):
    """`count` numbers of two bytes each."""
    return struct.unpack_from(f">{count}H", content, offset)


def counted(content, offset):
    """A list of numbers of two bytes each, which begins with its length."""
    return numbers(content, offset + 2, *numbers(content, offset, 1))


def read_characters(table):
    """The glyph of each character, from the font's map of all of Unicode."""
    for index in range(*numbers(table, 2, 1)):
        platform, encoding, start = struct.unpack_from(">HHI", table, 4 + index * 8)
        if (platform, encoding) == (3, 10) and numbers(table, start, 1) == (12,):
            break
    else:
        sys.exit("the font has no map of Unicode of format 12")
    (groups,) = struct.unpack_from(">I", table, start + 12)
    characters = {}
    for first, last, glyph in struct.iter_unpack(">III", table[start + 16:start + 16 + groups * 12]):
        characters.update(zip(range(first, last + 1), range(glyph, glyph + last - first + 1)))
    return characters


def write_characters(characters):
    """A map of Unicode of format 12 with a group for each character."""
    groups = b"".join(struct.pack(">III", code, code, glyph) for code, glyph in sorted(characters.items()))
    subtable = struct.pack(">HHIII", 12, 0, 16 + len(groups), 0, len(characters)) + groups
    return struct.pack(">HHHHI", 0, 1, 3, 10, 12) + subtable


def covered_glyphs(table, offset):
    """The glyphs to which a substitution applies, in the order of their replacements."""
    kind, count = numbers(table, offset, 2)
    if kind == 1:
        return list(numbers(table, offset + 4, count))
    ranges = (numbers(table, offset + 4 + index * 6, 3) for index in range(count))
    return [glyph for first, last, _ in ranges for glyph in range(first, last + 1)]


def single_substitution(table, offset):
    """What a subtable puts in the place of each glyph."""
    kind, coverage = numbers(table, offset, 2)
    glyphs = covered_glyphs(table, offset + coverage)
    if kind == 1:
        (step,) = struct.unpack_from(">h", table, offset + 4)
        return {glyph: (glyph + step) & 0xFFFF for glyph in glyphs}
    return dict(zip(glyphs, counted(table, offset + 4)))


def tabular_glyphs(table):
    """The glyphs that the font's tnum feature exchanges, from its table GSUB."""
    _, _, _, features, lookups = numbers(table, 0, 5)
    wanted = set()
    for index in range(*numbers(table, features, 1)):
        tag, feature = struct.unpack_from(">4sH", table, features + 2 + index * 6)
        if tag == b"tnum":
            wanted.update(counted(table, features + feature + 2))
    offsets = counted(table, lookups)
    exchanged = {}
    for index in wanted:
        lookup = lookups + offsets[index]
        for subtable in counted(table, lookup + 4):
            kind, offset = numbers(table, lookup, 1)[0], lookup + subtable
            if kind == 7:  # the real one lies elsewhere
                _, kind, distance = struct.unpack_from(">HHI", table, offset)
                offset += distance
            if kind == 1:
                exchanged.update(single_substitution(table, offset))
    if not exchanged:
        sys.exit("the font has no tabular figures")
    return exchanged


def use_tabular_figures(tables, outlines):
    """Keeps the characters of columns, in their tabular forms. The outlines without those of the other glyphs, which
    stay as numbers."""
    exchanged = tabular_glyphs(tables["GSUB"])
    characters = read_characters(tables["cmap"])
    kept = {code: exchanged.get(characters[code], characters[code]) for code in TABULAR_CHARACTERS & characters.keys()}
    tables["cmap"] = write_characters(kept)
    # What it would exchange besides, such as an x between figures, does not belong into columns.
    del tables["GSUB"]
    drawn = {0, *kept.values()}
    return [contours if glyph in drawn else [] for glyph, contours in enumerate(outlines)]


def renamed(table, family, weight):
    """The table of names with the family's own."""
    count, start = numbers(table, 2, 2)
    records, strings = bytearray(), bytearray()
    for index in range(count):
        platform, encoding, language, name, length, offset = numbers(table, 6 + index * 12, 6)
        text = table[start + offset:start + offset + length]
        codec = "mac-roman" if platform == 1 else "utf-16-be"
        # A name without spaces for PostScript, the family's name everywhere else.
        if name == 6:
            text = f"{family}-{weight}".replace(" ", "").encode(codec)
        elif name in (1, 3, 4, 16):
            text = text.decode(codec).replace("Inter", family, 1).encode(codec)
        records += struct.pack(">6H", platform, encoding, language, name, len(text), len(strings))
        strings += text
    return struct.pack(">HHH", 0, count, 6 + len(records)) + records + strings


def write(source, folder, weight):
    original = sfnt.read_tables(source.read_bytes())
    outlines = [[truetype.quadratic_contour(contour, LARGEST_ERROR) for contour in contours]
                for contours in cff.read_outlines(original.pop("CFF "))]
    original.pop("VORG", None)
    original.pop("DSIG", None)
    original["post"] = struct.pack(">I", 0x00030000) + original["post"][4:32]  # without names of glyphs
    for family in ("Inter Text", "Inter Tabular"):
        tables = dict(original)
        drawn = use_tabular_figures(tables, outlines) if family == "Inter Tabular" else outlines
        truetype.use_outlines(tables, drawn)
        tables["name"] = renamed(tables["name"], family, weight)
        target = folder / f"{family}-{weight}.ttf".replace(" ", "")
        target.write_bytes(sfnt.write_font(b"\0\1\0\0", tables))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=pathlib.Path, required=True, help="folder with Inter-Regular.otf and its peers")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="folder to write to")
    arguments = parser.parse_args()

    arguments.output.mkdir(parents=True, exist_ok=True)
    for weight in WEIGHTS:
        source = arguments.source / f"Inter-{weight}.otf"
        if not source.is_file():
            sys.exit(f"{arguments.source} has no Inter-{weight}.otf")
        write(source, arguments.output, weight)


if __name__ == "__main__":
    main()
