#!/usr/bin/env python3
"""Tests of scripts/fetch_assets.py against a local registry."""

import base64
import hashlib
import http.server
import io
import json
import os
import pathlib
import subprocess
import sys
import tarfile
import tempfile
import threading
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "fetch_assets.py"
ICONS, FONT = "@phosphor-icons/core", "@fontsource/nunito"
FONT_FILE = "files/nunito-latin-700-normal.woff"


def archive(files):
    content = io.BytesIO()
    with tarfile.open(fileobj=content, mode="w:gz") as members:
        for name, text in files.items():
            member = tarfile.TarInfo(name)
            member.size = len(text)
            members.addfile(member, io.BytesIO(text))
    return content.getvalue()


class FetchAssets(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.asked = []
        self.served = {
            f"/mirror/{ICONS}/-/core-2.0.0.tgz": archive({
                "package/assets/fill/eye-fill.svg": b"<svg/>",
                "package/assets/thin/eye-thin.svg": b"<svg/>",
                "package/assets/fill/../../../../outside.svg": b"<svg/>",
                "package/package.json": b"{}",
            }),
            f"/mirror/{FONT}/-/nunito-5.0.0.tgz": archive({f"package/{FONT_FILE}": b"font"}),
        }
        test = self

        class Registry(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                test.asked.append(self.path)
                content = test.served.get(self.path)
                self.send_response(200 if content else 404)
                self.end_headers()
                self.wfile.write(content or b"")

            def log_message(self, *_):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Registry)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        self.registry = f"http://127.0.0.1:{server.server_port}/mirror"
        self.packages = {
            ICONS: {"version": "2.0.0", "integrity": self.integrity(f"/mirror/{ICONS}/-/core-2.0.0.tgz")},
            FONT: {"version": "5.0.0", "integrity": self.integrity(f"/mirror/{FONT}/-/nunito-5.0.0.tgz")},
        }
        self.write_lock(self.root / "package-lock.json")

    def integrity(self, path):
        return "sha512-" + base64.b64encode(hashlib.sha512(self.served[path]).digest()).decode()

    def write_lock(self, path):
        path.parent.mkdir(exist_ok=True)
        path.write_text(json.dumps({
            "packages": {"": {}, **{f"node_modules/{name}": package for name, package in self.packages.items()}}}))

    def run_script(self, **environment):
        inherited = {name: value for name, value in os.environ.items() if not name.lower().startswith("npm_config")}
        # No npm on the path, unless a test adds one.
        inherited.update({"HOME": str(self.root), "PATH": str(self.root / "bin"), "no_proxy": "127.0.0.1"})
        if not environment:
            environment = {"npm_config_registry": self.registry}
        return subprocess.run([sys.executable, str(SCRIPT), "--root", str(self.root)], capture_output=True, text=True,
                              check=False, env=inherited | environment)

    def files(self):
        modules = self.root / "node_modules"
        return sorted(str(path.relative_to(modules)) for path in modules.rglob("*") if path.is_file())

    def test_keeps_only_what_the_build_uses(self):
        done = self.run_script()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.files(), [".fetched", f"{FONT}/{FONT_FILE}", f"{ICONS}/assets/fill/eye-fill.svg"])
        self.assertFalse(list(self.root.rglob("outside.svg")))

    def test_fetches_again_only_after_a_change(self):
        self.run_script()
        self.run_script()
        self.assertEqual(len(self.asked), 2)
        self.packages[ICONS]["license"] = "MIT"
        self.write_lock(self.root / "package-lock.json")
        self.assertEqual(self.run_script().returncode, 0)
        self.assertEqual(len(self.asked), 4)

    def test_refuses_what_has_another_hash_and_keeps_what_was_there(self):
        self.run_script()
        before = self.files()
        self.packages[FONT]["integrity"] = self.packages[ICONS]["integrity"]
        self.write_lock(self.root / "package-lock.json")
        done = self.run_script()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("its hash is another", done.stderr)
        self.assertEqual(self.files(), before)

    def test_reads_the_registry_of_the_users_npmrc(self):
        (self.root / ".npmrc").write_text(f"fund=false\nregistry = {self.registry}/\n")
        done = self.run_script(NPM_CONFIG_USERCONFIG=str(self.root / ".npmrc"))
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_tells_by_its_status_that_nobody_names_a_registry(self):
        done = self.run_script(NPM_CONFIG_USERCONFIG=str(self.root / "none"))
        self.assertEqual(done.returncode, 3, done.stderr)
        self.assertFalse((self.root / "node_modules").exists())

    def test_fails_where_the_registry_lacks_a_package(self):
        self.served.clear()
        done = self.run_script()
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("404", done.stderr)

    def test_takes_what_npm_has_installed(self):
        self.write_lock(self.root / "node_modules" / ".package-lock.json")
        self.assertEqual(self.run_script().returncode, 0)
        self.assertEqual(self.asked, [])

    def test_leaves_it_to_npm_where_there_is_one(self):
        npm = self.root / "bin" / "npm"
        npm.parent.mkdir()
        npm.write_text('#!/bin/sh\necho "$1" > called\n')
        npm.chmod(0o755)
        self.assertEqual(self.run_script().returncode, 0)
        self.assertEqual((self.root / "called").read_text(), "ci\n")
        self.assertEqual(self.asked, [])


if __name__ == "__main__":
    unittest.main()
