"""Checks the files that `cmake --install` installs, and validates them with the tools that read them.

    installed_test.py CMAKE BUILD VERSION [WHAT-HAS-TO-BE-BUILT…]
"""
import configparser
import gzip
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

CMAKE, BUILD, VERSION = sys.argv[1:4]
ID = "app.corvane.Corvane"
SOURCE = pathlib.Path(__file__).resolve().parents[2] / "src"
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)

EXPECTED = {
    "bin/corvane",
    "bin/corvane-cli",
    f"share/applications/{ID}.desktop",
    "share/applications/zz-corvane-folder.desktop",
    "share/bash-completion/completions/corvane",
    "share/bash-completion/completions/corvane-cli",
    "share/doc/corvane/changelog.Debian.gz",
    "share/doc/corvane/changelog.gz",
    "share/doc/corvane/copyright",
    "share/doc/corvane/user-guide.md",
    "share/fish/vendor_completions.d/corvane.fish",
    "share/fish/vendor_completions.d/corvane-cli.fish",
    *(f"share/icons/hicolor/{size}x{size}/apps/{ID}.png" for size in ICON_SIZES),
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    "share/lintian/overrides/corvane",
    "share/man/man1/corvane-cli.1.gz",
    "share/man/man1/corvane.1.gz",
    f"share/metainfo/{ID}.metainfo.xml",
    "share/zsh/_corvane",
    "share/zsh/_corvane-cli",
}


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, check=False, **options)


class InstalledTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        installed = run(CMAKE, "--install", BUILD, env={**os.environ, "DESTDIR": cls.folder.name})
        assert installed.returncode == 0, installed.stderr
        cls.root = next(path.parent for path in pathlib.Path(cls.folder.name).rglob("bin") if path.is_dir())

    def needs(self, program):
        if shutil.which(program) is None:
            print(f"{self.id()} skipped: {program} is not installed")
            self.skipTest(f"{program} is not installed")

    def path(self, name):
        return self.root / name

    def assertSilent(self, *command, **options):
        result = run(*command, **options)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""), command)


class Files(InstalledTest):
    def test_are_those_of_the_list(self):
        found = {str(path.relative_to(self.root)) for path in self.root.rglob("*") if not path.is_dir()}
        # zsh searches different folders on different distributions.
        found = {re.sub(r"^share/zsh/[\w-]+/", "share/zsh/", name) for name in found}
        self.assertEqual(sorted(found), sorted(EXPECTED))

    def test_are_readable_by_everybody_and_written_by_the_owner_alone(self):
        for path in self.root.rglob("*"):
            mode = path.stat().st_mode & 0o777
            runs = path.is_dir() or path.parent.name == "bin"
            self.assertEqual(oct(mode), oct(0o755 if runs else 0o644), path)

    def test_are_compressed_without_a_date(self):
        for path in self.root.rglob("*.gz"):
            with self.subTest(path=path):
                self.assertEqual(path.read_bytes()[4:8], b"\0\0\0\0")
                self.assertTrue(gzip.decompress(path.read_bytes()).strip())


class Modules(InstalledTest):
    # They are loaded at run time, so only this test checks that the package depends on them.
    def test_of_qml_that_the_window_imports_are_named_by_the_package(self):
        config = (pathlib.Path(BUILD) / "CPackConfig.cmake").read_text()
        depends = set(re.split(r"[,\s]+", re.search(r'CPACK_DEBIAN_PACKAGE_DEPENDS "([^"]*)"', config)[1]))
        for path in SOURCE.rglob("*.qml"):
            text = path.read_text()
            # Only loaded on a Mac, by URL.
            if path.name == "SystemMenuBar.qml":
                continue
            self.assertNotRegex(text, r"\bSystemMenuBar\s*\{", path)
            for module in re.findall(r"^import (Qt[\w.]*)", text, re.M):
                package = "qml6-module-" + module.removesuffix(".Basic").lower().replace(".", "-")
                self.assertIn(package, depends, path)


class VersionEverywhere(InstalledTest):
    def test_is_the_projects(self):
        metainfo = xml.etree.ElementTree.parse(self.path(f"share/metainfo/{ID}.metainfo.xml"))
        self.assertEqual(metainfo.find("releases/release").get("version"), VERSION)
        changelog = gzip.decompress(self.path("share/doc/corvane/changelog.Debian.gz").read_bytes()).decode()
        self.assertRegex(changelog, rf"\Acorvane \({re.escape(VERSION)}-\d+\) ")
        # The date format of e-mail, which Debian's tools expect.
        self.assertRegex(changelog, r"\n -- .+ <.+@.+>  \w{3}, \d{2} \w{3} \d{4} \d{2}:\d{2}:\d{2} \+0000\n\Z")
        for program in ("corvane", "corvane-cli"):
            self.assertIn(VERSION, run(self.path(f"bin/{program}"), "--version").stdout)


