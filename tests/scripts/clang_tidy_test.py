"""Tests which sources a change affects: a missed one is found only by the full run."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))
import clang_tidy


class SourcesThatAChangeConcerns(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        for name, text in {
            "src/core/words.h": "",
            "src/core/words.cpp": '#include "core/words.h"\n',
            "src/core/removal.h": '#include "core/words.h"\n',
            "src/core/removal.cpp": '#include "core/removal.h"\n',
            "src/core/apart.cpp": "#include <string>\n",
            "tests/core/near.h": "",
            "tests/core/removal_test.cpp": '#include "core/removal.h"\n#include "near.h"\n',
            "docs/page.md": "",
        }.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)

    def concerned(self, *names):
        found = clang_tidy.concerned(self.root, {self.root / name for name in names})
        return {str(path.relative_to(self.root)) for path in found}

    def git(self, *arguments):
        subprocess.run(["git", "-c", "user.name=a", "-c", "user.email=a@b", *arguments], cwd=self.root, check=True,
                       capture_output=True)

    def test_are_those_that_include_it_however_far_away(self):
        self.assertEqual(self.concerned("src/core/words.h"),
                         {"src/core/words.h", "src/core/words.cpp", "src/core/removal.h", "src/core/removal.cpp",
                          "tests/core/removal_test.cpp"})

    def test_are_found_beside_the_header_as_well(self):
        self.assertEqual(self.concerned("tests/core/near.h"), {"tests/core/near.h", "tests/core/removal_test.cpp"})

    def test_are_the_source_alone_where_nothing_includes_it(self):
        self.assertEqual(self.concerned("src/core/apart.cpp", "docs/page.md"), {"src/core/apart.cpp"})

    def test_are_all_where_the_rules_change(self):
        self.assertEqual(len(self.concerned("src/.clang-tidy")), 7)

    def test_are_those_of_commits_and_of_the_working_tree(self):
        self.git("init", "-q")
        self.git("add", ".")
        self.git("commit", "-qm", "start")
        (self.root / "src/core/apart.cpp").write_text("int a;\n")
        self.git("commit", "-qam", "committed")
        (self.root / "src/core/words.cpp").write_text("int b;\n")
        (self.root / "src/core/new.cpp").write_text("int c;\n")
        self.assertEqual({path.name for path in clang_tidy.changed_since(self.root, "HEAD~1")},
                         {"apart.cpp", "words.cpp", "new.cpp"})


if __name__ == "__main__":
    unittest.main()
