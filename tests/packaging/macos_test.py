"""Tests of the Mac packaging: the bundle's property list, entitlements and icon, and the commands that are run."""
import hashlib
import os
import pathlib
import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "packaging" / "macos"
sys.path.insert(0, str(FOLDER))
import make_icns

PROPERTY_LIST = None  # path of the list that the build made from the template


class PropertyList(unittest.TestCase):
    def setUp(self):
        self.values = plistlib.loads(PROPERTY_LIST.read_bytes())

    def test_leaves_nothing_of_the_template(self):
        self.assertNotIn("${", PROPERTY_LIST.read_text())

    def test_names_the_program(self):
        self.assertEqual(self.values["CFBundleIdentifier"], "app.corvane.Corvane")
        self.assertEqual(self.values["CFBundleExecutable"], "corvane")
        self.assertEqual(self.values["CFBundlePackageType"], "APPL")
        self.assertEqual(self.values["CFBundleIconFile"] + ".icns", "Corvane.icns")
        self.assertRegex(self.values["CFBundleShortVersionString"], r"^\d+\.\d+\.\d+$")
        self.assertRegex(self.values["CFBundleVersion"], r"^\d+$")
        self.assertEqual(self.values["NSPrincipalClass"], "NSApplication")
        self.assertIs(self.values["NSHighResolutionCapable"], True)

    def test_names_the_domain_that_qt_keeps_the_settings_in(self):
        source = (ROOT / "src" / "main" / "main.cpp").read_text()
        names = {what: re.search(rf'set{what}\(QStringLiteral\("([^"]+)"\)\)', source)[1]
                 for what in ("OrganizationDomain", "ApplicationName")}
        domain = ".".join([*reversed(names["OrganizationDomain"].split(".")), names["ApplicationName"]])
        self.assertEqual(domain, self.values["CFBundleIdentifier"])

    def test_says_on_what_the_program_runs(self):
        self.assertEqual(self.values["LSMinimumSystemVersion"], "13.0")

    def test_says_what_each_guarded_place_is_wanted_for(self):
        for place in ("AppleEvents", "DesktopFolder", "DocumentsFolder", "DownloadsFolder", "RemovableVolumes",
                      "NetworkVolumes"):
            self.assertRegex(self.values[f"NS{place}UsageDescription"], r"^Corvane .{20,}\.$")

    def test_takes_folders_and_nothing_else(self):
        self.assertEqual([kind["LSItemContentTypes"] for kind in self.values["CFBundleDocumentTypes"]],
                         [["public.folder"]])
        # The Finder remains the default for folders.
        self.assertEqual(self.values["CFBundleDocumentTypes"][0]["LSHandlerRank"], "Alternate")

    def test_says_where_updates_come_from(self):
        self.assertEqual(self.values["SUFeedURL"], "https://updates.example/feed.xml?a=1&b=2")
        self.assertEqual(self.values["SUPublicEDKey"], "a2V5")


class Entitlements(unittest.TestCase):
    def test_are_those_that_the_program_cannot_do_without(self):
        entitlements = plistlib.loads((FOLDER / "Corvane.entitlements").read_bytes())
        self.assertEqual(entitlements, {"com.apple.security.automation.apple-events": True})


class WhatPeopleAreTold(unittest.TestCase):
    guide = (ROOT / "docs" / "macos.md").read_text()

    def test_names_every_source_that_only_a_mac_compiles(self):
        sources = [path.relative_to(ROOT) for path in (ROOT / "src").rglob("macos/*") if path.suffix in (".cpp", ".mm")]
        self.assertGreater(len(sources), 20)
        self.assertEqual([str(path) for path in sources if f"`{path}`" not in self.guide], [])

    def test_has_at_most_forty_steps_in_order(self):
        steps = [int(number) for number in re.findall(r"^(\d+)\. ", self.guide, re.M)]
        self.assertEqual(steps, list(range(1, len(steps) + 1)))
        self.assertLessEqual(len(steps), 40)


def png(width, height=None):
    return (b"\x89PNG\r\n\x1a\n" + struct.pack(">I", 13) + b"IHDR" + struct.pack(">II", width, height or width)
            + bytes(9) + f"pixels of {width}".encode())


