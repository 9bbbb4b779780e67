#!/usr/bin/env python3
"""Tests of the breakdown of the Mac-shaped root; root_case.py tells how to run one."""

import json
import os
import pathlib
import re
import sys
import tempfile

import shaped_root
from root_case import RootCase, child, main

HOME = "/Users/studio"


class BreakdownCase(RootCase):
    """The base of the tests of the whole disk's breakdown."""

    # The system container's figures in the recorded listing.
    CEILING, FREE = 994662584320, 183371001856
    SYSTEM, SWAP, DATA = 11240001536, 4294983680, 788935835648
    SUPPORT = 5202345984 + 1501560832 + 26214400

    def breakdown(self, *arguments):
        done = self.run_cli("breakdown", "--json", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertEqual(done.stderr, b"")
        return json.loads(done.stdout)

    @staticmethod
    def sizes(breakdown):
        return {segment["id"]: segment["size"] for segment in breakdown["segments"]}


class BreakdownOnAMac(BreakdownCase):
    """The breakdown of the whole disk."""

    def test_OnTheDemonstrationsDiskVolumeContainerAndFilesAgree(self):
        done = self.run_on_disk(self.cli, "breakdown", "--json", "--scan", HOME)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        result = json.loads(done.stdout)
        self.assertEqual((result["total"], result["free"]), (self.CEILING, self.FREE))
        self.assertEqual(result["overcount"], 0)
        used = result["total"] - result["free"]
        self.assertLess(result["hidden"], used / 10)

    def test_WithoutAScanTheRestIsNotScannedYet(self):
        result = self.breakdown()
        applications = self.on_disk("/Applications")
        self.assertEqual((result["total"], result["free"], result["fromAPFS"]), (self.CEILING, self.FREE, True))
        self.assertEqual((result["hasScan"], result["overcount"], result["purgeable"]), (False, 0, 0))
        # At this scale the other places are below 50 MB, the minimum for a row.
        self.assertLess(self.on_disk("/Library"), 50_000_000)
        self.assertGreater(applications, 50_000_000)
        self.assertEqual(self.sizes(result), {
            "system": self.SYSTEM, "vm": self.SWAP, "support": self.SUPPORT, "/Applications": applications,
            "hidden": self.DATA - applications})
        self.assertEqual([segment["id"] for segment in result["segments"]],
                         ["hidden", "system", "support", "vm", "/Applications"])
        self.assertEqual(result["hidden"], self.DATA - applications)
        self.assertEqual(result["segments"][0]["action"], {"kind": "scanHome"})
        self.assertEqual(result["segments"][4]["action"], {"kind": "reveal", "path": "/Applications"})

    def test_AScannedHomeIsExplained(self):
        result = self.breakdown("--scan", HOME)
        home, applications = self.on_disk(HOME), self.on_disk("/Applications")
        self.assertEqual(self.sizes(result)["scanned"], home)
        self.assertEqual(self.sizes(result)["hidden"], self.DATA - home - applications)
        titles = {segment["id"]: segment["title"] for segment in result["segments"]}
        self.assertEqual((titles["scanned"], titles["hidden"]), ("Your Home Folder", "Hidden System Data"))
        scanned = next(segment for segment in result["segments"] if segment["id"] == "scanned")
        self.assertEqual([item["name"] for item in scanned["children"]],
                         ["Library", "Movies", "Pictures", "Projects", "Virtual Machines"])
        hidden = next(segment for segment in result["segments"] if segment["id"] == "hidden")
        # Unreadable folders have no nodes in the tree; only the scan root itself is counted.
        self.assertTrue(hidden["detail"].endswith("the Spotlight index and snapshot data."), hidden["detail"])
        self.assertEqual(hidden["action"], {"kind": "fullDiskAccess"})

    def test_AScannedFolderThatNobodyMayReadIsCounted(self):
        done = self.run_cli("breakdown", "--json", "--scan", HOME + "/Library/Application Support/com.apple.TCC")
        self.assertEqual(done.returncode, 1)
        self.assertIn("com.apple.TCC: Permission denied", done.stderr.decode())
        result = json.loads(done.stdout)
        self.assertEqual(self.sizes(result)["scanned"], 0)
        hidden = next(segment for segment in result["segments"] if segment["id"] == "hidden")
        self.assertTrue(hidden["detail"].startswith("Includes the parts of your home folder outside this scan. "))
        self.assertTrue(hidden["detail"].endswith(" Corvane couldn't open 1 folder during the scan."))

    def test_AWholeDiskScanHasNoPlacesOfItsOwn(self):
        root = self.scan("/")["root"]
        result = self.breakdown("--scan", "/")
        self.assertEqual(set(self.sizes(result)), {"system", "vm", "support", "scanned", "hidden"})
        self.assertEqual(self.sizes(result)["scanned"], root["size"] - child(root, "System")["size"])

    def test_TheTableNamesEverySegment(self):
        done = self.run_cli("breakdown", "--scan", HOME)
        text = done.stdout.decode()
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertIn("811.29 GB used of 994.66 GB, 183.37 GB free on Macintosh HD\n", text)
        for name in ("macOS", "Swap & Sleep Image", "macOS Support Files", "Your Home Folder", "Applications",
                     "Hidden System Data (unexplained)"):
            self.assertRegex(text, rf"%  [█▏▎▍▌▋▊▉ ]{{20}}  {re.escape(name)}\n")
        self.assertIn('3 local Time Machine snapshots; "corvane-cli snapshots" lists them\n', text)
        self.assertNotIn("APFS layout", text)

    def test_SnapshotsAreListedInTheSystemsOrder(self):
        done = self.run_cli("snapshots", "--json")
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertEqual(json.loads(done.stdout), [
            {"name": "com.apple.TimeMachine.2025-11-17-081502.local", "date": 1763367302},
            {"name": "com.apple.TimeMachine.2025-11-18-081233.local", "date": 1763453553},
            {"name": "com.apple.TimeMachine.2025-11-19-081947.local", "date": 1763540387}])
        self.assertEqual(self.run_cli("snapshots").stdout.decode().splitlines()[0],
                         "2025-11-17 08:15  com.apple.TimeMachine.2025-11-17-081502.local")


class OwnRootCase(BreakdownCase):
    """Tests that change the root; each has a minimal one of its own."""

    scale = shaped_root.DEFAULT_SCALE
    left_empty = (HOME, "/Applications", "/opt")

    def setUp(self):
        # Skip if nothing can be run, before building anything.
        self.run_inside("/bin/true")
        temporary = tempfile.TemporaryDirectory(dir=self.folder)
        self.addCleanup(temporary.cleanup)
        self.folder = temporary.name
        shaped_root.replace_root("mac", self.folder, self.scale, self.left_empty)
        self.addCleanup(shaped_root.remove_root, self.folder)

    def replace_tool(self, path, script):
        """Replaces a tool by another script, or removes it if `script` is None."""
        tool = pathlib.Path(self.root + path)
        tool.unlink()
        if script is not None:
            tool.write_text("#!/bin/sh\n" + script)
            tool.chmod(0o755)

    def prints(self, name):
        """A script that prints one of the recorded outputs."""
        recorded = pathlib.Path(shaped_root.HERE, "recorded", name)
        pathlib.Path(self.root + "/System/Volumes/recorded", name).write_bytes(recorded.read_bytes())
        return f"exec cat /System/Volumes/recorded/{name}\n"


class ToolsOnAMac(OwnRootCase):
    """Failures of the system's tools."""

    left_empty = (*OwnRootCase.left_empty, "/Library")

    def test_AnotherMacsListingIsRead(self):
        self.replace_tool("/usr/sbin/diskutil", self.prints("diskutil-apfs-list-500gb.plist"))
        result = self.breakdown()
        self.assertEqual((result["total"], result["free"], result["fromAPFS"]), (494384795648, 156070223872, True))
        sizes = self.sizes(result)
        self.assertEqual((sizes["system"], sizes["vm"]), (12589998080, 2147504128))
        self.assertEqual(sizes["support"], 7720194048 + 1311281152 + 3272704)
        self.assertEqual(sizes["hidden"], 314500907008)

    def test_RecordedSnapshotListingsAreRead(self):
        dated = {"name": "com.apple.TimeMachine.2024-05-01-101500.local", "date": 1714558500}
        for name, expected in {
                "tmutil-disk.txt": [dated, {"name": "com.apple.os.update-A38BB43717D24B889E500B04A72B34A3",
                                            "date": None}],
                "tmutil-volume-group.txt": [dated, {"name": "com.apple.os.update-MSUPrepareUpdate", "date": None}],
                "tmutil-empty.txt": []}.items():
            self.replace_tool("/usr/bin/tmutil", self.prints(name))
            self.assertEqual(json.loads(self.run_cli("snapshots", "--json").stdout), expected, name)
            self.assertEqual(self.breakdown()["snapshots"], expected, name)

    # Failures of a tool.
    TROUBLE = {
        "fails": "echo 'Some information was unavailable' >&2\nexit 1\n",
        "fails after an answer": "cat /System/Volumes/recorded/*\nexit 3\n",
        "says nothing": "exit 0\n",
        "says anything": "head -c 100000 /dev/urandom\n",
        "is ended": "kill -9 $$\n",
        "floods its errors": "yes trouble | head -c 3000000 >&2\nexit 1\n",
        "is gone": None,
    }

    def test_WithoutALayoutTheVolumesOwnFiguresHold(self):
        for trouble, script in self.TROUBLE.items():
            with self.subTest(trouble):
                self.replace_tool("/usr/sbin/diskutil", script)
                result = self.breakdown()
                self.assertFalse(result["fromAPFS"])
                volume = os.statvfs(self.root)
                blocks = volume.f_blocks - volume.f_bfree + volume.f_bavail
                self.assertEqual(result["total"], blocks * volume.f_frsize)
                self.assertTrue({"system", "vm", "support"}.isdisjoint(self.sizes(result)))
                self.assertEqual(len(result["snapshots"]), 3)
                self.assertIn("Couldn't read the APFS layout, so macOS, swap and Recovery are shown as one total.\n",
                              self.run_cli("breakdown").stdout.decode())
                pathlib.Path(self.root + "/usr/sbin/diskutil").touch()

    def test_WithoutAnAnswerThereAreNoSnapshots(self):
        for trouble, script in self.TROUBLE.items():
            with self.subTest(trouble):
                self.replace_tool("/usr/bin/tmutil", script)
                self.assertEqual(self.run_cli("snapshots", "--json").stdout, b"[]\n")
                done = self.run_cli("snapshots")
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"No local snapshots\n", b""))
                result = self.breakdown()
                self.assertEqual((result["snapshots"], result["fromAPFS"]), ([], True))
                pathlib.Path(self.root + "/usr/bin/tmutil").touch()

    def test_AToolThatMayNotBeRunIsNotRun(self):
        os.chmod(self.root + "/usr/sbin/diskutil", 0o644)
        self.assertFalse(self.breakdown()["fromAPFS"])


