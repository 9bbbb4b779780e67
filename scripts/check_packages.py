#!/usr/bin/env python3
"""Checks that each command of ./dev works with the packages that scripts/packages.sh lists for it.

A developer's machine has many other packages, which hide a missing entry in a list. So each command's first steps run
here in a view of this system (bubblewrap) in which headers, CMake's and pkg-config's files, programs, QML modules and
fonts are only those of the listed packages and their dependencies. Nothing is downloaded. Runs only on Debian and its
derivatives; a command whose packages are not all installed is skipped with a message.

Exit status: 1 if a list lacks a package; 77 if that cannot be determined, with the reason.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "check-packages"

# Folders of which the view shows only files of the listed packages. Libraries remain visible: without their headers
# they cannot be found.
VIEWED = ("/usr/bin", "/usr/sbin", "/usr/include", "/usr/share/cmake", "/usr/share/pkgconfig", "/usr/share/fonts",
          "/usr/share/qt6", "/usr/lib/MULTIARCH/cmake", "/usr/lib/MULTIARCH/pkgconfig", "/usr/lib/MULTIARCH/qt6",
          "/usr/lib/qt6", "/usr/lib/node_modules", "/usr/local/bin", "/usr/local/include", "/usr/local/lib")


def configure(preset, environment=""):
    return f"{environment} cmake --preset {preset} -B {FOLDER}/{preset}"


def has_programs(*names):
    return "for name in " + " ".join(names) + '; do command -v "$name" || { echo "there is no $name" >&2; exit 1; }; done'


# Each command's purposes in packages.sh, and its first build steps.
COMMANDS = {
    "run": ("build ui", [configure("release")]),
    "test": ("build ui window test", [configure("dev"), has_programs(
        "bwrap", "dbus-daemon", "xmllint", "gio", "ccache", "desktop-file-validate", "appstreamcli")]),
    # The window with all of its QML, if it is built.
    "test, the window": ("build ui window test", [
        "for program in build/dev/bin/corvane_journeys; do "
        "[ ! -x $program ] || QT_QPA_PLATFORM=offscreen $program --gtest_brief=1 --gtest_filter='Overview*'; done"]),
    "lint": ("build ui window test lint", [
        configure("dev"), has_programs("shellcheck", "yamllint", "python3"),
        '. scripts/sources.sh; command -v "$(llvm_tool clang-format)" && command -v "$(llvm_tool clang-tidy)"']),
    "bench": ("build bench", [configure("bench"), has_programs("hyperfine", "ncdu", "gdu")]),
    "bench publish": ("build bench ui", [configure("bench-window")]),
    "bench window": ("build bench ui window display", [configure("bench-window"), has_programs("Xvfb", "xvfb-run")]),
    "fuzz": ("build ui fuzz", [configure("fuzz", ". scripts/llvm.sh; CXX=clang++-$clang_llvm")]),
    "package": ("build ui package", [configure("release"), has_programs("cpack", "dpkg-shlibdeps", "file", "strip", "lintian")]),
}


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def installed_packages():
    """The dependencies of each installed package, as lists of alternatives; and the packages by name, including
    the names that they provide."""
    fields = "${db:Status-Abbrev}\t${Package}\t${Essential}\t${Priority}\t${Provides}\t${Pre-Depends}, ${Depends}\n"
    needs, by_name, base = {}, {}, set()
    for line in output("dpkg-query", "-W", "-f", fields).splitlines():
        status, name, essential, priority, provides, depends = line.split("\t")
        if not status.startswith("ii"):
            continue
        if essential == "yes" or priority == "required":
            base.add(name)
        needs.setdefault(name, []).extend(
            [plain_name(choice) for choice in need.split("|")] for need in depends.split(",") if need.strip())
        for provided in (name, *map(plain_name, filter(str.strip, provides.split(",")))):
            by_name.setdefault(provided, set()).add(name)
    return needs, by_name, base


def plain_name(dependency):
    return re.split(r"[ (:\[<]", dependency.strip())[0]


def everything_for(wanted, needs, by_name, base):
    """The packages of a minimal system once the wanted ones are installed; and those that are not installed here."""
    missing = [choices for choices in wanted if not any(choice in needs for choice in choices)]
    waiting = list(base) + [next(choice for choice in choices if choice in needs) for choices in wanted
                            if choices not in missing]
    # Even a minimal system has the package manager and its dependencies.
    waiting.append("apt")
    reached = set()
    while waiting:
        package = waiting.pop()
        if package in reached:
            continue
        reached.add(package)
        for choices in needs.get(package, []):
            # Follow only the first alternative that is installed: a later one may be installed for another reason.
            providers = next((by_name[choice] for choice in choices if choice in by_name), ())
            waiting += providers
    return reached, missing


def viewed_folders():
    multiarch = output("dpkg-architecture", "-qDEB_HOST_MULTIARCH").strip() if shutil.which("dpkg-architecture") else \
        output("gcc", "-print-multiarch").strip()
    return [folder.replace("MULTIARCH", multiarch) for folder in VIEWED]


def place(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    if os.path.islink(source):
        target.symlink_to(os.readlink(source))
        return
    try:
        os.link(source, target)
    except OSError:
        shutil.copy2(source, target)


def make_view(packages, folders, tree):
    """Links or copies the packages' files in these folders into a tree."""
    shutil.rmtree(tree, ignore_errors=True)
    for folder in folders:
        (tree / folder[1:]).mkdir(parents=True)
    beneath = tuple(folder + "/" for folder in folders)
    listed = output("dpkg-query", "-L", *sorted(packages)).splitlines()
    resolved = {}
    for path in listed:
        parent, name = os.path.split(path)
        # The /bin and /lib in the packages' lists are links to /usr/bin and /usr/lib.
        real = resolved.setdefault(parent, os.path.realpath(parent)) + "/" + name
        target = tree / real[1:]
        if not real.startswith(beneath) or os.path.lexists(target):
            continue
        if os.path.isdir(real) and not os.path.islink(real):
            target.mkdir(parents=True, exist_ok=True)
        elif os.path.lexists(real):
            place(real, target)
    # Names that the system links to one of several programs, such as c++.
    for folder in ("/usr/bin", "/usr/sbin"):
        for link in pathlib.Path(folder).iterdir():
            if link.is_symlink() and os.readlink(link).startswith("/etc/alternatives/"):
                final = tree / os.path.realpath(link)[1:]
                if final.exists() and not os.path.lexists(tree / str(link)[1:]):
                    place(str(link), tree / str(link)[1:])


