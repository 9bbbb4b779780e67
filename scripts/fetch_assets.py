#!/usr/bin/env python3
"""Fetches the icons and the font that the build embeds into node_modules.

Where npm is installed it does so, with all that it is told about registries, logins and certificates. Elsewhere it
is not needed: package-lock.json names the packages, their versions and the hashes that what arrives must have. They
then come from the registry that npm is told to use: npm_config_registry or NPM_CONFIG_REGISTRY of the environment,
"registry" of the project's .npmrc or of the user's (~/.npmrc, or what NPM_CONFIG_USERCONFIG names). Only the files that
the build uses are kept. Nothing is fetched again until the lock file has changed.

Exit status 3: no registry is named, and there is no npm, which knows one of its own.
"""

import argparse
import base64
import fnmatch
import hashlib
import io
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import time
import urllib.error
import urllib.request

# The files to keep of each package, whose folder in the archive is called "package".
KEPT = {
    "@fontsource/nunito": ("files/nunito-latin-700-normal.woff",),
    "@phosphor-icons/core": tuple(f"assets/{weight}/*.svg" for weight in ("regular", "fill", "light", "bold")),
}

ATTEMPTS = 3
NO_REGISTRY = 3


def setting(path, name):
    """The value of a setting in one of npm's configuration files, or None."""
    try:
        lines = path.read_text().splitlines()
    except OSError:
        return None
    for line in lines:
        key, separator, value = line.partition("=")
        if separator and key.strip() == name:
            return os.path.expandvars(value.strip().strip("\"'"))
    return None


def registry(root, environment):
    files = [root / ".npmrc"]
    user = next((value for name, value in environment.items() if name.lower() == "npm_config_userconfig"), None)
    files.append(pathlib.Path(user or pathlib.Path.home() / ".npmrc"))
    named = [value for name, value in environment.items() if name.lower() == "npm_config_registry"]
    named += [setting(path, "registry") for path in files]
    known = next(filter(None, named), None)
    return known and known.rstrip("/") + "/"


def download(url):
    for attempt in range(ATTEMPTS):
        try:
            with urllib.request.urlopen(url, timeout=60) as answer:
                return answer.read()
        except (OSError, urllib.error.URLError) as error:
            if attempt + 1 == ATTEMPTS or isinstance(error, urllib.error.HTTPError):
                sys.exit(f"fetch_assets: {url}: {error}")
            time.sleep(2 ** attempt)


def is_intact(content, integrity):
    """Whether the content has the SHA-512 hash in the lock file's "sha512-BASE64"."""
    expected = [value[len("sha512-"):] for value in integrity.split() if value.startswith("sha512-")]
    return base64.b64encode(hashlib.sha512(content).digest()).decode() in expected


def unpack(archive, patterns, folder):
    """Extracts the files to keep into the folder; returns their number."""
    count = 0
    with tarfile.open(fileobj=io.BytesIO(archive), mode="r:gz") as members:
        for member in members:
            name = pathlib.PurePosixPath(*pathlib.PurePosixPath(member.name).parts[1:])
            if not member.isfile() or ".." in name.parts or name.is_absolute():
                continue
            if any(fnmatch.fnmatchcase(str(name), pattern) for pattern in patterns):
                target = folder / name
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_bytes(members.extractfile(member).read())
                count += 1
    return count


def fetch(name, package, source, folder):
    version = package["version"]
    url = f"{source}{name}/-/{name.rpartition('/')[2]}-{version}.tgz"
    print(f"fetch_assets: {name} {version}", flush=True)
    archive = download(url)
    if not is_intact(archive, package["integrity"]):
        sys.exit(f"fetch_assets: {url} is not what package-lock.json names: its hash is another")
    if unpack(archive, KEPT[name], folder / name) == 0:
        sys.exit(f"fetch_assets: {url} holds nothing that the build uses")


def installed_by_npm(modules, packages):
    """Whether npm's own record of the installed packages has the same hashes."""
    try:
        installed = json.loads((modules / ".package-lock.json").read_bytes())["packages"]
    except (OSError, ValueError, KeyError):
        return False
    return all(installed.get(f"node_modules/{name}", {}).get("integrity") == package["integrity"]
               for name, package in packages.items())


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent,
                        help="folder with package-lock.json")
    root = parser.parse_args().root

    lock = (root / "package-lock.json").read_bytes()
    # This script is part of the hash because it defines which files are kept.
    state = hashlib.sha256(lock + pathlib.Path(__file__).read_bytes()).hexdigest()
    modules = root / "node_modules"
    stamp = modules / ".fetched"
    if stamp.is_file() and stamp.read_text() == state:
        return

    packages = {path.removeprefix("node_modules/"): package
                for path, package in json.loads(lock)["packages"].items() if path}
    if packages.keys() != KEPT.keys():
        sys.exit(f"fetch_assets: package-lock.json names other packages than this script: {', '.join(packages)}")
    if installed_by_npm(modules, packages):
        return
    npm = shutil.which("npm")
    if npm:
        print("fetch_assets: fetching the icons and a font with npm", flush=True)
        command = [npm, "ci", "--ignore-scripts", "--no-audit", "--no-fund"]
        sys.exit(subprocess.run(command, cwd=root, check=False).returncode)
    source = registry(root, os.environ)
    if source is None:
        sys.exit(NO_REGISTRY)
    # Keep the old folder until the download is complete.
    fresh = root / "node_modules.fetching"
    shutil.rmtree(fresh, ignore_errors=True)
    for name, package in packages.items():
        fetch(name, package, source, fresh)
    (fresh / stamp.name).write_text(state)
    shutil.rmtree(modules, ignore_errors=True)
    fresh.rename(modules)


if __name__ == "__main__":
    main()
