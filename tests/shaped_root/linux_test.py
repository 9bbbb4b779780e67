#!/usr/bin/env python3
"""Tests of the Linux-shaped root and of the programs inside it; root_case.py tells how to run one."""

import json
import os
import pathlib
import re
import sys

import shaped_root
from linux_case import AVAILABLE, CAPACITY, HOME, LinuxCase
from root_case import child, main


class LinuxRoot(LinuxCase):
    """The builder and the runner."""

    def test_TheDescriptionComesToAUsedDisk(self):
        sizes = shaped_root.all_sizes("linux", shaped_root.DEFAULT_SCALE)
        for path, megabytes in {HOME: 268.4, "/var/lib/flatpak": 38.2, "/var/lib/docker": 34.7, "/usr": 25.2,
                                "/var/lib/snapd": 12.1, "/var/cache": 6.3, "/var/log": 4.4}.items():
            self.assertAlmostEqual(sizes[path.encode()] / 1e6, megabytes, delta=megabytes / 50, msg=path)
        self.assertLess(sizes[b"/"] * 1000, CAPACITY - AVAILABLE)

    def test_WhatIsBuiltOccupiesWhatTheDescriptionSays(self):
        sizes = shaped_root.all_sizes("linux", shaped_root.DEFAULT_SCALE)
        for path in (HOME, "/usr", "/opt", "/boot"):
            self.assertEqual(self.on_disk(path), sizes[path.encode()], path)

    def test_ProgramsRunAsTheUserOfTheHomeFolder(self):
        done = self.run_inside("/bin/sh", "-c", 'echo "$HOME" && cd && pwd && [ ! -r /root ] && echo closed')
        self.assertEqual(done.stdout.decode().split(), [HOME, HOME, "closed"])

    def test_AnAdministratorMayReadEverything(self):
        done = self.run_inside("/bin/ls", "/root", "/var/lib/docker", options=("--administrator",))
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        self.assertIn(b"backup-1.tar", done.stdout)

    def test_ItsToolsAnswer(self):
        done = self.run_inside("/bin/sh", "-c", "docker system df --format '{{.Size}}' && journalctl --disk-usage && "
                               "snap list --all && flatpak list --app --columns=runtime && dpkg-query --version")
        self.assertIn(b"21.9GB\n", done.stdout)
        self.assertIn(b"take up 3.0G in the file system", done.stdout)
        self.assertRegex(done.stdout.decode(), r"core24 +\d+ +1006 .* base,disabled\n")
        self.assertEqual(done.returncode, 1, "what nobody asks is not answered")

    def test_EveryApplicationHasAnIcon(self):
        icons = set()
        for path in pathlib.Path(self.root).rglob("*.desktop"):
            icon = re.search("^Icon=(.*)$", path.read_text(), re.MULTILINE)[1]
            places = [icon] if icon.startswith("/") else [
                f"{share}/icons/hicolor/128x128/apps/{icon}.png" for share in
                ("/usr/share", "/var/lib/flatpak/exports/share", HOME + "/.local/share")]
            there = [place for place in places if os.path.exists(self.root + place)]
            self.assertEqual(len(there), 1, path)
            picture = pathlib.Path(self.root + there[0]).read_bytes()
            # A larger file would be scaled up to megabytes, like every file of this root.
            self.assertLessEqual(len(picture), shaped_root.BLOCK, path)
            self.assertTrue(picture.startswith((b"\x89PNG", b"<svg")), path)
            icons.add(picture)
        self.assertGreater(len(icons), 30)


