#!/usr/bin/env python3
"""Tests of the font conversion: charstrings to outlines, cubic to quadratic curves, and the font files in the build
folder given as the first argument."""

import pathlib
import struct
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "assets" / "fonts"))

import build_fonts  # noqa: E402
import cff  # noqa: E402
import sfnt  # noqa: E402
import truetype  # noqa: E402

MADE = pathlib.Path(sys.argv.pop(1))
FAMILIES = ("InterText", "InterTabular")


def program(*parts):
    """A charstring: numbers are encoded, operators are given as bytes."""
    return b"".join(part if isinstance(part, bytes) else struct.pack(">Bh", 28, part) for part in parts)


def contours(*parts, subroutines=()):
    return cff.Charstring(program(*parts), list(subroutines), []).contours


class Charstrings(unittest.TestCase):
    def test_lines_alternate_between_the_directions(self):
        self.assertEqual(contours(10, 20, b"\x15", 5, 7, -5, b"\x06\x0e"),
                         [[10 + 20j, (15 + 20j,), (15 + 27j,), (10 + 27j,)]])

    def test_a_width_before_the_first_move_is_no_coordinate(self):
        self.assertEqual(contours(600, 10, b"\x16\x0e"), [[10 + 0j]])

    def test_hint_masks_are_as_long_as_the_hints_are_many(self):
        # Nine hints need two mask bytes; the second, 21, would be a move operator if it were parsed as code.
        hints = [1] * 18
        self.assertEqual(contours(*hints, b"\x12", b"\x13\xff\x15", 3, b"\x04\x0e"), [[3j]])

    def test_subroutines_are_numbered_from_their_bias(self):
        self.assertEqual(contours(1, 1, b"\x15", 4, -107, b"\x0a\x0e", subroutines=[b"\x06\x0b"]),
                         [[1 + 1j, (5 + 1j,)]])

    def test_the_last_alternating_curve_may_end_in_any_direction(self):
        self.assertEqual(contours(0, b"\x16", 1, 2, 3, 4, 5, b"\x1f\x0e"), [[0j, (1 + 0j, 3 + 3j, 8 + 7j)]])

    def test_a_flex_returns_to_its_height(self):
        (contour,) = contours(0, 9, b"\x15", 1, 2, 3, 4, 5, 6, 7, b"\x0c\x22\x0e")
        self.assertEqual(contour[-1][-1], 25 + 9j)


class Curves(unittest.TestCase):
    def test_a_quadratic_curve_in_cubic_form_is_one_piece(self):
        start, control, end = 0j, 50 + 100j, 100 + 0j
        cubic = (start, start + (control - start) * 2 / 3, end + (control - end) * 2 / 3, end)
        (found,) = truetype.quadratic_controls(cubic, 1.0)
        self.assertAlmostEqual(abs(found - control), 0, places=6)

    def test_pieces_stay_within_the_error(self):
        cubic = (0j, 0 + 552j, 448 + 1000j, 1000 + 1000j)
        for error in (0.1, 1.0, 10.0):
            controls = truetype.quadratic_controls(cubic, error)
            ends = [cubic[0], *((a + b) / 2 for a, b in zip(controls, controls[1:])), cubic[3]]
            for index, control in enumerate(controls):
                for step in range(101):
                    t = step / 100
                    drawn = ends[index] * (1 - t) ** 2 + 2 * control * t * (1 - t) + ends[index + 1] * t * t
                    wanted = truetype.part(cubic, (index + t) / len(controls), 1)[0]
                    self.assertLessEqual(abs(drawn - wanted), error + 1e-6)

    def test_contours_turn_the_other_way_and_close_once(self):
        self.assertEqual(truetype.quadratic_contour([0j, (10 + 0j,), (10 + 10j,), (0j,)], 1.0),
                         [(0, 0, True), (10, 10, True), (10, 0, True)])


class MadeFonts(unittest.TestCase):
    def fonts(self):
        for family in FAMILIES:
            for weight in build_fonts.WEIGHTS:
                with self.subTest(family=family, weight=weight):
                    yield family, (MADE / f"{family}-{weight}.ttf").read_bytes()

    def test_each_has_truetype_outlines_and_sums_up(self):
        for _, font in self.fonts():
            tables = sfnt.read_tables(font)
            self.assertLessEqual({"glyf", "loca", "cmap", "GPOS", "hmtx"}, tables.keys())
            self.assertNotIn("CFF ", tables)
            self.assertEqual(sfnt.checksum(font), sfnt.SUM_OF_A_FONT)

    def test_figures_of_columns_have_one_width(self):
        for family, font in self.fonts():
            tables = sfnt.read_tables(font)
            characters = build_fonts.read_characters(tables["cmap"])
            widths = [struct.unpack_from(">H", tables["hmtx"], characters[ord(figure)] * 4)[0] for figure in "0123456789"]
            # In the heavier weights "4" is a few units narrower, which is invisible at the program's font sizes.
            self.assertEqual(max(widths) - min(widths) < 6, family == "InterTabular")

    def test_each_has_a_family_name_of_its_own(self):
        for family, font in self.fonts():
            wanted = family.replace("Inter", "Inter ")
            self.assertIn(wanted.encode("utf-16-be"), sfnt.read_tables(font)["name"])


if __name__ == "__main__":
    unittest.main()
