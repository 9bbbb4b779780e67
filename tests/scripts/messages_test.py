"""Tests which texts of the sources are user-visible: a missing one is never proofread."""
import pathlib
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
import messages

QML = """
import QtQuick
PlainText {
    objectName: "overview.title"
    text: shown ? qsTr("Stop Scan") : qsTr("Scan")  // "not this"
    Accessible.name: qsTr("Files of "
                          + "one type")
}
"""
CPP = r"""
#include "core/words/figures.h"
// A comment with a "quoted text".
static_assert(sizeof(int) == 4, "four bytes are needed");
const char quote = '"';
const auto title = "Needs a scan";
const auto one = QStringLiteral("Refresh");
const auto joined = "It was replaced "
                    "while it was removed";
const auto count = formatCount(n, "file", "files");
const auto picture = R"(<svg width="10">)";
const auto row = fmt::format("{}  {}\n", a, b);
const auto path = "Library/Application Support/Crash Reports";
const auto key = "sharesStorageWith";
"""


class Messages(unittest.TestCase):
    def test_of_qml_are_what_is_marked_as_text(self):
        self.assertEqual(list(messages.messages(QML, is_qml=True)),
                         [(5, "Stop Scan"), (5, "Scan"), (6, "Files of one type")])

    def test_of_cpp_are_words_and_neither_paths_nor_keys(self):
        self.assertEqual([text for _, text in messages.messages(CPP, is_qml=False)],
                         ["Needs a scan", "Refresh", "It was replaced while it was removed", "file", "files"])

    def test_carry_the_line_that_they_begin_in(self):
        self.assertIn((8, "It was replaced while it was removed"), list(messages.messages(CPP, is_qml=False)))


class TextsOfTheSources(unittest.TestCase):
    def test_are_found_by_a_sentence_with_its_figures_and_names(self):
        for text, sentence in (("Moved {} ({}) to Trash", "Moved 3 items (2.5 MB) to Trash"),
                               ("%1 apps use %2", "12 apps use 8.37 GB"),
                               ("About %1", "About Corvane"),
                               ("No apps match “%1”", "No apps match “a (b”")):
            self.assertTrue(messages.likeness(text, sentence), text)

    def test_are_found_by_a_part_in_any_letter_case(self):
        self.assertTrue(messages.likeness("See “Left behind by deleted apps” at the top", "left behind by"))

    def test_of_less_than_half_of_the_sentence_are_told_apart(self):
        self.assertTrue(messages.is_only_a_part(" selected", "Nothing is selected for removal"))
        self.assertFalse(messages.is_only_a_part("{}% of {} explained", "14% of 811.29 GB explained"))
        self.assertFalse(messages.is_only_a_part("%1 apps use %2", "12 apps use 8.37 GB"))

    def test_are_found_as_a_part_unless_they_are_short(self):
        self.assertTrue(messages.likeness(", including their data", "12 apps use 8.37 GB, including their data"))
        self.assertFalse(messages.likeness("items", "Moved 3 items (2.5 MB) to Trash"))

    def test_are_not_found_by_another_sentence(self):
        self.assertFalse(messages.likeness("Moved {} ({}) to Trash", "Deleted 3 items (2.5 MB)"))
        self.assertFalse(messages.likeness("{}  {}\\n", "Deleted 3 items (2.5 MB)"))


class SharedTexts(unittest.TestCase):
    def test_are_written_once(self):
        texts = {}
        for path in sorted(path for path in (ROOT / "src").rglob("*") if path.suffix in messages.SUFFIXES):
            for _, text in messages.messages(path.read_text(), path.suffix == ".qml"):
                texts.setdefault(text, []).append(path.relative_to(ROOT).as_posix())
        shared = {text: paths for text, paths in texts.items() if "src/core/words/shared_texts.h" in paths}
        self.assertIn("Left behind by deleted apps", shared)
        for text, paths in shared.items():
            self.assertEqual(len(paths), 1, f"{text}: {paths}")


if __name__ == "__main__":
    unittest.main()
