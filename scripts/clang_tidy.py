#!/usr/bin/env python3
"""Runs clang-tidy over the hand-written sources of a build folder, on all cores.

With --since, over those alone that the commits since a revision or the uncommitted changes concern: what has changed,
and what includes it. Their objects are built first, for clang-tidy reads what the build generates.

A source that was clean is remembered by the contents of everything that the compiler read for it (the
project's own files; the build's dependency log names them), its compile command, the configuration and
clang-tidy's version, and is not looked at again until one of them changes. How far it is goes to the standard error.
"""

import argparse
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

SOURCE_FOLDERS = ("src", "tests", "bench")
MEANT_NOT_TO_COMPILE = ("tests/layers/",)
INCLUDE = re.compile(r"^[ \t]*#[ \t]*(?:include|import)[ \t]*\"([^\"]+)\"", re.M)
PROGRESS_STEP = 5  # per cent


def changed_since(root, revision):
    """The files that differ from a revision, including untracked ones."""
    commands = (["git", "diff", "--name-only", revision], ["git", "ls-files", "--others", "--exclude-standard"])
    listed = [subprocess.run(command, cwd=root, capture_output=True, text=True, check=True).stdout
              for command in commands]
    return {root / name for name in "".join(listed).splitlines()}


def concerned(root, changed):
    """The changed sources and headers, and all files that include them, directly or indirectly."""
    files = [path for folder in SOURCE_FOLDERS for path in (root / folder).rglob("*")
             if path.suffix in (".h", ".cpp", ".mm")]
    if any(path.name == ".clang-tidy" for path in changed):
        return set(files)
    included_by = {}
    for path in files:
        for name in INCLUDE.findall(path.read_text()):
            for folder in (path.parent, *(root / each for each in SOURCE_FOLDERS)):
                included_by.setdefault(folder / name, set()).add(path)
    found, pending = set(), list(changed)
    while pending:
        path = pending.pop()
        if path not in found:
            found.add(path)
            pending.extend(included_by.get(path, ()))
    return found & set(files)


def object_of(entry):
    """The object file of a compile command; None if it cannot be determined."""
    output = re.search(r" -o (\S+)", entry["command"])
    return output[1] if output else None


@functools.cache
def file_hash(path):
    """The hash of a file's contents; each file is read once."""
    try:
        return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()
    except OSError:
        return "absent"


def dependencies(build):
    """The files that the compiler read for each object file of the build."""
    log = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True)
    result, current = {}, []
    for line in log.stdout.splitlines():
        if line and not line.startswith(" "):
            current = result.setdefault(line.split(":")[0], [])
        elif line.strip():
            current.append(os.path.normpath(os.path.join(build, line.strip())))
    return result


def configurations(source, root):
    """The .clang-tidy files that apply to a source."""
    folder = source.parent
    while True:
        if (folder / ".clang-tidy").is_file():
            yield folder / ".clang-tidy"
        if folder == root:
            return
        folder = folder.parent


def key(entry, root, dependency_log, version):
    """A hash of everything that the result for a source depends on; None if it cannot be determined."""
    files = dependency_log.get(object_of(entry))
    if files is None:
        return None
    source = pathlib.Path(entry["file"])
    parts = [version, entry["command"], file_hash(str(source))]
    parts += [file_hash(str(path)) for path in configurations(source, root)]
    parts += [path + file_hash(path) for path in sorted(files) if path.startswith(str(root))]
    return hashlib.sha256("\n".join(parts).encode()).hexdigest()


def look_at(entry, arguments):
    """Runs clang-tidy on one source; returns whether it is clean, and the output."""
    done = subprocess.run(
        [arguments.clang_tidy, "--quiet", "-p", arguments.build, entry["file"]],
        capture_output=True, text=True, check=False)
    said = done.stdout + "".join(line for line in done.stderr.splitlines(True) if "error:" in line)
    return done.returncode == 0 and "warning:" not in done.stdout, said


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="a build folder with compile_commands.json")
    parser.add_argument("--clang-tidy", required=True, help="the program")
    parser.add_argument("--cache", required=True, help="where clean sources are remembered")
    parser.add_argument("--since", metavar="REVISION", help="only what has changed since then")
    arguments = parser.parse_args()

    root = pathlib.Path(__file__).resolve().parent.parent
    wanted = tuple(str(root / folder) + os.sep for folder in SOURCE_FOLDERS)
    commands = json.loads(pathlib.Path(arguments.build, "compile_commands.json").read_text())
    unwanted = tuple(str(root / folder) + os.sep for folder in MEANT_NOT_TO_COMPILE)
    entries = {entry["file"]: entry for entry in commands
               if entry["file"].startswith(wanted) and not entry["file"].startswith(unwanted)}
    if arguments.since:
        wanted_files = {str(path) for path in concerned(root, changed_since(root, arguments.since))}
        entries = {file: entry for file, entry in entries.items() if file in wanted_files}
        if not entries:
            print("clang-tidy: no source has changed", file=sys.stderr)
            return 0
        objects = [name for name in map(object_of, entries.values()) if name]
        subprocess.run(["ninja", "-C", arguments.build, *objects], stdout=sys.stderr, check=True)
    version = subprocess.run([arguments.clang_tidy, "--version"], capture_output=True, text=True, check=True).stdout
    dependency_log = dependencies(os.path.abspath(arguments.build))
    cache = pathlib.Path(arguments.cache)
    cache.mkdir(parents=True, exist_ok=True)

    def verdict(entry):
        remembered = key(entry, root, dependency_log, version)
        if remembered and (cache / remembered).exists():
            return True, ""
        clean, said = look_at(entry, arguments)
        if clean and remembered:
            (cache / remembered).touch()
        return clean, said

    # Start with the largest files, so that the run does not end by waiting for one of them.
    largest_first = sorted(entries.values(), key=lambda entry: os.path.getsize(entry["file"]), reverse=True)
    all_clean, told = True, 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        verdicts = [pool.submit(verdict, entry) for entry in largest_first]
        for done, finished in enumerate(concurrent.futures.as_completed(verdicts), 1):
            clean, said = finished.result()
            if not clean:
                all_clean = False
                print(said, end="", flush=True)
            percent = done * 100 // len(verdicts)
            if percent >= told + PROGRESS_STEP or done == len(verdicts):
                told = percent
                print(f"clang-tidy: {done} of {len(verdicts)} sources ({percent} %)", file=sys.stderr, flush=True)
    return 0 if all_clean else 1


if __name__ == "__main__":
    sys.exit(main())
