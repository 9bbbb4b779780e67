#!/usr/bin/env python3
"""Prints what has to be built for the tests whose names match an expression, one target a line.

    test_targets.py BUILD EXPRESSION

The names are read from the sources, for a test program tells its own only once it is built. Of a test with parameters
the source does not tell the whole name: what stands before the parameter has to match. Where nothing matches, the
exit status is 1: then only building everything can tell.
"""
import json
import pathlib
import re
import subprocess
import sys

TEST = re.compile(r"^\s*(TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)\s*,\s*(\w+)\s*\)", re.M)
INSTANCE = re.compile(r"^\s*INSTANTIATE_TEST_SUITE_P\(\s*(\w*)\s*,\s*(\w+)\s*,", re.M)
COMMAND = re.compile(r"^add_test\(\[=\[(.*?)\]=\] (.*)\)$", re.M)


def names_in(text):
    """The names of a source's tests; the boolean says whether a parameter follows the name."""
    instances = {}
    for prefix, suite in INSTANCE.findall(text):
        instances.setdefault(suite, []).append(prefix + "/" if prefix else "")
    for kind, suite, test in TEST.findall(text):
        if kind == "TEST_P":
            for prefix in instances.get(suite, [""]):
                yield f"{prefix}{suite}.{test}/", True
        elif kind == "TYPED_TEST":
            yield f"{suite}/", True
        else:
            yield f"{suite}.{test}", False


def matches(expression, name, is_start):
    if re.search(expression, name):
        return True
    if not is_start:
        return False
    # Drop the parts of the expression that match the parameter, one at a time.
    pieces = expression.split("/")
    for count in range(len(pieces) - 1, 0, -1):
        try:
            if re.search("/".join(pieces[:count]), name):
                return True
        except re.error:
            continue
    return False


def programs_of(build, root):
    """The target of each test source."""
    programs = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        target = re.search(r" -o \S*CMakeFiles/([^/]+)\.dir/", entry["command"])
        if target and source.is_relative_to(root / "tests"):
            programs.setdefault(source, set()).add(target[1])
    return programs


def outputs(build):
    listed = subprocess.run(["ninja", "-C", build, "-t", "targets", "all"], capture_output=True, text=True, check=True)
    return {line.split(":")[0] for line in listed.stdout.splitlines()}


def wanted_targets(build, root, expression):
    wanted = set()
    for source, targets in programs_of(build, root).items():
        if any(matches(expression, name, is_start) for name, is_start in names_in(source.read_text())):
            wanted |= targets
    is_found = bool(wanted)
    made = None
    for listing in build.rglob("CTestTestfile.cmake"):
        for name, command in COMMAND.findall(listing.read_text()):
            if not re.search(expression, name):
                continue
            is_found = True
            made = made or outputs(build)
            for word in re.findall(r'"([^"]*)"', command):
                path = pathlib.Path(word)
                if not path.is_relative_to(build):
                    continue
                needed = str(path.relative_to(build))
                wanted |= {output for output in made if output == needed or output.startswith(needed + "/")}
    return wanted if is_found else None


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    root = pathlib.Path(__file__).resolve().parent.parent
    wanted = wanted_targets(pathlib.Path(sys.argv[1]).resolve(), root, sys.argv[2])
    if wanted is None:
        sys.exit(1)
    for target in sorted(wanted):
        print(target)


if __name__ == "__main__":
    main()
