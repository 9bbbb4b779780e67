"""Tests the targets found for a test's name: an extra program costs time, a missing one runs an outdated binary."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import test_targets

SOURCE = """
TEST(Plain, Works)
TEST_F(WithFixture, Works)
  TEST(NotAtTheStart, OfTheLine)
TEST_P(Odd, IsKept)
INSTANTIATE_TEST_SUITE_P(Names, Odd, Values("a"));
INSTANTIATE_TEST_SUITE_P(More, Odd, Values("b"));
"""


class NamesOfTests(unittest.TestCase):
    def found(self, expression):
        return [name for name, is_start in test_targets.names_in(SOURCE)
                if test_targets.matches(expression, name, is_start)]

    def test_are_read_from_the_source(self):
        self.assertEqual(self.found("Works"), ["Plain.Works", "WithFixture.Works"])
        self.assertEqual(self.found("^Plain"), ["Plain.Works"])
        self.assertEqual(self.found("NotAtTheStart.OfTheLine$"), ["NotAtTheStart.OfTheLine"])
        self.assertEqual(self.found("Elsewhere"), [])

    def test_with_parameters_carry_each_prefix(self):
        self.assertEqual(self.found("Odd.IsKept"), ["Names/Odd.IsKept/", "More/Odd.IsKept/"])
        self.assertEqual(self.found("^More/"), ["More/Odd.IsKept/"])

    def test_match_whatever_is_asked_of_the_parameter(self):
        self.assertEqual(self.found("Names/Odd.IsKept/Blank$"), ["Names/Odd.IsKept/"])
        self.assertEqual(self.found("Plain.Works/Blank"), [])


if __name__ == "__main__":
    unittest.main()
