#!/usr/bin/env python3
"""Finds violations of the layers of src/: includes, QML imports and linked targets. layers.py [SRC]

A layer is a folder; it includes nested folders that are not layers themselves. Every folder of src/ that is not listed
here is a feature, with its engine at the top level and its screen in ui/. Code that two screens share is in shell/ui,
so no screen depends on another.
"""
import pathlib
import re
import sys

INCLUDE = re.compile(r"^[ \t]*#[ \t]*(?:include|import)[ \t]*[<\"]([^>\"]+)[>\"]", re.M)
IMPORT = re.compile(r"^[ \t]*import[ \t]+(Corvane\.\w+)", re.M)
URI = re.compile(r"\bURI[ \t]+(Corvane\.\w+)")
LIBRARY = re.compile(r"\b(?:qt_add_library|corvane_qml_module)\((corvane_\w+)")
LINKED = re.compile(r"\bcorvane_\w+?(?=(?:plugin)?\b)")
QT = re.compile(r"^Q(t|[A-Z])")
NAMED = ("platform", "core", "core/store", "cli", "shell", "shell/ui", "shell/ui/services", "shell/ui/updates",
         "shell/ui/window", "main")


class Layers:
    def __init__(self, src):
        self.src = src
        self.features = {folder.name for folder in src.iterdir() if folder.is_dir()} - set(NAMED)
        self.without_qt = {"platform", "core", "cli"} | self.features
        engine = {"platform", "core"} | self.features
        app = engine | {"core/store"}
        self.may_use = {
            "platform": set(),
            "core": {"platform"},
            "cli": engine,
            "core/store": engine,
            "shell": app,
            "shell/ui": app | {"shell"},
            "shell/ui/services": app | {"shell", "shell/ui"},
            "shell/ui/updates": app | {"shell", "shell/ui"},
            "shell/ui/window": app | {"shell", "shell/ui", "shell/ui/services", "shell/ui/updates"},
        }
        for feature in self.features:
            self.may_use[feature] = engine
            self.may_use[feature + "/ui"] = app | {feature, "shell", "shell/ui", "shell/ui/window"}

    def layer_of(self, path):
        """The innermost layer of a path relative to src/; None for a path outside all layers."""
        known = set(NAMED) | set(self.may_use)
        for folder in pathlib.PurePosixPath(path).parents:
            if str(folder) in known:
                return str(folder)
        return None

    def may_reach(self, source, target):
        return source == "main" or source == target or target in self.may_use[source]

    def owners(self, pattern):
        """The names that match the pattern in the build files, each with its layer."""
        found = {}
        for build_file in self.src.rglob("CMakeLists.txt"):
            for name in pattern.findall(build_file.read_text()):
                found[name] = self.layer_of(build_file.relative_to(self.src).as_posix())
        return found

    def offences(self):
        modules = self.owners(URI)
        libraries = self.owners(LIBRARY)
        rules = {".h": (INCLUDE, self.layer_of), ".cpp": (INCLUDE, self.layer_of), ".mm": (INCLUDE, self.layer_of),
                 ".qml": (IMPORT, modules.get), ".txt": (LINKED, libraries.get)}
        for path in sorted(self.src.rglob("*")):
            relative = path.relative_to(self.src).as_posix()
            layer = self.layer_of(relative)
            if layer is None or path.suffix not in rules or not path.is_file():
                continue
            pattern, target_of = rules[path.suffix]
            text = path.read_text()
            for match in pattern.finditer(text):
                name = match.group(match.lastindex or 0)
                line = text.count("\n", 0, match.start()) + 1
                target = target_of(name)
                if target is not None and not self.may_reach(layer, target):
                    yield f"{path}:{line}: {layer} does not use {target}: {name}"
                elif pattern is INCLUDE and QT.match(name) and layer in self.without_qt:
                    yield f"{path}:{line}: {layer} does not use Qt: {name}"


def main():
    src = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1] / "src")
    offences = list(Layers(src).offences())
    for offence in offences:
        print(offence)
    return 1 if offences else 0


if __name__ == "__main__":
    sys.exit(main())