def run(steps, folders, tree):
    """The output of the first step that fails in the view, or None."""
    view = ["bwrap", "--dev-bind", "/", "/", "--setenv", "PATH", "/usr/sbin:/usr/bin:/sbin:/bin",
            "--unsetenv", "CXX", "--chdir", str(ROOT)]
    for folder in folders:
        if os.path.isdir(folder):
            view += ["--ro-bind", str(tree / folder[1:]), folder]
    for step in steps:
        done = subprocess.run([*view, "bash", "-c", f"set -eo pipefail; {step}"], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        if done.returncode != 0:
            return done.stdout
    return None


def main():
    if not shutil.which("dpkg-query"):
        print("check-packages: skipped: this system has no dpkg")
        return 77
    if not shutil.which("bwrap") or subprocess.run(["bwrap", "--dev-bind", "/", "/", "true"], check=False,
                                                   capture_output=True).returncode != 0:
        print("check-packages: skipped: bubblewrap cannot run here")
        return 77

    needs, by_name, base = installed_packages()
    folders = viewed_folders()
    trees, failed = {}, []
    shutil.rmtree(FOLDER, ignore_errors=True)
    for command, (purposes, steps) in COMMANDS.items():
        words = output("bash", "-c", f"cd '{ROOT}'; . scripts/packages.sh; for p in {purposes}; do packages_for $p; done")
        wanted = [word.split("|") for word in words.split()]
        packages, missing = everything_for(wanted, needs, by_name, base)
        if missing:
            print(f"check-packages: ./dev {command}: left out, not installed here: "
                  + ", ".join("|".join(choices) for choices in missing))
            continue
        if purposes not in trees:
            trees[purposes] = FOLDER / f"view-{len(trees)}"
            make_view(packages, folders, trees[purposes])
        problem = run(steps, folders, trees[purposes])
        if problem is None:
            print(f"check-packages: ./dev {command}: gets by with its packages", flush=True)
        else:
            failed.append(command)
            print(problem, end="")
            print(f"check-packages: ./dev {command}: lacks a package in scripts/packages.sh", flush=True)
    shutil.rmtree(FOLDER, ignore_errors=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
