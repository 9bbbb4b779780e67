"""Whatever the documents refer to must exist: files of the repository, linked documents, and tests."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/*.md")])
LINK = re.compile(r"\]\((?!https?:)([^)#\s]+)")
FILE = re.compile(r"`((?:src|tests|docs|scripts|packaging|cmake|bench)/[\w./-]+)`")
TYPE = re.compile(r"`([A-Z][a-z]+[A-Z]\w*|[A-Z]\w+::\w+)`")
WORD = re.compile(r"\w+")
NAMED_TEST = re.compile(r"`(\w+)\.([A-Z]\w+)`")
TEST = re.compile(r"^TEST(?:_F|_P)?\((\w+), (\w+)\)", re.M)


class Documents(unittest.TestCase):
    def test_link_to_what_exists(self):
        for document in DOCUMENTS:
            for link in LINK.findall(document.read_text()):
                self.assertTrue((document.parent / link).exists(), f"{document.name} links to {link}")

    def test_name_files_that_exist(self):
        for document in DOCUMENTS:
            for name in FILE.findall(document.read_text()):
                self.assertTrue((ROOT / name).exists(), f"{document.name} names {name}")

    def test_of_a_mac_tells_of_each_of_its_sources(self):
        text = (ROOT / "docs/macos.md").read_text()
        for source in [*ROOT.glob("src/**/macos/*.cpp"), *ROOT.glob("src/**/macos/*.mm")]:
            name = source.relative_to(ROOT).as_posix()
            self.assertTrue(f"`{name}`" in text, f"macos.md does not name {name}")

    def test_of_the_architecture_name_types_and_functions_that_exist(self):
        sources = [path for folder in ("src", "tests") for path in ROOT.glob(folder + "/**/*")
                   if path.suffix in {".h", ".qml"}]
        words = {path.stem for path in sources}.union(*(WORD.findall(path.read_text()) for path in sources))
        for name in TYPE.findall((ROOT / "docs/architecture.md").read_text()):
            self.assertTrue(words.issuperset(name.split("::")), f"{name} is not in the sources")

    def test_that_promise_something_name_tests_that_exist(self):
        known = {test for source in ROOT.glob("tests/**/*.cpp") for test in TEST.findall(source.read_text())}
        named = NAMED_TEST.findall((ROOT / "docs/never.md").read_text())
        self.assertGreater(len(named), 30)
        for test in named:
            self.assertTrue(test in known, ".".join(test))

    def test_of_places_name_every_variable(self):
        table = (ROOT / "src/platform/linux/place_settings.h").read_text()
        variables = set(re.findall(r'^    \{"[^"]+", "(\w+)"', table, re.M))
        self.assertGreater(len(variables), 20)
        for document in ("docs/user-guide.md", "packaging/man/corvane-cli.1"):
            words = set(WORD.findall((ROOT / document).read_text()))
            self.assertEqual(variables - words, set(), f"variables that {document} does not name")

    def test_of_changes_names_the_release_that_is_built(self):
        build = (ROOT / "CMakeLists.txt").read_text()
        version = re.search(r"project\(corvane VERSION ([\d.]+)", build)[1]
        date = re.search(r"CORVANE_RELEASE_DATE ([\d-]+)", build)[1]
        releases = re.findall(r"^## (\d.*)", (ROOT / "CHANGELOG.md").read_text(), re.M)
        self.assertEqual(releases[0], f"{version} ({date})")


if __name__ == "__main__":
    unittest.main()