class Desktop(InstalledTest):
    def entry(self, name):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.path(f"share/applications/{name}.desktop"))
        return parser["Desktop Entry"]

    def test_entries_are_valid(self):
        self.needs("desktop-file-validate")
        for path in self.path("share/applications").iterdir():
            self.assertSilent("desktop-file-validate", path)

    def test_entries_start_what_is_installed_with_an_icon_that_is_installed(self):
        for name in (ID, "zz-corvane-folder"):
            entry = self.entry(name)
            self.assertTrue(self.path("bin/" + entry["Exec"].split()[0]).exists())
            self.assertTrue(self.path(f"share/icons/hicolor/scalable/apps/{entry['Icon']}.svg").exists())
            self.assertIn("%f", entry["Exec"].split())

    # Without a default set by the desktop or the user, the first entry in alphabetical order opens folders.
    def test_entry_that_opens_folders_comes_after_every_file_manager(self):
        self.assertNotIn("MimeType", self.entry(ID))
        entry = self.entry("zz-corvane-folder")
        self.assertEqual(entry["MimeType"], "inode/directory;")
        self.assertEqual(entry["InitialPreference"], "0")
        self.assertEqual(entry["NoDisplay"], "true")
        managers = ["caja-folder-handler", "dolphin", "nemo", "org.gnome.Nautilus", "org.kde.dolphin", "pcmanfm",
                    "pcmanfm-qt", "spacefm", "thunar", "xfe"]
        self.assertEqual(max(*managers, "zz-corvane-folder"), "zz-corvane-folder")

    def test_metainfo_is_valid(self):
        self.needs("appstreamcli")
        path = self.path(f"share/metainfo/{ID}.metainfo.xml")
        result = run("appstreamcli", "validate", "--no-net", "--pedantic", path)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        # Ignored hints: the identifier is spelled as in Mac bundles; the site must be on the web, but this build has
        # none; and older programs do not know the newer form of the developer's name.
        hints = set(re.findall(r"^[EWIP]: \S+ ([\w-]+)", result.stdout, re.M))
        self.assertLessEqual(hints, {"cid-contains-uppercase-letter", "url-homepage-missing", "developer-info-missing",
                                     "developer-name-tag-deprecated"}, result.stdout)

    def test_metainfo_names_what_is_installed(self):
        metainfo = xml.etree.ElementTree.parse(self.path(f"share/metainfo/{ID}.metainfo.xml"))
        self.assertTrue(self.path("share/applications/" + metainfo.find("launchable").text).exists())
        binaries = {element.text for element in metainfo.findall("provides/binary")}
        self.assertEqual(binaries, {path.name for path in self.path("bin").iterdir()})

    def test_symbolic_icon_has_one_colour(self):
        drawing = self.path(f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg").read_text()
        self.assertEqual(len(set(re.findall(r"#[0-9a-fA-F]{3,8}", drawing))), 1)
        self.assertNotRegex(drawing, "gradient|opacity")


class Documents(InstalledTest):
    def test_manual_pages_are_read_without_a_warning(self):
        self.needs("man")
        for path in self.path("share/man/man1").iterdir():
            result = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", path,
                         env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80"})
            self.assertEqual((result.returncode, result.stderr), (0, ""), path)

    def test_manual_pages_tell_of_files_environment_and_status(self):
        for path in self.path("share/man/man1").iterdir():
            sections = re.findall(r"^\.Sh (.*)$", gzip.decompress(path.read_bytes()).decode(), re.M)
            for section in ("FILES", "ENVIRONMENT", "EXIT STATUS", "EXAMPLES", "SEE ALSO"):
                self.assertIn(section, sections, path)

    # The format consists of paragraphs of "Field: value" lines, with the text of each licence once.
    def test_copyright_has_the_text_of_each_licence_that_it_names(self):
        text = self.path("share/doc/corvane/copyright").read_text()
        self.assertTrue(text.startswith("Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"))
        self.assertNotIn("@CORVANE", text)
        paragraphs = text.split("\n\n")
        named = {re.search(r"^License: (.*)$", each, re.M)[1] for each in paragraphs if each.startswith("Files:")}
        given = [re.match(r"License: (.*)\n .+", each)[1] for each in paragraphs if each.startswith("License:")]
        self.assertEqual(sorted(given), sorted(named))
        for paragraph in paragraphs:
            for line in paragraph.strip().split("\n"):
                self.assertRegex(line, r"^([A-Z][\w-]*:| +\S)")


class Completions(InstalledTest):
    def completions(self, pattern):
        found = sorted(self.root.glob(pattern))
        self.assertEqual(len(found), 2, pattern)
        return found

    def test_load_in_bash(self):
        self.needs("bash")
        for path in self.completions("share/bash-completion/completions/*"):
            self.assertSilent("bash", "--norc", "-euc", 'source "$1" && complete -p "$2" >/dev/null', "-", path,
                              path.name)

    def test_load_in_zsh(self):
        self.needs("zsh")
        for path in self.completions("share/zsh/*/_*"):
            self.assertSilent("zsh", "-fc", 'fpath=($1 $fpath); autoload -Uz compinit && compinit -u -D && '
                              'autoload +X $2 && [[ ${_comps[${2#_}]} == $2 ]]', "-", path.parent, path.name)

    def test_load_in_fish(self):
        self.needs("fish")
        with tempfile.TemporaryDirectory() as home:
            for path in self.completions("share/fish/vendor_completions.d/*"):
                result = run("fish", "--no-config", "-c", f"source {path}; complete -C '{path.stem} --'",
                             env={**os.environ, "HOME": home})
                self.assertEqual((result.returncode, result.stderr), (0, ""), path)
                self.assertIn("--help", result.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
