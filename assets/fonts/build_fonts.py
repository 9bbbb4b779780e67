#!/usr/bin/env python3
"""Makes the fonts that the program embeds, from an installed Inter.

Per weight two files. "Inter Text" is Inter with TrueType outlines: Qt draws the original's outlines with thickened
stems, so that every weight looks like the next one. "Inter Tabular" has figures of one width besides: Qt 6.4 has no
font features, so the tabular forms are put in the place of the ordinary ones; it keeps only the characters that
columns of figures use. Their own family names keep an installed Inter from being taken in their place.
"""

import argparse
import pathlib
import sys

from fontTools import subset
from fontTools.pens.cu2quPen import Cu2QuPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont, newTable

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


def use_truetype_outlines(font):
    """Exchanges the font's cubic outlines for quadratic ones."""
    if "CFF " not in font:
        return
    order = font.getGlyphOrder()
    glyphs = font.getGlyphSet()
    outlines = newTable("glyf")
    outlines.glyphOrder = order
    outlines.glyphs = {}
    for name in order:
        pen = TTGlyphPen(glyphs)
        glyphs[name].draw(Cu2QuPen(pen, LARGEST_ERROR, reverse_direction=True))
        outlines.glyphs[name] = pen.glyph()
    font["glyf"] = outlines
    font["loca"] = newTable("loca")
    del font["CFF "]
    if "VORG" in font:
        del font["VORG"]

    for name, (advance, _) in font["hmtx"].metrics.items():
        outlines.glyphs[name].recalcBounds(outlines)
        font["hmtx"].metrics[name] = (advance, getattr(outlines.glyphs[name], "xMin", 0))

    limits = font["maxp"]
    limits.tableVersion = 0x00010000
    limits.maxZones = 1
    limits.maxTwilightPoints = limits.maxStorage = limits.maxFunctionDefs = limits.maxInstructionDefs = 0
    limits.maxStackElements = limits.maxSizeOfInstructions = 0
    limits.maxComponentElements = limits.maxComponentDepth = 0
    font["post"].formatType = 3.0
    font.sfntVersion = "\000\001\000\000"


def use_tabular_figures(font):
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


def rename(font, family, weight):
    for record in font["name"].names:
        # A name without spaces for PostScript, the family's name everywhere else.
        if record.nameID == 6:
            record.string = f"{family}-{weight}".replace(" ", "")
        elif record.nameID in (1, 3, 4, 16):
            record.string = record.toUnicode().replace("Inter", family, 1)


def write(source, folder, family, weight):
    font = TTFont(source)
    if family == "Inter Tabular":
        use_tabular_figures(font)
    use_truetype_outlines(font)
    rename(font, family, weight)
    font.save(folder / f"{family}-{weight}.ttf".replace(" ", ""))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=pathlib.Path, required=True, help="folder with Inter-Regular.otf and its peers")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="folder to write to")
    arguments = parser.parse_args()

    arguments.output.mkdir(parents=True, exist_ok=True)
    for weight in WEIGHTS:
        source = source_file(arguments.source, weight)
        for family in ("Inter Text", "Inter Tabular"):
            write(source, arguments.output, family, weight)


if __name__ == "__main__":
    main()