class CommandLineOnALinuxSystem(LinuxCase):
    """The command line, end to end."""

    def test_ScanFindsWhatTheDisksOwnCountFinds(self):
        result = self.scan(HOME)
        self.assertEqual(result["root"]["size"], self.on_disk(HOME))
        self.assertEqual((result["unreadable"], result["cancelled"]), (0, False))
        for name in ("Projects", "Videos", ".local", ".cache", ".var", "snap", "Downloads"):
            self.assertEqual(child(result["root"], name)["size"], self.on_disk(f"{HOME}/{name}"), name)
        self.assertNotIn("current-project", [node["name"] for node in result["root"]["children"]])

    def test_AWholeDiskScanBearsTheSystemsNameAndKeepsToTheDisk(self):
        root = self.scan("/")["root"]
        self.assertEqual(root["name"], "Debian GNU/Linux")
        for name in ("home", "opt", "srv", "boot", "tmp"):
            self.assertEqual(child(root, name)["size"], self.on_disk("/" + name), name)
        # Links into this machine's system are not followed, and its mounts are not part of the disk.
        self.assertEqual(child(root, "usr")["size"], self.on_disk("/usr"))
        self.assertTrue({"proc", "sys", "run", "dev"}.isdisjoint(
            node["name"] for node in root["children"] if node["size"] > 0))
        self.assertNoForeignWord(self.run_cli("scan", "/").stdout.decode())

    def test_AFolderOfTheAdministratorIsNamed(self):
        done = self.run_cli("scan", "/var/lib/private")
        self.assertEqual(done.returncode, 1)
        self.assertIn("/var/lib/private: Permission denied", done.stderr.decode())

    def test_BuildFoldersAreRecognisedByTheirMarkers(self):
        found = {(item["path"].removeprefix(HOME + "/Projects/"), item["kind"])
                 for item in self.scan(HOME)["devJunk"]}
        self.assertEqual(found, {
            ("wayfinder-rs/target", "Rust target"), ("ml-experiments/.venv", "Python virtualenv"),
            ("harbor-app/node_modules", "node_modules"), ("tidewater-web/.next", "Next.js build"),
            ("tidewater-web/node_modules", "node_modules"), ("client-site-2023/node_modules", "node_modules")})

    def test_ProtectedPlacesAreNamed(self):
        expected = {
            "/": True, "/usr": True, "/usr/lib": True, "/boot/vmlinuz-6.1.0-37-amd64": True, "/home": True,
            "/root": True, "/var": True, "/etc": True, "/snap/signal-deck": True, "/srv": True, "/srv/www": False,
            HOME: True, HOME + "/Videos": True, HOME + "/Videos/Exports": False, HOME + "/.local/share": True,
            HOME + "/.local/share/keyrings/login.keyring": True, HOME + "/.local/share/Trash/files": True,
            HOME + "/.local/share/Trash/files/old-exports": False, HOME + "/.cache": True, HOME + "/.cache/pip": False,
            HOME + "/Templates": True, HOME + "/Projects/scratch": False}
        found = self.answer(self.run_cli("protected", "--json", *expected))
        self.assertEqual({item["path"]: item["protected"] for item in found}, expected)
        self.assertNoForeignWord(self.run_cli("protected", *expected).stdout.decode())

    def test_OnlyFilesThatAreSaidToBeTheSameAreDuplicates(self):
        found = self.answer(self.run_cli("duplicates", "--json", HOME))
        groups = [sorted(os.path.basename(file["path"]) for file in group["files"]) for group in found["groups"]]
        self.assertEqual(groups, [["Poster A1 final copy.psd", "Poster A1 final.psd", "Poster A1.psd"],
                                  ["client-rushes (1).zip", "client-rushes.zip"]])

    def test_ThereAreNoSnapshots(self):
        done = self.run_cli("snapshots")
        self.assertEqual((done.returncode, done.stdout), (0, b"No local snapshots\n"))