class Icon(unittest.TestCase):
    sizes = (16, 32, 64, 128, 256, 512, 1024)

    def test_holds_every_picture_whole(self):
        icon = make_icns.icon_file({width: png(width) for width in self.sizes})
        self.assertEqual(icon[:4], b"icns")
        self.assertEqual(struct.unpack(">I", icon[4:8])[0], len(icon))
        entries, position = {}, 8
        while position < len(icon):
            kind, length = icon[position:position + 4], struct.unpack(">I", icon[position + 4:position + 8])[0]
            entries[kind] = icon[position + 8:position + length]
            position += length
        self.assertEqual(position, len(icon))
        self.assertEqual(entries[b"icp4"], png(16))
        self.assertEqual(entries[b"ic12"], png(64))  # 32 points, two pixels per point
        self.assertEqual(entries[b"ic10"], png(1024))
        self.assertEqual(len(entries), 10)

    def test_is_not_made_without_one_of_its_sizes(self):
        with self.assertRaisesRegex(ValueError, "512"):
            make_icns.icon_file({width: png(width) for width in self.sizes if width != 512})

    def test_is_not_made_of_what_is_no_square_picture(self):
        with self.assertRaisesRegex(ValueError, "not square"):
            make_icns.width_of(png(16, 17), "flat.png")
        with self.assertRaisesRegex(ValueError, "not a PNG"):
            make_icns.width_of(b"GIF89a" + bytes(40), "other.gif")


# Replaces a tool of macOS: records its arguments, and creates the file that hdiutil would create.
TOOL = """#!/bin/sh
echo "$(basename "$0") $*" >>"$CALLS"
for last in "$@"; do :; done
[ "$(basename "$0")" != hdiutil ] || echo image >"$last"
"""


