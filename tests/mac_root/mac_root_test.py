#!/usr/bin/env python3
"""Tests of the Mac-shaped root and of the command line inside it.

    mac_root_test.py --list                              the tests' names
    mac_root_test.py NAME --cli PROGRAM --folder FOLDER  one test, in the root that was built in FOLDER

Exit status: 0 passed, 1 failed, 77 skipped (with the reason).
"""

import argparse
import json
import os
import pathlib
import stat
import subprocess
import sys
import tempfile
import unittest

import mac_root

RUNNER = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts" / "mac-root-run.sh"
HOME = "/Users/studio"
SKIPPED = 77


class RootCase(unittest.TestCase):
    """A test in a root that several share."""

    cli = None
    folder = None

    @property
    def root(self):
        return os.path.join(self.folder, "root")

    def run_inside(self, *arguments):
        """Runs a program in the root; what it printed and its exit status."""
        done = subprocess.run([RUNNER, self.folder, *arguments], capture_output=True, check=False)
        if done.returncode == SKIPPED:
            self.skipTest(done.stdout.decode().strip())
        return done

    def run_cli(self, *arguments):
        return self.run_inside(self.cli, *arguments)

    def scan(self, path):
        done = self.run_cli("scan", "--json", path)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return json.loads(done.stdout)

    def on_disk(self, path):
        """What `path` (as the Mac sees it) occupies by the system's own count: its files, links not followed."""
        total = 0
        for parent, _, files in os.walk(os.fsencode(self.root + path)):
            for name in files:
                facts = os.lstat(os.path.join(parent, name))
                if stat.S_ISREG(facts.st_mode):
                    total += facts.st_blocks * 512
        return total


def child(node, name):
    return next(child for child in node["children"] if child["name"] == name)


class MacRoot(RootCase):
    """The builder and the runner."""

    def test_TheDescriptionComesToTheMacsSizes(self):
        sizes = mac_root.all_sizes(mac_root.DEFAULT_SCALE)
        for name, megabytes in {"Library": 174, "Movies": 156.82, "Pictures": 94.92, "Projects": 73.98,
                                "Virtual Machines": 44.32, "Downloads": 41.99, "Documents": 25.87}.items():
            self.assertAlmostEqual(sizes[f"{HOME}/{name}".encode()] / 1e6, megabytes, delta=megabytes / 50)
        self.assertLess(sizes[b"/"], 800e6)

    def test_WhatIsBuiltOccupiesWhatTheDescriptionSays(self):
        sizes = mac_root.all_sizes(mac_root.DEFAULT_SCALE)
        for path in (HOME, HOME + "/Movies", "/Applications", "/Library"):
            self.assertAlmostEqual(self.on_disk(path), sizes[path.encode()], delta=sizes[path.encode()] / 200)

    def test_TwoRootsAreTheSame(self):
        def everything(folder):
            for parent, folders, files in os.walk(os.path.join(os.fsencode(folder), b"root")):
                folders.sort()
                for name in sorted(folders + files):
                    path = os.path.join(parent, name)
                    facts = os.lstat(path)
                    date = 0 if stat.S_ISLNK(facts.st_mode) else facts.st_mtime
                    size = facts.st_size if stat.S_ISREG(facts.st_mode) else 0
                    yield os.path.relpath(path, os.fsencode(folder)), facts.st_mode, size, date

        with tempfile.TemporaryDirectory(dir=self.folder) as other:
            mac_root.replace_root(other, mac_root.DEFAULT_SCALE)
            self.assertEqual(list(everything(self.folder)), list(everything(other)))
            mac_root.remove_root(other)

    def test_AFolderThatItDidNotMakeIsLeftAlone(self):
        with tempfile.TemporaryDirectory(dir=self.folder) as other:
            precious = pathlib.Path(other, "root", "precious")
            precious.mkdir(parents=True)
            with self.assertRaises(SystemExit):
                mac_root.replace_root(other, mac_root.DEFAULT_SCALE)
            self.assertTrue(precious.is_dir())

    def test_RecordedToolsAnswer(self):
        done = self.run_inside("/bin/sh", "-c", "/usr/sbin/diskutil apfs list -plist && "
                               "/usr/bin/tmutil listlocalsnapshots /")
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertIn(b"<key>CapacityCeiling</key>", done.stdout)
        self.assertIn(b"com.apple.TimeMachine.2025-11-19-081947.local", done.stdout)

    def test_ProgramsRunAsTheUserOfTheHomeFolder(self):
        done = self.run_inside("/bin/sh", "-c", 'echo "$HOME" && cd && pwd && ls "Library/Application Support/com.apple.TCC"')
        self.assertEqual(done.stdout.decode().split(), [HOME, HOME])
        self.assertIn(b"Permission denied", done.stderr)