class CleanupOnALinuxSystem(LinuxCase):
    """The cleanup catalogue."""

    # The expected contents of each non-empty row, minus items counted in others.
    ROWS = {
        "App Caches": ((".cache",), (".cache/pip", ".cache/go-build", ".cache/huggingface", ".cache/thumbnails")),
        "Thumbnails": ((".cache/thumbnails",), ()),
        "Trash": ((".local/share/Trash/files",), ()),
        "Snap App Caches": (tuple(f"snap/{name}/common/.cache" for name in (
            "signal-deck", "old-mill-layout", "chartroom", "paper-kite")), ()),
        "pip Cache": ((".cache/pip",), ()),
        "npm Cache": ((".npm/_cacache",), ()),
        "Go Build Cache": ((".cache/go-build",), ()),
        "pnpm Store": ((".local/share/pnpm/store",), ()),
        "Cargo Registry": ((".cargo/registry",), ()),
        "Gradle Caches": ((".gradle/caches",), ()),
        "Gradle Wrapper Distributions": ((".gradle/wrapper/dists",), ()),
        "Maven Repository": ((".m2/repository",), ()),
        "Podman Containers": ((".local/share/containers/storage",), ()),
        "Hugging Face Models": ((".cache/huggingface",), ()),
        "Virtual Machine Disks": ((".local/share/gnome-boxes/images",), ()),
        "Downloads": (("Downloads",), ()),
    }
    COMMANDS = {"docker system prune": 11.8, "sudo apt clean": 5.9, "flatpak uninstall --unused": 4.2,
                "sudo journalctl --vacuum-size=200M": 3.1, "sudo snap set system refresh.retain=2": 2.6,
                "sudo apt autoremove": 0.48}

    def filled(self):
        items = json.loads(self.on_its_disk("cleanup", "--json"))
        self.assertTrue(all(item["accessible"] for item in items))
        return {item["title"]: item for item in items if item["entries"]}, len(items)

    def test_EveryPlaceOfTheHomeIsMeasuredOnce(self):
        filled, _ = self.filled()
        self.assertEqual(set(filled), {*self.ROWS, "Flatpak App Caches"})
        for title, (paths, without) in self.ROWS.items():
            expected = self.described(*(f"{HOME}/{path}" for path in paths),
                                      without=tuple(f"{HOME}/{path}" for path in without))
            self.assertAbout(filled[title]["total"], expected, title)
            self.assertEqual(filled[title]["total"], sum(entry["size"] for entry in filled[title]["entries"]), title)
        apps = [os.path.basename(path) for path in os.listdir(f"{self.root}{HOME}/.var/app")]
        caches = [f"{HOME}/.var/app/{app}/cache" for app in apps]
        self.assertAbout(filled["Flatpak App Caches"]["total"], self.described(*caches), "Flatpaks")
        self.assertEqual(len(filled["Flatpak App Caches"]["entries"]), len(caches))

    def test_TheTableAndTheJsonTellTheSame(self):
        filled, count = self.filled()
        text = self.on_its_disk("cleanup")
        self.assertTellsTheSame(text.replace("  safe  ", "").replace("  review", ""),
                                {title: item["total"] for title, item in filled.items()})
        self.assertIn(f"{self.told(sum(item['total'] for item in filled.values()))} could be cleaned up, ", text)
        foreign = 8  # rows for a Mac, which are hidden
        self.assertIn(f"\n{count - len(filled) - foreign} more places hold nothing\n", text)
        self.assertNoForeignWord(text)

    def test_WhatTheAdministratorCouldFreeIsOfferedAsCommands(self):
        text = self.on_its_disk("cleanup")
        offered = text[text.index("Needs the Administrator"):]
        found = dict(re.findall(r"^ *([\d.]+ [MG]B)  .*?  +((?:sudo |docker |flatpak ).*)$", offered, re.MULTILINE))
        self.assertEqual(set(found.values()), set(self.COMMANDS))
        for size, command in found.items():
            number, unit = size.split()
            self.assertAlmostEqual(float(number) * (1 if unit == "GB" else 0.001), self.COMMANDS[command], delta=0.05,
                                   msg=command)