class Steps(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name).resolve()
        self.output = self.folder / "output"
        self.calls = self.folder / "calls"
        tools = self.folder / "tools"
        tools.mkdir()
        for name in ("codesign", "hdiutil", "xcrun", "spctl"):
            (tools / name).write_text(TOOL)
            (tools / name).chmod(0o755)
        self.environment = {"PATH": f"{tools}:{os.environ['PATH']}", "CALLS": str(self.calls),
                            "CORVANE_OUTPUT": str(self.output)}
        self.bundle = self.output / "Corvane.app"

    def make_bundle(self):
        contents = self.bundle / "Contents"
        for path in ("MacOS/corvane", "MacOS/corvane-cli", "Frameworks/QtCore.framework/Versions/A/QtCore",
                     "Frameworks/libfmt.dylib", "PlugIns/platforms/libqcocoa.dylib",
                     "Frameworks/Sparkle.framework/Versions/B/Sparkle",
                     "Frameworks/Sparkle.framework/Versions/B/Autoupdate",
                     "Frameworks/Sparkle.framework/Versions/B/Updater.app/Contents/MacOS/Updater",
                     "Frameworks/Sparkle.framework/Versions/B/XPCServices/Installer.xpc/Contents/MacOS/Installer"):
            (contents / path).parent.mkdir(parents=True, exist_ok=True)
            (contents / path).write_text("program")
        (contents / "Frameworks/Sparkle.framework/Versions/Current").symlink_to("B")

    def run_step(self, name, **variables):
        done = subprocess.run(["bash", str(FOLDER / f"{name}.sh")], env={**self.environment, **variables},
                              capture_output=True, text=True)
        return done.returncode, done.stdout, done.stderr

    def called(self):
        return self.calls.read_text().splitlines() if self.calls.exists() else []

    def test_say_what_they_need_before_they_do_anything(self):
        for name, word in (("sign", "CORVANE_SIGN_IDENTITY"), ("dmg", "build.sh"),
                           ("notarise", "CORVANE_NOTARY_PROFILE"), ("cask", "CORVANE_DOWNLOADS")):
            status, _, said = self.run_step(name)
            self.assertEqual(status, 1, name)
            self.assertIn(word, said)
            self.assertEqual(len(said.splitlines()), 1, said)
        self.assertEqual(self.called(), [])

    def test_explain_themselves(self):
        for name in ("build", "sign", "dmg", "notarise", "cask"):
            said = subprocess.run(["bash", str(FOLDER / f"{name}.sh"), "--help"], env=self.environment,
                                  capture_output=True, text=True, check=True).stdout
            self.assertIn(f"usage: packaging/macos/{name}.sh", said)
            self.assertNotIn("#", said)

    def test_sign_from_the_inside_out_and_give_the_entitlements_to_the_program_alone(self):
        self.make_bundle()
        status, _, said = self.run_step("sign", CORVANE_SIGN_IDENTITY="Developer ID Application: Somebody")
        self.assertEqual(status, 0, said)
        signed = [line for line in self.called() if " --sign " in line]
        order = [line.rsplit("/Corvane.app", 1)[1] for line in signed]
        self.assertEqual(order[-1], "")
        for inner, outer in (("/Updater.app", "/Sparkle.framework"), ("/Installer.xpc", "/Sparkle.framework"),
                             ("/Autoupdate", "/Sparkle.framework"), ("/libqcocoa.dylib", ""),
                             ("/QtCore.framework", ""), ("/corvane-cli", "")):
            places = [i for i, path in enumerate(order) if path.endswith(inner)]
            self.assertEqual(len(places), 1, inner)
            self.assertLess(places[0], next(i for i, path in enumerate(order) if path.endswith(outer)
                                            and (outer or path == "")), inner)
        for line in signed:
            self.assertIn("--options runtime --timestamp", line)
            self.assertNotIn("--deep", line)
            self.assertEqual("--entitlements" in line, line.endswith("/Corvane.app"), line)
        self.assertTrue(self.called()[-1].startswith("codesign --verify --strict"))

    def test_sign_for_this_mac_alone_without_the_hardened_runtime(self):
        self.make_bundle()
        status, _, said = self.run_step("sign", CORVANE_SIGN_IDENTITY="-")
        self.assertEqual(status, 0, said)
        self.assertFalse([line for line in self.called() if "runtime" in line or "--timestamp" in line])

    def test_make_the_image_and_its_cask(self):
        self.make_bundle()
        status, printed, said = self.run_step("dmg", CORVANE_SIGN_IDENTITY="Developer ID Application: Somebody")
        self.assertEqual(status, 0, said)
        image = pathlib.Path(printed.splitlines()[-1])
        self.assertRegex(image.name, r"^Corvane-\d+\.\d+\.\d+\.dmg$")
        self.assertTrue(self.called()[-1].startswith("codesign --force --sign"), self.called())

        addresses = {"CORVANE_DOWNLOADS": "https://downloads.example/", "CORVANE_HOMEPAGE": "https://corvane.example/",
                     "CORVANE_UPDATE_FEED": "https://updates.example/feed.xml"}
        status, printed, said = self.run_step("cask", **addresses)
        self.assertEqual(status, 0, said)
        cask = pathlib.Path(printed.strip()).read_text()
        self.assertIn(f'sha256 "{hashlib.sha256(image.read_bytes()).hexdigest()}"', cask)
        self.assertIn('url "https://downloads.example/Corvane-#{version}.dmg"', cask)
        self.assertIn(f'version "{image.name[8:-4]}"', cask)
        self.assertIn('uninstall quit: "app.corvane.Corvane"', cask)

        status, _, said = self.run_step("cask", **{**addresses, "CORVANE_HOMEPAGE": 'https://a"; system "x'})
        self.assertEqual(status, 1)
        self.assertIn("not an address", said)

    def test_hand_the_image_to_the_notary_and_attach_the_ticket(self):
        self.make_bundle()
        self.run_step("dmg", CORVANE_SIGN_IDENTITY="-")
        self.calls.unlink()
        status, _, said = self.run_step("notarise", CORVANE_NOTARY_PROFILE="somebody")
        self.assertEqual(status, 0, said)
        self.assertEqual([" ".join(line.split()[:3]) for line in self.called()],
                         ["xcrun notarytool submit", "xcrun stapler staple", "spctl --assess --type"])


if __name__ == "__main__":
    PROPERTY_LIST = pathlib.Path(sys.argv.pop(1))
    unittest.main()
