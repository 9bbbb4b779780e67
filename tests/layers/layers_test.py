#!/usr/bin/env python3
"""Tests of scripts/layers.py on small source folders with deliberate violations."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "layers.py"


def module(name, uri, linked=""):
    return f"corvane_qml_module({name}\n  URI {uri}\n  LIBRARIES {linked})\n"


BUILD_FILES = {
    "shell/ui/CMakeLists.txt": module("corvane_shell_ui", "Corvane.Shell", "corvane_app"),
    "shell/ui/window/CMakeLists.txt": module("corvane_window_ui", "Corvane.Window", "corvane_shell_ui"),
    "map/ui/CMakeLists.txt": module("corvane_map_ui", "Corvane.Map", "corvane_shell_ui"),
    "disk/ui/CMakeLists.txt": module("corvane_disk_ui", "Corvane.Disk", "corvane_window_ui"),
}


class Layers(unittest.TestCase):
    def check(self, files):
        """The violations in a source folder with the build files and these files."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**BUILD_FILES, **files}.items():
                path = pathlib.Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            done = subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True)
            self.assertEqual(done.stderr, "")
            offences = [line.removeprefix(folder + "/") for line in done.stdout.splitlines()]
            self.assertEqual(done.returncode, 1 if offences else 0)
            return offences

    def test_a_screen_does_not_include_anothers(self):
        files = {"disk/ui/card.cpp": '#include "disk/ui/card.h"\n#include "map/ui/tile.h"\n'}
        self.assertEqual(self.check(files), ["disk/ui/card.cpp:2: disk/ui does not use map/ui: map/ui/tile.h"])

    def test_a_screen_does_not_import_anothers_module(self):
        files = {"disk/ui/Card.qml": "import QtQuick\nimport Corvane.Disk\nimport Corvane.Map\n"}
        self.assertEqual(self.check(files), ["disk/ui/Card.qml:3: disk/ui does not use map/ui: Corvane.Map"])

    def test_a_screen_does_not_link_anothers(self):
        offence = "disk/ui/more/CMakeLists.txt:1: disk/ui does not use map/ui: corvane_map_ui"
        for linked in ("corvane_map_ui", "corvane_map_uiplugin"):
            files = {"disk/ui/more/CMakeLists.txt": f"target_link_libraries(corvane_disk_ui {linked})\n"}
            self.assertEqual(self.check(files), [offence])

    def test_what_screens_share_reaches_into_none(self):
        files = {"shell/ui/menu.cpp": '#include "map/ui/tile.h"\n', "shell/ui/window/Bar.qml": "import Corvane.Map\n"}
        self.assertEqual(self.check(files), [
            "shell/ui/menu.cpp:1: shell/ui does not use map/ui: map/ui/tile.h",
            "shell/ui/window/Bar.qml:1: shell/ui/window does not use map/ui: Corvane.Map"])

    def test_what_screens_share_does_not_use_the_window(self):
        files = {"shell/ui/linux/menu.cpp": '#include "shell/ui/window/bar.h"\n'}
        self.assertEqual(self.check(files), [
            "shell/ui/linux/menu.cpp:1: shell/ui does not use shell/ui/window: shell/ui/window/bar.h"])

    def test_the_core_includes_no_feature(self):
        files = {"core/scan.cpp": '#include "map/rect.h"\n#include "core/store/store.h"\n'}
        self.assertEqual(self.check(files), ["core/scan.cpp:1: core does not use map: map/rect.h",
                                             "core/scan.cpp:2: core does not use core/store: core/store/store.h"])

    def test_the_seam_uses_nothing_above_it(self):
        files = {"platform/linux/trash.cpp": '#  include "core/path.h"\n'}
        self.assertEqual(self.check(files), ["platform/linux/trash.cpp:1: platform does not use core: core/path.h"])

    def test_the_engine_does_not_use_qt(self):
        files = {"map/tree.cpp": "#include <QString>\n", "cli/main.cpp": "#include <QtCore/qglobal.h>\n"}
        self.assertEqual(self.check(files), ["cli/main.cpp:1: cli does not use Qt: QtCore/qglobal.h",
                                             "map/tree.cpp:1: map does not use Qt: QString"])

    def test_a_new_folder_is_a_feature(self):
        files = {"apps/ui/row.cpp": '#include "map/ui/tile.h"\n', "core/a.cpp": '#include "apps/b.h"\n'}
        self.assertEqual(self.check(files), ["apps/ui/row.cpp:1: apps/ui does not use map/ui: map/ui/tile.h",
                                             "core/a.cpp:1: core does not use apps: apps/b.h"])

    def test_screens_use_what_is_shared_and_every_engine(self):
        self.assertEqual(self.check({
            "disk/ui/card.cpp": '#include <QString>\n#include "map/rect.h"\n#include "core/store/store.h"\n'
                                '#include "shell/ui/theme.h"\n#include "shell/ui/window/bar.h"\n',
            "disk/ui/Card.qml": "import Corvane.Shell\nimport Corvane.Window\nimport Corvane.Disk\n",
            "core/store/store.cpp": '#include "disk/volume.h"\n#include <QObject>\n',
            "main/main.cpp": '#include "disk/ui/card.h"\n#include "map/ui/tile.h"\n'}), [])


if __name__ == "__main__":
    unittest.main()