class AppsOnALinuxSystem(LinuxCase):
    """The applications, their data in the home folder, and the leftovers of deleted ones."""

    def inventory(self):
        return json.loads(self.on_its_disk("apps", "--json"))

    def app(self, name):
        return next(app for app in self.inventory()["apps"] if app["name"] == name)

    def leftovers(self, app, match):
        return {item["path"].removeprefix(HOME + "/"): item["location"] for item in app["leftovers"]
                if item["match"] == match}

    def test_EverySourceIsListed(self):
        apps = self.inventory()["apps"]
        lines = [line for line in pathlib.Path(shaped_root.HERE, "linux.txt").read_text(encoding="utf-8").splitlines()
                 if re.match("(flatpak|snap|package|appimage): ", line)]
        expected = {"Orrery": None}
        for line in lines:
            kind, rest = line.split(": ", 1)
            expected[rest.split(" | ")[1]] = {"flatpak": "Flatpak", "snap": "Snap", "package": "Package",
                                              "appimage": "AppImage"}[kind]
        self.assertEqual({app["name"]: app.get("source") for app in apps}, expected)
        sums = [app["appSize"] + sum(item["size"] for item in app["leftovers"] if item["match"] == "exact")
                for app in apps]
        self.assertEqual(sums, sorted(sums, reverse=True))

    def test_AFlatpakIsKnownByItsIdentifier(self):
        app = self.app("Framewright Studio")
        self.assertEqual((app["bundleID"], app["version"], app["removeCommand"]),
                         ("org.example.Studio", "5.4.1", "flatpak uninstall org.example.Studio"))
        self.assertAbout(app["appSize"], self.described("/var/lib/flatpak/app/org.example.Studio"), "app")
        data = ".var/app/org.example.Studio/"
        self.assertEqual(self.leftovers(app, "exact"), {
            data + "data": "Data", data + "cache": "Cache", data + "config": "Settings",
            ".local/share/flatpak/overrides/org.example.Studio": "Permissions"})
        self.assertEqual(self.leftovers(app, "name"), {
            ".local/share/framewright-studio": "Data", ".config/framewright-studio": "Settings"})

    def test_ASnapIsKnownByItsName(self):
        app = self.app("Signal Deck")
        self.assertEqual((app["bundleID"], app["version"], app["removeCommand"]),
                         ("signal-deck", "5.4.1", "sudo snap remove signal-deck"))
        self.assertAbout(app["appSize"], self.described("/var/lib/snapd/snaps/signal-deck_214.snap"), "app")
        self.assertEqual(self.leftovers(app, "exact"), {"snap/signal-deck": "Data"})

    def test_APackageIsMeasuredByItsListOfFiles(self):
        app = self.app("Code Harbor")
        self.assertEqual((app["version"], app["removeCommand"]), ("2025.3", "sudo apt remove code-harbor"))
        self.assertAbout(app["appSize"], self.described("/usr/lib/code-harbor", "/usr/share/code-harbor"), "app")
        self.assertEqual(self.leftovers(app, "exact"), {
            ".local/share/com.codeharbor.ide": "Data", ".config/com.codeharbor.ide": "Settings"})
        self.assertEqual(self.leftovers(app, "name"), {".cache/code-harbor": "Cache"})

    def test_AnAppImageHasNoCommand(self):
        app = self.app("Wavetable Live")
        self.assertEqual(app["path"], HOME + "/Applications/Wavetable_Live-12.0.5.AppImage")
        self.assertNotIn("removeCommand", app)
        self.assertEqual(self.leftovers(app, "exact"), {".local/share/com.wavetable.live": "Data"})

    def test_AnUnpackedFolderIsOneApplication(self):
        app = self.app("Orrery")
        self.assertEqual(app["path"], HOME + "/Applications/orrery")
        self.assertAbout(app["appSize"], self.described("/home/studio/Applications/orrery"), "app")

    def test_WhatDeletedApplicationsLeftIsFound(self):
        groups = {group["id"]: sorted(item["path"].removeprefix(HOME + "/") for item in group["items"])
                  for group in self.inventory()["orphanGroups"]}
        self.assertEqual(groups, {
            "com.lathe.cadpro": [".var/app/com.lathe.CadPro"],
            "paper-kite": ["snap/paper-kite"],
            "org.chorale.player": [".cache/org.chorale.player"],
            "io.mapleaf.viewer": [".config/io.mapleaf.viewer", ".local/share/io.mapleaf.viewer"]})

    def test_TheTableAndTheJsonTellTheSame(self):
        inventory = self.inventory()
        text = self.on_its_disk("apps")
        totals = {app["name"]: app["appSize"] + sum(item["size"] for item in app["leftovers"])
                  for app in inventory["apps"]}
        shared = {item["path"]: item["size"] for app in inventory["apps"] for item in app["leftovers"]}
        total = sum(app["appSize"] for app in inventory["apps"]) + sum(shared.values())
        orphans = {group["id"]: sum(item["size"] for item in group["items"]) for group in inventory["orphanGroups"]}
        self.assertTellsTheSame(text, totals | orphans)
        self.assertIn(f"{len(totals)} apps use {self.told(total)}, including their data\n", text)
        self.assertIn(f"Left behind by deleted apps, {self.told(sum(orphans.values()))}\n", text)
        self.assertNoForeignWord(text)