class CommandLineOnAMac(RootCase):
    """The command line, end to end."""

    def test_ScanFindsWhatTheDisksOwnCountFinds(self):
        result = self.scan(HOME)
        self.assertEqual(result["root"]["size"], self.on_disk(HOME))
        self.assertEqual(result["bytes"], self.on_disk(HOME))
        self.assertFalse(result["cancelled"])
        for name in ("Library", "Movies", "Pictures", "Projects", "Downloads", ".Trash"):
            self.assertEqual(child(result["root"], name)["size"], self.on_disk(f"{HOME}/{name}"), name)

    def test_ScanWithoutAPathTakesTheHomeFolder(self):
        done = self.run_cli("scan", "--json")
        self.assertEqual(json.loads(done.stdout)["root"]["path"], HOME)

    def test_AFolderThatNobodyMayReadIsNamed(self):
        path = HOME + "/Library/Application Support/com.apple.TCC"
        done = self.run_cli("scan", "--json", path)
        self.assertEqual(done.returncode, 1)
        self.assertIn(path, done.stderr.decode())
        result = json.loads(done.stdout)
        self.assertEqual((result["root"]["unreadable"], result["unreadable"], result["bytes"]), (True, 1, 0))

    def test_PackagesAreOneDocument(self):
        pictures = child(self.scan(HOME)["root"], "Pictures")
        library = child(pictures, "Photos Library.photoslibrary")
        self.assertEqual(library["kind"], "package")
        self.assertEqual(library["size"], self.on_disk(library["path"]))

    def test_LinksAreNotFollowed(self):
        result = self.scan(HOME)
        self.assertNotIn("current-project", [node["name"] for node in result["root"]["children"]])

    def test_BuildFoldersAreRecognisedByTheirMarkers(self):
        projects = HOME + "/Projects"
        found = {(item["path"].removeprefix(projects + "/"), item["kind"]) for item in self.scan(HOME)["devJunk"]}
        self.assertEqual(found, {
            ("wayfinder-rs/target", "Rust target"),
            ("harbor-app/node_modules", "node_modules"),
            ("harbor-app/ios/Pods", "CocoaPods"),
            ("harbor-app/android/build", "Gradle build output"),
            ("harbor-app/android/.gradle", "Gradle project cache"),
            ("harbor-app/.next", "Next.js build"),
            ("ml-experiments/.venv", "Python virtualenv"),
            ("fieldnotes/node_modules", "node_modules"),
            ("tide-tables/.dart_tool", "Dart tool cache"),
        })

    def test_ANameThatIsNotTextCarriesItsBytes(self):
        downloads = child(self.scan(HOME)["root"], "Downloads")
        receipts = child(downloads, "Re\ufffdus 2019")
        self.assertEqual(bytes.fromhex(receipts["nameHex"]), b"Re\xe7us 2019")

    def test_WholeDiskIsScannedWithoutOtherVolumes(self):
        root = self.scan("/")["root"]
        self.assertEqual(root["name"], "Macintosh HD")
        for name in ("Users", "Applications", "Library", "opt"):
            self.assertEqual(child(root, name)["size"], self.on_disk("/" + name), name)
        self.assertNotIn("Volumes", [node["name"] for node in child(root, "System")["children"]])

    def test_ProtectedPlacesAreNamed(self):
        expected = {
            HOME: True,
            HOME + "/Library": True,
            HOME + "/Library/Caches": True,
            HOME + "/Library/Caches/pip": False,
            HOME + "/Library/Keychains/login.keychain-db": True,
            HOME + "/Movies": True,
            HOME + "/Movies/Exports": False,
            "/Applications": True,
            "/Applications/Quillpad.app": False,
            "/Library/Fonts": True,
            "/System/Library": True,
        }
        done = self.run_cli("protected", "--json", *expected)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertEqual({item["path"]: item["protected"] for item in json.loads(done.stdout)}, expected)


class RemovalOnAMac(RootCase):
    """What the command line removes. Each test has its own items; none counts what the others change."""

    def test_RemovedFileLiesInTheTrash(self):
        path = HOME + "/Downloads/client-rushes (1).zip"
        size = self.on_disk_file(path)
        done = self.run_cli("remove", "--json", "--yes", path)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        result = json.loads(done.stdout)
        self.assertEqual(result["removed"], [{"path": path, "size": size}])
        self.assertEqual(result["failures"], [])
        self.assertFalse(os.path.exists(self.root + path))
        self.assertEqual(self.on_disk_file(HOME + "/.local/share/Trash/files/client-rushes (1).zip"), size)
        info = pathlib.Path(self.root + HOME + "/.local/share/Trash/info/client-rushes (1).zip.trashinfo").read_text()
        self.assertIn("Path=/Users/studio/Downloads/client-rushes%20%281%29.zip", info)

    def test_ProtectedPlaceIsNotRemoved(self):
        before = self.on_disk(HOME + "/Library")
        done = self.run_cli("remove", "--json", "--yes", HOME + "/Library")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(json.loads(done.stdout)["failures"], ["Library: protected location"])
        self.assertEqual(self.on_disk(HOME + "/Library"), before)

    def test_WhatLiesInTheTrashIsDeletedForGood(self):
        path = HOME + "/.Trash/old-exports"
        done = self.run_cli("remove", "--json", "--yes", path)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertTrue(json.loads(done.stdout)["message"].startswith("Moved 1 item ("))
        self.assertFalse(os.path.exists(self.root + path))
        self.assertFalse(os.path.exists(self.root + HOME + "/.local/share/Trash/files/old-exports"))

    def on_disk_file(self, path):
        return os.lstat(self.root + path).st_blocks * 512


def tests():
    """The tests by the names that ctest shows: Class.Rule."""
    for case in (MacRoot, CommandLineOnAMac, RemovalOnAMac):
        for method in unittest.TestLoader().getTestCaseNames(case):
            yield f"{case.__name__}.{method.removeprefix('test_')}", case(method)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("name", nargs="?")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--cli")
    parser.add_argument("--folder")
    arguments = parser.parse_args()
    known = dict(tests())
    if arguments.list:
        print("\n".join(known), end="")
        return 0
    RootCase.cli, RootCase.folder = arguments.cli, arguments.folder
    result = unittest.TextTestRunner(verbosity=2).run(known[arguments.name])
    if result.skipped:
        return SKIPPED
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
