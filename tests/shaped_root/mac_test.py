#!/usr/bin/env python3
"""Tests of the Mac-shaped root and of the command line inside it; root_case.py tells how to run one."""

import json
import os
import pathlib
import plistlib
import re
import stat
import struct
import sys
import tempfile
import urllib.parse
import zlib

import shaped_root
from root_case import RootCase, child, main

HOME = "/Users/studio"


class MacRoot(RootCase):
    """The builder and the runner."""

    def test_TheDescriptionComesToTheMacsSizes(self):
        sizes = shaped_root.all_sizes("mac", shaped_root.DEFAULT_SCALE)
        for name, megabytes in {"Library": 174, "Movies": 156.82, "Pictures": 94.92, "Projects": 73.98,
                                "Virtual Machines": 44.32, "Downloads": 41.99, "Documents": 25.87}.items():
            self.assertAlmostEqual(sizes[f"{HOME}/{name}".encode()] / 1e6, megabytes, delta=megabytes / 50)
        self.assertLess(sizes[b"/"], 800e6)

    def test_WhatIsBuiltOccupiesWhatTheDescriptionSays(self):
        sizes = shaped_root.all_sizes("mac", shaped_root.DEFAULT_SCALE)
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
            shaped_root.replace_root("mac", other, shaped_root.DEFAULT_SCALE)
            self.assertEqual(list(everything(self.folder)), list(everything(other)))
            shaped_root.remove_root(other)

    def test_EveryApplicationHasAnIconOfItsOwn(self):
        icons = {path.parents[2].name: path.read_bytes()
                 for path in pathlib.Path(self.root + "/Applications").rglob("AppIcon.icns")}
        self.assertGreater(len(icons), 30)
        self.assertEqual(len(set(icons.values())), len(icons))
        for name, icon in icons.items():
            # A larger file would be scaled up to megabytes, like every file of this root.
            self.assertLessEqual(len(icon), shaped_root.BLOCK, name)
            self.assertEqual((icon[:4], struct.unpack(">I", icon[4:8])[0]), (b"icns", len(icon)), name)
            png = icon[16:]
            width, height = struct.unpack(">II", png[16:24])
            points = zlib.decompress(png[png.index(b"IDAT") + 4:png.index(b"IEND") - 8])
            self.assertEqual(len(points), height * (width + 1), name)
            rows = [points[start + 1:start + 1 + width] for start in range(0, len(points), width + 1)]
            self.assertEqual(rows[0][0], 0, f"{name}: a corner shows through")
            white = sum(row.count(max(points)) for row in rows) / (width * height)
            self.assertTrue(0.04 < white < 0.3, f"{name}: {white:.0%} of it is its sign")

    def test_AFolderThatItDidNotMakeIsLeftAlone(self):
        with tempfile.TemporaryDirectory(dir=self.folder) as other:
            precious = pathlib.Path(other, "root", "precious")
            precious.mkdir(parents=True)
            with self.assertRaises(SystemExit):
                shaped_root.replace_root("mac", other, shaped_root.DEFAULT_SCALE)
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


class CleanupOnAMac(RootCase):
    """The cleanup catalogue."""

    def items(self):
        done = self.run_cli("cleanup", "--json")
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return json.loads(done.stdout)

    def test_EveryPlaceOfTheHomeIsMeasured(self):
        items = self.items()
        self.assertEqual(len(items), 18)
        totals = [item["total"] for item in items]
        self.assertEqual(totals, sorted(totals, reverse=True))
        for item in items:
            path = f"{HOME}/{item['relativePath']}"
            ignored = sum(os.lstat(self.root + path + "/" + name).st_blocks * 512
                          for name in (".DS_Store", ".localized") if os.path.lexists(self.root + path + "/" + name))
            self.assertEqual(item["total"], self.on_disk(path) - ignored, item["id"])
            self.assertEqual(item["total"], sum(entry["size"] for entry in item["entries"]), item["id"])
            for entry in item["entries"]:
                self.assertEqual(os.path.dirname(entry["path"]), path)
        filled = {item["id"] for item in items if item["total"] > 0}
        self.assertLessEqual({"caches", "logs", "trash", "deriveddata", "devicesupport", "archives", "simcaches",
                              "simdevices", "androidimages", "pnpm", "docker", "downloads", "backups"}, filled)

    def test_AFolderThatNobodyMayReadIsMarked(self):
        closed = [item["id"] for item in self.items() if not item["accessible"]]
        self.assertEqual(closed, ["mail"])