class WindowOnALinuxSystem(LinuxCase):
    """The window shows the same figures as the command line."""

    def read(self):
        done = self.run_inside(self.probe, "--read")
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        # Forces the QML to be interpreted, as it is with another Qt version than the one it was compiled for.
        self.assertNotIn("TypeError", done.stderr.decode())
        return json.loads(done.stdout)

    def assertShows(self, texts, rows):
        """Expects each title's size near it, in reading order."""
        for title, size in rows.items():
            places = [index for index, text in enumerate(texts) if text == title]
            self.assertTrue(places, f"{title} in {texts}")
            self.assertTrue(any(self.told(size) in texts[place:place + 14] for place in places),
                            f"{title}: {self.told(size)} in {[texts[place:place + 14] for place in places]}")

    def test_EveryScreenTellsTheSameAsTheCommandLine(self):
        screens = self.read()
        for arguments, screen in (((), "breakdown"), (("--scan", HOME), "breakdownScanned")):
            result = json.loads(self.on_its_disk("breakdown", "--json", *arguments))
            self.assertShows(screens[screen], {segment["title"]: segment["size"] for segment in result["segments"]})
            hidden = next(segment for segment in result["segments"] if segment["id"] == "hidden")
            self.assertIn(hidden["detail"], screens[screen])
            for part in ("412.6 GB", " used of 500.11 GB", "87.51 GB", " free on Debian GNU/Linux"):
                self.assertIn(part, screens[screen])
        self.assertIn(re.match("[0-9]+%", self.on_its_disk("breakdown"))[0] + " of 412.6 GB explained",
                      screens["overview"])

        items = json.loads(self.on_its_disk("cleanup", "--json"))
        self.assertShows(screens["cleanup"], {item["title"]: item["total"] for item in items if item["entries"]})
        table = self.on_its_disk("cleanup")
        for size, command in re.findall(r"^ *([\d.]+ [MG]B)  .*?  +((?:sudo |docker |flatpak ).*)$", table,
                                        re.MULTILINE):
            place = screens["cleanup"].index(command)
            self.assertIn(size, screens["cleanup"][place - 6:place + 8], command)
        folded = re.search(r"^(\d+) more places hold nothing$", table, re.MULTILINE)
        lines = {pair for pair in zip(screens["cleanup"], screens["cleanup"][1:]) if pair[1].endswith(" nothing")}
        self.assertEqual(sum(int(line.split()[0]) for _, line in lines), int(folded[1]), lines)

        inventory = json.loads(self.on_its_disk("apps", "--json"))
        table = self.on_its_disk("apps")
        self.assertIn(table.splitlines()[0], screens["uninstaller"])
        for app in inventory["apps"]:
            place = screens["uninstaller"].index(app["name"])
            row = screens["uninstaller"][place:place + 4]
            self.assertIn(app.get("source", row[1]), row)
            data = sum(item["size"] for item in app["leftovers"])
            sizes = "app " + self.told(app["appSize"]) + (" + data " + self.told(data) if app["leftovers"] else "")
            self.assertIn(sizes, row)
            self.assertIn(self.told(app["appSize"] + data), row)
            self.assertIn(sizes, table)
        self.assertShows(screens["uninstaller"], {"Left behind by deleted apps": sum(
            item["size"] for group in inventory["orphanGroups"] for item in group["items"])})

        largest = os.lstat(f"{self.root}{HOME}/.local/share/gnome-boxes/images/Linux Dev.qcow2").st_blocks * 512
        for screen in ("large", "old"):
            self.assertShows(screens[screen], {"Linux Dev.qcow2": largest * shaped_root.DEFAULT_SCALE})

        scanned = json.loads(self.on_its_disk("scan", "--json", "/"))["root"]
        self.assertShows(screens["explorerOfTheDisk"], {node["name"]: node["size"] for node in scanned["children"]
                                                        if node["kind"] == "folder"})

    def test_NoScreenSpeaksOfAMac(self):
        for screen, texts in self.read().items():
            with self.subTest(screen):
                self.assertNoForeignWord("\n".join(texts))


