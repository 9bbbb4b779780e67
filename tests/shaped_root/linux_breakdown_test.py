#!/usr/bin/env python3
"""Tests of the breakdown of the Linux-shaped root; root_case.py tells how to run one."""

import json
import os
import stat
import sys
import tempfile

import shaped_root
from linux_case import AVAILABLE, CAPACITY, DOCKER, HOME, SWAP, LinuxCase
from root_case import main


class BreakdownOnALinuxSystem(LinuxCase):
    """The breakdown of the whole disk."""

    def breakdown(self, *arguments, options=()):
        return json.loads(self.on_its_disk("breakdown", "--json", *arguments, options=options))

    @staticmethod
    def sizes(breakdown):
        return {segment["id"]: segment["size"] for segment in breakdown["segments"]}

    # The described items in each place, minus nested places.
    PLACES = {
        "home": ((HOME,), ()),
        "/usr": (("/usr",), ("/usr/local",)),
        "/usr/local": (("/usr/local",), ()),
        "/opt": (("/opt",), ()),
        "/var/lib/flatpak": (("/var/lib/flatpak",), ()),
        "/var/lib/snapd": (("/var/lib/snapd",), ()),
        "/var/cache": (("/var/cache",), ()),
        "/var/log": (("/var/log",), ()),
        "/home": (("/home",), (HOME,)),
        "/srv": (("/srv",), ()),
        "/boot": (("/boot",), ()),
        "/tmp": (("/tmp", "/var/tmp"), ()),
    }
    INSIDE_VAR = ("/var/lib/flatpak", "/var/lib/snapd", "/var/lib/docker", "/var/cache", "/var/log", "/var/tmp")
    CLOSED = ("/var/lib/postgresql/15/main", "/var/lib/private")

    def assertPlaces(self, sizes, but=()):
        for place, (paths, without) in self.PLACES.items():
            if place not in but:
                self.assertAbout(sizes[place], self.described(*paths, without=without), place)

    def test_EverySegmentHasItsSize(self):
        result = self.breakdown()
        sizes = self.sizes(result)
        self.assertPlaces(sizes)
        self.assertEqual(sizes["/var/lib/docker"], DOCKER, "as its own tool tells it")
        self.assertEqual(sizes["swap"], SWAP)
        self.assertAbout(sizes["/var"], self.described("/var", without=self.INSIDE_VAR + self.CLOSED), "/var")
        self.assertEqual(set(sizes), {*self.PLACES, "/var", "/var/lib/docker", "swap", "/", "hidden"})
        self.assertEqual((result["total"], result["free"]), (CAPACITY, AVAILABLE))
        self.assertEqual(sum(sizes.values()), CAPACITY - AVAILABLE)
        self.assertEqual((result["overcount"], result["purgeable"], result["snapshots"]), (0, 0, []))

    def explained(self, result):
        return 1 - result["hidden"] / (result["total"] - result["free"])

    def test_AnOrdinaryUserHasEightyFivePercentExplained(self):
        result = self.breakdown()
        self.assertGreaterEqual(self.explained(result), 0.85)
        hidden = next(segment for segment in result["segments"] if segment["id"] == "hidden")
        closed = sum(item.mode == stat.S_IFDIR for item in shaped_root.descendants(shaped_root.description("linux")))
        self.assertEqual(hidden["detail"],
                         f"Folders only the administrator can read ({closed}), deleted files that programs still hold "
                         "open, snapshots and the file system's own records.")

    def test_AnAdministratorHasNinetyFivePercentExplained(self):
        result = self.breakdown(options=("--administrator",))
        self.assertGreaterEqual(self.explained(result), 0.95)
        sizes = self.sizes(result)
        self.assertPlaces(sizes, but=("/home",))
        self.assertAbout(sizes["/home"], self.described("/home", "/root", without=(HOME,)), "other users")
        self.assertAbout(sizes["/var/lib/docker"], self.described("/var/lib/docker"), "containers")
        self.assertAbout(sizes["/var"], self.described("/var", without=self.INSIDE_VAR), "the rest of /var")
        hidden = next(segment for segment in result["segments"] if segment["id"] == "hidden")
        self.assertTrue(hidden["detail"].startswith("Deleted files that programs still hold open"), hidden["detail"])

    def test_TheTableAndTheJsonTellTheSame(self):
        for arguments in ((), ("--scan", HOME), ("--scan", "/")):
            result = self.breakdown(*arguments)
            text = self.on_its_disk("breakdown", *arguments)
            self.assertTellsTheSame(text, {segment["title"]: segment["size"] for segment in result["segments"]})
            self.assertIn("412.6 GB used of 500.11 GB, 87.51 GB free on Debian GNU/Linux\n", text)
            self.assertRegex(text, rf"\A{int(self.explained(result) * 100)}% explained\n")
            self.assertNoForeignWord(text)
            self.assertNoForeignWord("\n".join(segment["title"] + segment["detail"] + str(segment["actionTitle"])
                                               for segment in result["segments"]))

    def test_AScannedHomeTakesThePlaceOfTheMeasuredOne(self):
        before = self.sizes(self.breakdown())
        result = self.breakdown("--scan", HOME)
        after = self.sizes(result)
        self.assertAbout(after.pop("scanned"), before.pop("home"), "the home folder")
        for sizes in (before, after):
            sizes.pop("hidden")
        self.assertEqual(after, before)
        scanned = next(segment for segment in result["segments"] if segment["id"] == "scanned")
        self.assertEqual(scanned["title"], "Your Home Folder")
        self.assertEqual([item["name"] for item in scanned["children"]],
                         ["Projects", "Videos", ".local", "Pictures", ".cache"])

    def test_AScanOfEverythingCountsNothingTwice(self):
        measured = self.breakdown()
        result = self.breakdown("--scan", "/")
        self.assertEqual(result["overcount"], 0)
        self.assertEqual(self.sizes(result), self.sizes(measured), "the places tell more than that all was scanned")

    def test_AFolderMountedTwiceCountsOnce(self):
        self.assertEqual(self.sizes(self.breakdown(options=("--home-mount",))), self.sizes(self.breakdown()))

    def test_DeletedFilesThatAreStillOpenAreToldWithTheirProgram(self):
        with tempfile.TemporaryFile(dir=self.folder) as held:
            os.posix_fallocate(held.fileno(), 0, 60_000_000)
            done = self.run_on_disk(self.cli, "breakdown", "--json", descriptors=(held.fileno(),))
        deleted = next(segment for segment in self.answer(done)["segments"] if segment["id"] == "deleted")
        self.assertAbout(deleted["size"], 60e6, "deleted")
        self.assertEqual([each["name"] for each in deleted["children"]], ["corvane-cli"])


if __name__ == "__main__":
    sys.exit(main(BreakdownOnALinuxSystem))
