#!/usr/bin/env python3
"""Makes the fonts that the program embeds, from an installed Inter.

Per weight two files: Inter itself as it is, and "Inter Tabular", whose figures all have one width. Qt 6.4 has no
font features, so for columns of figures the tabular forms are put in the place of the ordinary ones; that family
keeps only the characters that such columns use.
"""

import argparse
import pathlib
import shutil
import sys

from fontTools import subset
from fontTools.ttLib import TTFont

WEIGHTS = ("Regular", "Medium", "SemiBold", "Bold")
TABULAR_FAMILY = "Inter Tabular"

# Basic Latin, Latin-1 and the punctuation of the program's own texts: dashes, quotation marks, the dot between
# facts, the ellipsis, arrows, minus, "at least" and the narrow spaces.
TABULAR_CHARACTERS = {
    *range(0x20, 0x7F),
    *range(0xA0, 0x100),
    *(0x2009, 0x2013, 0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2026, 0x202F),
    *(0x2190, 0x2192, 0x2212, 0x2248, 0x2264, 0x2265),
}


def source_file(folder, weight):
    for suffix in (".otf", ".ttf"):
        path = folder / f"Inter-{weight}{suffix}"
        if path.is_file():
            return path
    sys.exit(f"{folder} has no Inter-{weight}.otf")


def tabular_glyphs(font):
    """The glyph names that the font's tnum feature exchanges."""
    table = font["GSUB"].table
    lookups = {
        index
        for record in table.FeatureList.FeatureRecord
        if record.FeatureTag == "tnum"
        for index in record.Feature.LookupListIndex
    }
    exchanged = {}
    for index in lookups:
        for subtable in table.LookupList.Lookup[index].SubTable:
            exchanged.update(getattr(subtable, "ExtSubTable", subtable).mapping)
    if not exchanged:
        sys.exit("the font has no tabular figures")
    return exchanged


def rename(font, weight):
    name = font["name"]
    for record in name.names:
        # An unbroken name of the file for PostScript, the family's name everywhere else.
        if record.nameID == 6:
            record.string = f"InterTabular-{weight}"
        elif record.nameID in (1, 3, 4, 16):
            record.string = record.toUnicode().replace("Inter", TABULAR_FAMILY, 1)
    if "CFF " in font:
        cff = font["CFF "].cff
        cff.fontNames[0] = f"InterTabular-{weight}"
        top = cff.topDictIndex[0]
        top.FamilyName = TABULAR_FAMILY
        top.FullName = f"{TABULAR_FAMILY} {weight}"


def write_tabular(source, target, weight):
    font = TTFont(source)
    exchanged = tabular_glyphs(font)
    for table in font["cmap"].tables:
        table.cmap = {code: exchanged.get(glyph, glyph) for code, glyph in table.cmap.items()}

    options = subset.Options()
    options.layout_features = ["ccmp", "kern", "locl", "mark"]
    options.name_IDs = ["*"]
    options.notdef_outline = True
    worker = subset.Subsetter(options)
    worker.populate(unicodes=TABULAR_CHARACTERS)
    worker.subset(font)
    rename(font, weight)
    font.save(target)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=pathlib.Path, required=True, help="folder with Inter-Regular.otf and its peers")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="folder to write to")
    arguments = parser.parse_args()

    arguments.output.mkdir(parents=True, exist_ok=True)
    for weight in WEIGHTS:
        source = source_file(arguments.source, weight)
        shutil.copyfile(source, arguments.output / f"Inter-{weight}.otf")
        write_tabular(source, arguments.output / f"InterTabular-{weight}.otf", weight)


if __name__ == "__main__":
    main()
