"""Lists the C++ and Objective-C++ sources of the macOS build, from the build files and without running CMake."""
import pathlib
import re

COMMAND = re.compile(r"(\w+)\s*\(((?:[^()\"]|\"(?:\\.|[^\"\\])*\"|\((?:[^()]|\([^()]*\))*\))*)\)", re.S)
TEXT_OR_COMMENT = re.compile(r"(\"(?:\\.|[^\"\\])*\")|#[^\n]*", re.S)
VARIABLE = re.compile(r"\$\{(\w+)\}")
# Commands that name sources without adding them to a target.
ASIDE = {"set_source_files_properties", "set_property"}
# Conditions that are true on a Mac; for any other, both branches count.
HOLDS = {"APPLE", "NOT CMAKE_SYSTEM_NAME STREQUAL \"Linux\""}
FAILS = {"NOT APPLE", "CMAKE_SYSTEM_NAME STREQUAL \"Linux\""}


def sources_of(root, folder=pathlib.Path()):
    """The paths, relative to `root`, that the CMakeLists.txt of `folder` and of its subdirectories add to targets on a
    Mac. If a condition is unknown, both branches count."""
    found = set()
    variables = {}
    taken = []  # for each enclosing condition: whether its branch can be taken
    text = TEXT_OR_COMMENT.sub(lambda found: found[1] or "", (root / folder / "CMakeLists.txt").read_text())
    for name, arguments in COMMAND.findall(text):
        name = name.lower()
        arguments = " ".join(VARIABLE.sub(lambda found: variables.get(found[1], found[0]), arguments).split())
        if name == "if":
            taken.append((arguments not in FAILS, arguments not in HOLDS))
        elif name in ("else", "elseif"):
            now, otherwise = taken.pop()
            taken.append((otherwise and not (name == "elseif" and arguments in FAILS), otherwise))
        elif name == "endif":
            taken.pop()
        elif all(now for now, _ in taken):
            if name == "return" and all(not otherwise for _, otherwise in taken):
                break
            if name == "set" and " " in arguments:
                variables.update([arguments.split(" ", 1)])
            found |= named_by(root, folder, name, arguments)
    return found


def named_by(root, folder, name, arguments):
    words = arguments.replace("${CMAKE_CURRENT_SOURCE_DIR}/", "").split()
    if name == "add_subdirectory":
        inner = folder / words[0]
        return sources_of(root, inner) if (root / inner / "CMakeLists.txt").is_file() else set()
    if name in ASIDE or (name == "list" and words[:1] != ["APPEND"]):
        return set()
    found = set()
    for word in words:
        if word.endswith((".cpp", ".mm")) and "$" not in word:
            paths = sorted((root / folder).glob(word)) if "*" in word else [root / folder / word]
            found |= {path.relative_to(root) for path in paths}
    return found


def missing_from(named, root, source_folder="src"):
    """The sources for a Mac that no build file names, sorted."""
    there = [path.relative_to(root) for kind in ("cpp", "mm") for path in (root / source_folder).rglob(f"*.{kind}")]
    return sorted(path for path in there if "linux" not in path.parts and path not in named)