class RemovalOnALinuxSystem(LinuxCase):
    """Removals on the command line. Each test has its own items and is not affected by the others' changes."""

    TRASH = HOME + "/.local/share/Trash"

    def exists(self, path):
        return os.path.lexists(self.root + path)

    def test_RemovedFileLiesInTheTrash(self):
        path = HOME + "/Downloads/client-rushes (1).zip"
        size = os.lstat(self.root + path).st_blocks * 512
        result = self.answer(self.run_cli("remove", "--json", "--yes", path))
        self.assertEqual((result["removed"], result["failures"]), ([{"path": path, "size": size}], []))
        self.assertFalse(self.exists(path))
        self.assertEqual(os.lstat(f"{self.root}{self.TRASH}/files/client-rushes (1).zip").st_blocks * 512, size)
        info = pathlib.Path(f"{self.root}{self.TRASH}/info/client-rushes (1).zip.trashinfo").read_text()
        self.assertIn("Path=/home/studio/Downloads/client-rushes%20%281%29.zip", info)
        self.assertNoForeignWord(result["message"])

    def test_AMainFolderIsNotRemoved(self):
        for path, inside in {HOME + "/Videos": "Exports", HOME + "/.local/share": "keyrings", "/usr": "share",
                             "/home/ada/../studio": "Videos"}.items():
            done = self.run_cli("remove", "--json", "--yes", path)
            self.assertEqual(done.returncode, 1, path)
            self.assertIn("protected location", json.loads(done.stdout)["failures"][0])
            self.assertTrue(self.exists(f"{path}/{inside}"), path)

    def test_WhatLiesInTheTrashIsDeletedForGood(self):
        path = self.TRASH + "/files/old-exports"
        self.answer(self.run_cli("remove", "--json", "--yes", path))
        self.assertFalse(self.exists(path))
        self.assertFalse(self.exists(self.TRASH + "/info/old-exports.trashinfo"))

    def test_WhatACleanupRowHoldsCanBeRemoved(self):
        path = HOME + "/.cache/go-build/object-01.a"
        self.answer(self.run_cli("remove", "--json", "--yes", path))
        self.assertFalse(self.exists(path))
        self.assertTrue(self.exists(HOME + "/.cache/go-build/object-02.a"))


class UninstallOnALinuxSystem(LinuxCase):
    """Complete uninstalls. Each test has its own application and is not affected by the others' changes."""

    def test_AnAppImageGoesToTheTrashWithItsEntryAndItsData(self):
        image = HOME + "/Applications/Tidewater_Sync-4.2.2.AppImage"
        gone = (image, HOME + "/.local/share/applications/com.tidewater.sync.desktop",
                HOME + "/.local/share/com.tidewater.sync", HOME + "/.config/com.tidewater.sync")
        for path in gone:
            self.assertTrue(os.path.lexists(self.root + path), path)
        result = self.answer(self.run_inside(self.probe, image, "0", "quit"))
        self.assertFalse(result["isListed"])
        self.assertTrue(result["toast"].startswith("Moved "), result["toast"])
        for path in gone:
            self.assertFalse(os.path.lexists(self.root + path), path)
            self.assertTrue(os.path.lexists(f"{self.root}{HOME}/.local/share/Trash/files/{os.path.basename(path)}") or
                            path.startswith(HOME + "/.config"), path)
        self.assertTrue(os.path.lexists(self.root + HOME + "/Applications/Wavetable_Live-12.0.5.AppImage"))


if __name__ == "__main__":
    sys.exit(main(LinuxRoot, CommandLineOnALinuxSystem, CleanupOnALinuxSystem, AppsOnALinuxSystem, WindowOnALinuxSystem,
                  RemovalOnALinuxSystem, UninstallOnALinuxSystem))