class DuplicatesOnAMac(RootCase):
    """Files with the same contents."""

    def test_OnlyFilesThatAreSaidToBeTheSameAreDuplicates(self):
        done = self.run_cli("duplicates", "--json", HOME)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        groups = [sorted(os.path.basename(file["path"]) for file in group["files"])
                  for group in json.loads(done.stdout)["groups"]]
        self.assertEqual(groups, [["client-rushes (1).zip", "client-rushes.zip"],
                                  ["tern-7b-q4.gguf", "tern-7b-q4.gguf"],
                                  ["Poster A1 final copy.psd", "Poster A1 final.psd", "Poster A1.psd"]])


class AppsOnAMac(RootCase):
    """The applications, their data in the Library, and the leftovers of deleted ones."""

    LIBRARY = HOME + "/Library"

    def inventory(self):
        done = self.run_cli("apps", "--json")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return json.loads(done.stdout)

    def bundles(self):
        """Every listed bundle, with its Info.plist as parsed by another library."""
        found = {}
        for folder in ("/Applications", "/Applications/Utilities", HOME + "/Applications"):
            for name in os.listdir(self.root + folder):
                path = f"{folder}/{name}"
                if name.endswith(".app"):
                    found[path] = plistlib.loads(pathlib.Path(self.root + path, "Contents/Info.plist").read_bytes())
        return {path: plist for path, plist in found.items()
                if not plist["CFBundleIdentifier"].startswith("com.apple.")}

    def test_EveryBundleIsReadAndMeasured(self):
        apps = self.inventory()["apps"]
        bundles = self.bundles()
        self.assertGreater(len(bundles), 15)
        self.assertEqual({app["path"] for app in apps}, set(bundles))
        for app in apps:
            plist = bundles[app["path"]]
            self.assertEqual(app["bundleID"], plist["CFBundleIdentifier"])
            self.assertEqual(app["version"], plist.get("CFBundleShortVersionString", ""))
            self.assertEqual(app["name"], os.path.basename(app["path"]).removesuffix(".app"))
            self.assertEqual(app["appSize"], self.on_disk(app["path"]), app["path"])
            self.assertEqual(app["isAppStore"],
                             os.path.exists(self.root + app["path"] + "/Contents/_MASReceipt/receipt"))
        sums = [app["appSize"] + sum(item["size"] for item in app["leftovers"] if item["match"] == "exact")
                for app in apps]
        self.assertEqual(sums, sorted(sums, reverse=True))

    def test_WhatAnAppKeepsIsFound(self):
        leftovers = {app["bundleID"]: app["leftovers"] for app in self.inventory()["apps"]}
        support = self.LIBRARY + "/Application Support/com.framewright.studio"
        self.assertIn({"path": support, "size": self.on_disk(support), "location": "Application Support",
                       "match": "exact", "modified": round(os.lstat(self.root + support).st_mtime)},
                      leftovers["com.framewright.studio"])
        named = self.LIBRARY + "/Application Support/Signal Deck"
        self.assertIn((named, "name"), [(item["path"], item["match"]) for item in leftovers["com.signaldeck.desktop"]])
        for bundle, items in leftovers.items():
            for item in items:
                if item["match"] == "exact":
                    self.assertIn(bundle.lower(), os.path.basename(item["path"]).lower())

    def test_WhatDeletedAppsLeftIsFound(self):
        inventory = self.inventory()
        groups = {group["id"]: group["items"] for group in inventory["orphanGroups"]}
        self.assertEqual({group: [item["path"].removeprefix(self.LIBRARY + "/") for item in items]
                          for group, items in groups.items()}, {
            "com.lathe.cadpro": ["Application Support/com.lathe.cadpro", "Caches/com.lathe.cadpro",
                                 "Preferences/com.lathe.cadpro.plist"],
            "io.mapleaf.viewer": ["Containers/io.mapleaf.viewer", "Saved Application State/io.mapleaf.viewer.savedState"],
            "org.chorale.player": ["Caches/org.chorale.player", "Caches/org.chorale.player.ShipIt",
                                   "HTTPStorages/org.chorale.player"],
            "net.paperkite.mailtool": ["Cookies/net.paperkite.mailtool.helper.binarycookies"]})
        for item in (item for items in groups.values() for item in items):
            self.assertEqual(item["modified"], round(os.lstat(self.root + item["path"]).st_mtime))
        installed = {".".join(app["bundleID"].lower().split(".")[:2]) for app in inventory["apps"]}
        for group in groups:
            self.assertNotIn(".".join(group.split(".")[:2]), installed)
            self.assertFalse(group.startswith("com.apple"), group)