class LargePlacesOnAMac(OwnRootCase):
    """Places outside the home folder, at a scale at which they are large enough for a row."""

    scale = 500

    def location(self, result, path):
        return next(segment for segment in result["segments"] if segment["id"] == path)

    def test_APlaceHasItsThreeLargestItems(self):
        library = self.location(self.breakdown("--scan", HOME), "/Library")
        self.assertEqual(library["size"], self.on_disk("/Library"))
        self.assertGreater(library["size"], 50_000_000)
        self.assertEqual(library["children"], [{"name": name, "size": self.on_disk("/Library/" + name)}
                                               for name in ("Developer", "Audio", "Application Support")])

    def test_AScannedFolderIsLeftOutOfThePlaceAroundIt(self):
        library = self.location(self.breakdown("--scan", "/Library/Fonts"), "/Library")
        self.assertEqual(library["size"], self.on_disk("/Library") - self.on_disk("/Library/Fonts"))
        inside = self.location(self.breakdown("--scan", "/Library/Application Support/."), "/Library")
        self.assertEqual([item["name"] for item in inside["children"]][:2], ["Developer", "Audio"])
        self.assertEqual(inside["size"], self.on_disk("/Library") - self.on_disk("/Library/Application Support"))


if __name__ == "__main__":
    sys.exit(main(BreakdownOnAMac, ToolsOnAMac, LargePlacesOnAMac))
