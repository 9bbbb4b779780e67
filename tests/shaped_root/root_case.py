"""What the tests in the shaped roots share.

    SCRIPT_test.py --list                                                        the tests' names
    SCRIPT_test.py NAME --folder FOLDER --disk LIBRARY --cli PROGRAM [--probe PROGRAM]
                                                   one test, in the root that was built in FOLDER

Exit status: 0 passed, 1 failed, 77 skipped (with the reason).
"""

import argparse
import json
import os
import pathlib
import stat
import subprocess
import unittest

RUNNER = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts" / "root-run.sh"
SKIPPED = 77


class RootCase(unittest.TestCase):
    """A test in a root that several tests share."""

    cli = None
    disk = None  # the library of scripts/root-disk.sh
    probe = None
    folder = None

    @property
    def root(self):
        return os.path.join(self.folder, "root")

    def run_inside(self, *arguments, options=(), descriptors=()):
        """Runs a program in the root, passing open files on; returns its output and exit status."""
        done = subprocess.run([RUNNER, *options, self.folder, *arguments], capture_output=True, check=False,
                              pass_fds=descriptors)
        if done.returncode == SKIPPED:
            self.skipTest(done.stdout.decode().strip())
        return done

    def run_on_disk(self, *arguments, options=(), descriptors=()):
        """The same with the capacity and the file sizes of the disk that the root describes."""
        if "ASAN_OPTIONS" in os.environ or "TSAN_OPTIONS" in os.environ:
            self.skipTest("a sanitizer's own library must be loaded first")
        return self.run_inside(*arguments, options=("--preload", self.disk, *options), descriptors=descriptors)

    def run_cli(self, *arguments):
        return self.run_inside(self.cli, *arguments)

    def answer(self, done):
        """The JSON that a program has printed; expects success without messages."""
        self.assertEqual((done.returncode, done.stderr.decode()), (0, ""))
        return json.loads(done.stdout)

    def scan(self, path):
        done = self.run_cli("scan", "--json", path)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return json.loads(done.stdout)

    def on_disk(self, path):
        """The allocated size of `path` (as the program sees it), counted independently, without following links."""
        total = 0
        for parent, _, files in os.walk(os.fsencode(self.root + path)):
            for name in files:
                facts = os.lstat(os.path.join(parent, name))
                if stat.S_ISREG(facts.st_mode):
                    total += facts.st_blocks * 512
        return total


def child(node, name):
    return next(child for child in node["children"] if child["name"] == name)


def main(*cases):
    """Runs the requested test. A test is named Class.Rule, as in ctest."""
    known = {f"{case.__name__}.{method.removeprefix('test_')}": (case, method)
             for case in cases for method in unittest.TestLoader().getTestCaseNames(case)}
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("name", nargs="?")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--cli")
    parser.add_argument("--disk")
    parser.add_argument("--probe")
    parser.add_argument("--folder")
    arguments = parser.parse_args()
    if arguments.list:
        print("\n".join(known), end="")
        return 0
    RootCase.cli, RootCase.disk = arguments.cli, arguments.disk
    RootCase.probe, RootCase.folder = arguments.probe, arguments.folder
    case, method = known[arguments.name]
    result = unittest.TextTestRunner(verbosity=2).run(case(method))
    if result.skipped:
        return SKIPPED
    return 0 if result.wasSuccessful() else 1