class RemovalOnAMac(RootCase):
    """Removals on the command line. Each test has its own items and is not affected by the others' changes."""

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


class UninstallOnAMac(RootCase):
    """Complete uninstalls, with real processes. Each test has its own application, which no other test changes."""

    def uninstall(self, bundle, instances, answer):
        done = self.run_inside(self.probe, bundle, str(instances), answer)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        result = json.loads(done.stdout)
        self.assertFalse(result["isListed"])
        self.assertTrue(result["toast"].startswith("Moved "), result["toast"])
        self.assertNotIn("couldn't", result["toast"])
        for path in (bundle, *result["leftovers"]):
            self.assertFalse(os.path.lexists(self.root + path), path)
            self.assertIn(path, self.trashed())
        return result

    def trashed(self):
        """The original paths of the items in the Trash; expects each item to exist."""
        trash = pathlib.Path(self.root + HOME + "/.local/share/Trash")
        paths = []
        for record in (trash / "info").glob("*.trashinfo"):
            self.assertTrue(os.path.lexists(trash / "files" / record.stem), record)
            paths.append(urllib.parse.unquote(re.search("^Path=(.*)$", record.read_text(), re.MULTILINE)[1]))
        return paths

    def test_ARunningApplicationQuitsAndGoesToTheTrashWithItsLeftovers(self):
        result = self.uninstall("/Applications/Signal Deck.app", 1, "quit")
        self.assertEqual((result["waits"], result["ended"]), (True, 1))
        library = HOME + "/Library/"
        self.assertEqual({path.removeprefix(library) for path in result["leftovers"]}, {
            "Application Support/com.signaldeck.desktop",
            "Caches/com.signaldeck.desktop",
            "Containers/com.signaldeck.desktop",
            "HTTPStorages/com.signaldeck.desktop",
            "Preferences/com.signaldeck.desktop.plist",
            "Saved Application State/com.signaldeck.desktop.savedState"})
        self.assertTrue(os.path.exists(self.root + library + "Logs/Signal Deck"), "only possibly its own")
        self.assertTrue(os.path.exists(self.root + library + "Application Support/Signal Deck"))

    def test_AnApplicationThatIgnoresTheRequestGoesToTheTrashAllTheSame(self):
        result = self.uninstall("/Applications/Tidewater Sync.app", 1, "ignore")
        self.assertEqual((result["waits"], result["ended"]), (True, 0))
        self.assertEqual(len(result["leftovers"]), 3)

    def test_EachOfTwoInstancesIsAskedToQuit(self):
        result = self.uninstall("/Applications/Kite Mail.app", 2, "quit")
        self.assertEqual((result["waits"], result["ended"]), (True, 2))
        self.assertEqual(result["leftovers"], [HOME + "/Library/Caches/com.kitemail.app"])

    def test_AnApplicationThatDoesNotRunGoesToTheTrashAtOnce(self):
        result = self.uninstall(HOME + "/Applications/Sea Chart.app", 0, "quit")
        self.assertFalse(result["waits"])
        self.assertEqual(result["leftovers"], [])


if __name__ == "__main__":
    sys.exit(main(MacRoot, CommandLineOnAMac, CleanupOnAMac, DuplicatesOnAMac, AppsOnAMac, RemovalOnAMac,
                  UninstallOnAMac))
