"""What the tests in the Linux-shaped root share."""

import os
import re

import shaped_root
from root_case import RootCase

HOME = "/home/studio"
# The figures of the root's disk in the output of its tools.
CAPACITY, AVAILABLE = 500107862016 // 4096 * 4096, 87507862016 // 4096 * 4096
DOCKER = 34_700_000_000 - 1_600_000  # 21.9GB, 608.4MB, 4.2GB and 7.99GB
SWAP = 8398437 * 1024
FOREIGN_WORDS = re.compile(r"\b(Mac|Macs|macOS|Macintosh|Finder|Full Disk Access|APFS|Homebrew|Time Machine|Xcode|"
                           r"Spotlight|iOS|Apple|Library)\b")


class LinuxCase(RootCase):
    """The base of the tests in the Linux-shaped root."""

    @staticmethod
    def described(*paths, without=()):
        """The described bytes at those paths, as scaled up by the root's fake disk."""
        def size(item, path):
            if path in without or item.link is not None:
                return 0
            if item.is_folder:
                return sum(size(each, path.rstrip("/") + "/" + os.fsdecode(each.name)) for each in item.children)
            allocated = item.allocated(shaped_root.DEFAULT_SCALE)
            return allocated * shaped_root.DEFAULT_SCALE if allocated > shaped_root.BLOCK else allocated

        def at(path):
            item = shaped_root.description("linux")
            for name in path.strip("/").split("/"):
                item = next(each for each in item.children if os.fsdecode(each.name) == name)
            return item

        return sum(size(at(path), path) for path in paths)

    def assertAbout(self, size, expected, what):
        """Compares sizes except for the folders' own blocks, which differ between file systems."""
        self.assertAlmostEqual(size, expected, delta=max(3e6, expected / 500), msg=what)

    def assertTellsTheSame(self, text, sizes):
        """Expects each title on one line with its size in a table's text."""
        for title, size in sizes.items():
            line = next((line for line in text.splitlines() if f"  {title}" in line), None)
            self.assertIsNotNone(line, f"{title} in {text}")
            self.assertTrue(line.lstrip().startswith(self.told(size) + "  "), f"{title}, {size}: {line}")

    @staticmethod
    def told(size):
        """A size as formatted in a table."""
        for unit, step, digits in (("KB", 1000, 0), ("MB", 1000**2, 1), ("GB", 1000**3, 2), ("TB", 1000**4, 2)):
            rounded = (size * 10**digits + step // 2) // step
            if rounded < 1000 * 10**digits:
                number = f"{rounded / 10**digits:.{digits}f}"
                return (number.rstrip("0").rstrip(".") if digits else number) + " " + unit
        raise ValueError(size)

    def assertNoForeignWord(self, text):
        found = FOREIGN_WORDS.search(text)
        self.assertIsNone(found, f"{found} in {text}")

    def on_its_disk(self, *arguments, options=()):
        done = self.run_on_disk(self.cli, *arguments, options=options)
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ""))
        return done.stdout.decode()
