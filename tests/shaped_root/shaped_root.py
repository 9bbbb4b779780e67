#!/usr/bin/env python3
"""Builds a root folder shaped like a Mac's disk from mac.txt, or like a Linux system's from linux.txt.

    shaped_root.py build KIND FOLDER [--scale N]   makes FOLDER/root; an earlier one is replaced
    shaped_root.py sizes KIND [--scale N]          prints what every folder and file comes to, as JSON

Sizes are allocated, not written, where the file system can do that, so building takes a second. Everything is
the same from run to run: names, sizes, contents, dates.
"""

import argparse
import dataclasses
import datetime
import json
import os
import pathlib
import plistlib
import re
import shlex
import shutil
import stat
import sys

import app_icon
import linux_apps

HERE = pathlib.Path(__file__).resolve().parent
DEFAULT_SCALE = 1000
BLOCK = 4096
KINDS = ("mac", "linux")
MARKER = b".corvane-shaped-root"  # in the built folder; contains the kind of the root
UNITS = {"KB": 1000, "MB": 1000**2, "GB": 1000**3}
USUAL_DATE = datetime.datetime(2025, 11, 1, 12, tzinfo=datetime.timezone.utc)


@dataclasses.dataclass
class Item:
    """One item of a description, with series expanded. Sizes are the described disk's, in bytes."""

    name: bytes
    is_folder: bool = False
    size: int = 0               # of a file; for "the rest", set once computed
    takes_rest: float = 0.0     # this item's share of the rest in its series
    stated: int = 0             # required total of a folder; 0 for none
    date: datetime.datetime = None
    content: bytes = None       # a file with this content instead of a size
    mark: bytes = b""           # the first bytes of a file with a size; the rest are zeros
    mode: int = 0
    link: bytes = None
    is_continued: bool = False  # append the content to the existing file with this name, if any
    children: list = dataclasses.field(default_factory=list)

    def total(self):
        if self.is_folder:
            return sum(child.total() for child in self.children)
        return len(self.content) if self.content is not None else self.size

    def allocated(self, scale):
        """The bytes that a file occupies in a root of that scale."""
        if self.content is not None:
            return -(-len(self.content) // BLOCK) * BLOCK
        return max(round(self.size / scale / BLOCK), 1) * BLOCK if self.size else 0


class Mistake(Exception):
    """An error in a description."""


def parse_size(text):
    number, unit = text.split()
    return round(float(number) * UNITS[unit])


def parse_date(text):
    form = "%Y-%m-%d %H:%M" if ":" in text else "%Y-%m-%d"
    date = datetime.datetime.strptime(text, form).replace(tzinfo=datetime.timezone.utc)
    return date if ":" in text else date.replace(hour=12)


def name_bytes(text):
    return re.sub(rb"\\x([0-9a-f]{2})", lambda match: bytes([int(match[1], 16)]), text.encode())


def spelled_out(name):
    """The names of a series: "a {01..03}" is "a 01", "a 02", "a 03"."""
    match = re.search(r"\{(\w+)\.\.(\w+)\}", name)
    if not match:
        return [name]
    first, last = match[1], match[2]
    if first.isdigit():
        parts = [str(number).zfill(len(first)) for number in range(int(first), int(last) + 1)]
    else:
        parts = [chr(code) for code in range(ord(first), ord(last) + 1)]
    return [name[:match.start()] + part + name[match.end():] for part in parts]


def shares(count):
    """The fractions of a total in a series: the first is three times the last."""
    weights = [3 - 2 * index / max(count - 1, 1) for index in range(count)]
    return [weight / sum(weights) for weight in weights]


def property_list(binary, text):
    entries = dict(pair.split("=", 1) for pair in shlex.split(text))
    return plistlib.dumps(entries, fmt=plistlib.FMT_BINARY if binary else plistlib.FMT_XML)


def bundle(name, how, size, icon, keys):
    """An application: its property list, program, icon and resources, and the App Store's additions."""
    binary = how == "binary"
    contents = Item(b"Contents", is_folder=True)
    contents.children.append(Item(b"Info.plist", content=property_list(binary, keys + " CFBundleIconFile=AppIcon")))
    program = Item(b"MacOS", is_folder=True)
    program.children.append(Item(name.removesuffix(b".app"), size=size * 3 // 10))
    resources = Item(b"Resources", is_folder=True)
    resources.children.append(Item(b"AppIcon.icns", content=app_icon.icns(*icon.split())))
    for number, share in enumerate(shares(12), 1):
        resources.children.append(Item(b"Assets-%02d.car" % number, size=round((size - size * 3 // 10) * share)))
    contents.children += [program, resources]
    if how == "appstore":
        receipt = Item(b"_MASReceipt", is_folder=True)
        receipt.children.append(Item(b"receipt", content=b"receipt\n"))
        contents.children.append(receipt)
    return Item(name, is_folder=True, children=[contents])


# The lines of a description. Lines indented by two more spaces are inside the folder above them.
#
#   Name/                            a folder
#   Name/ | 12.5 GB                  a folder whose contents must total this, within one percent
#   Name/ | locked                   an unreadable folder
#   Name/ | dated 2024-03-16         a folder whose contents have this date unless they have their own
#   name | 8.12 GB                   a file that occupies this much of the disk
#   name | 8.12 GB | 2024-10-11      … last modified on this date
#   name | 8.12 GB | contents WORD   … with the same contents as all others with this word; contents differ otherwise
#   name {001..040}.x | 8 GB in all  forty files, the first about three times as large as the last
#   name {001..040}.x | the rest     … which together fill the folder up to its required total
#   name | text | line\nline         a file with this text, never scaled
#   name | plist xml | Key=Text …    a property list, "xml" or "binary"; values without spaces or in quotes
#   Name.app | app binary | 740 MB | sign 2F6BE0 | Key=Text …   a bundle with an Info.plist of these keys, "xml",
#                                    "binary" or "appstore", and an icon: a sign and the colour of its tile
#   name | copy | FILE               a copy of a file next to this script; "copy executable" sets the x bit
#   name -> target                   a symbolic link
#   name.png | icon SIGN COLOUR      a tile of this colour with a sign of signs.txt on it; also name.svg
#   name | more text | line\nline    text to append to the file with this name
#   \xe7                             one byte of a name that is not UTF-8
#   folder/folder/name …             a name can be a path
#   flatpak: ID | …                  an application of a Linux system with all its files; see linux_apps.py
#
# Sizes are those of the described disk. The builder divides them by its scale and rounds to blocks of 4096 bytes, at
# least one. A folder may occur several times; its contents accumulate.


def parse_line(text):
    """The items that one line stands for."""
    if " -> " in text:
        name, target = text.split(" -> ")
        return [Item(name_bytes(name), link=target.encode())]
    name, *fields = text.split(" | ")
    is_folder = name.endswith("/")
    names = spelled_out(name.removesuffix("/"))
    items = [Item(name_bytes(one), is_folder=is_folder) for one in names]
    if not fields:
        if not is_folder:
            raise Mistake("a file needs a size")
        return items

    kind, *rest = fields
    if kind in ("text", "more text"):
        items[0].content = rest[0].replace("\\n", "\n").encode()
        items[0].is_continued = kind == "more text"
        return items
    if kind.startswith("icon "):
        draw = app_icon.png if items[0].name.endswith(b".png") else app_icon.svg
        items[0].content = draw(*kind.removeprefix("icon ").split())
        return items
    if kind.startswith("plist "):
        items[0].content = property_list(kind == "plist binary", rest[0])
        return items
    if kind.startswith("copy"):
        items[0].content = (HERE / rest[0]).read_bytes()
        items[0].mode = 0o755 if kind == "copy executable" else 0
        return items
    if kind.startswith("app "):
        return [bundle(items[0].name, kind.removeprefix("app "), parse_size(rest[0]), *rest[1:])]

    for field in fields:
        if field == "locked":
            items[0].mode = stat.S_IFDIR  # no permissions
        elif field == "the rest":
            for item, share in zip(items, shares(len(items))):
                item.takes_rest = share
        elif field.startswith("contents "):
            for item in items:
                item.mark = field.encode()
        elif field.endswith(" in all"):
            whole = parse_size(field.removesuffix(" in all"))
            for item, share in zip(items, shares(len(items))):
                set_size(item, round(whole * share))
        elif field.split()[-1] in UNITS:
            for item in items:
                set_size(item, parse_size(field))
        else:
            for item in items:
                item.date = parse_date(field.removeprefix("dated "))
    return items


def set_size(item, size):
    if item.is_folder:
        item.stated = size
    else:
        item.size = size


def put(item, folder):
    """Adds an item to a folder, or merges it with the one of that name; returns the resulting item."""
    there = next((child for child in folder.children if child.name == item.name), None)
    if there is None:
        folder.children.append(item)
        return item
    if item.is_continued:
        there.content += item.content
    elif there.is_folder and item.is_folder:
        there.stated = there.stated or item.stated
        there.date = there.date or item.date
    else:
        raise Mistake(f"there are two of {item.name.decode()}")
    return there


def put_line(text, folder):
    """Adds the items of a line to a folder. The name can be a path."""
    path = text.split(" -> ")[0].split(" | ")[0].removesuffix("/")
    for name in path.split("/")[:-1]:
        folder = put(Item(name_bytes(name), is_folder=True), folder)
    rest = text[path.rfind("/") + 1:]
    return [put(item, folder) for item in parse_line(rest)]


def parse(path):
    """The description as one folder without a name."""
    root = Item(b"", is_folder=True)
    levels = [[root]]  # for each depth, the items that contain the following lines
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        text = line.strip()
        if not text or text.startswith("#"):
            continue
        depth = (len(line) - len(line.lstrip())) // 2
        try:
            if depth >= len(levels):
                raise Mistake("nothing to lie inside of")
            del levels[depth + 1:]
            added = []
            for parent in levels[depth]:
                for each in linux_apps.lines(text) or [text]:
                    added += put_line(each, parent)
        except Mistake as mistake:
            raise SystemExit(f"{path.name}:{number}: {mistake}") from mistake
        levels.append([item for item in added if item.is_folder])
    return root


def resolve(folder, date):
    """Distributes "the rest" in each folder, checks the required totals, and propagates dates."""
    folder.date = folder.date or date
    for child in folder.children:
        if child.is_folder:
            resolve(child, folder.date)
        child.date = child.date or folder.date
    if not folder.stated:
        return
    takers = [item for item in descendants(folder) if item.takes_rest and not item.size]
    left = max(0, folder.stated - folder.total())
    for item in takers:
        item.size = round(left * item.takes_rest)
    if abs(folder.total() - folder.stated) > folder.stated / 100:
        raise SystemExit(f"{folder.name.decode()} comes to {folder.total()}, not {folder.stated}")


def mark(item, path):
    """Starts every file of a size with its own path, so that contents differ unless described as the same."""
    item.mark = item.mark or path
    for child in item.children:
        mark(child, path + b"/" + child.name)


def descendants(folder):
    for child in folder.children:
        yield child
        if child.is_folder:
            yield from descendants(child)


def description(kind):
    root = parse(HERE / f"{kind}.txt")
    resolve(root, USUAL_DATE)
    mark(root, b"")
    return root


def build(item, path, scale):
    """Creates one item with its contents."""
    if item.link is not None:
        os.symlink(item.link, path)
        return
    if item.is_folder:
        os.mkdir(path, 0o755)
        for child in item.children:
            build(child, os.path.join(path, child.name), scale)
        set_date(path, item.date)
        if item.mode == stat.S_IFDIR:
            os.chmod(path, 0)
        return
    descriptor = os.open(path, os.O_CREAT | os.O_EXCL | os.O_WRONLY, item.mode or 0o644)
    try:
        if item.content is not None:
            os.write(descriptor, item.content)
        elif item.size:
            os.posix_fallocate(descriptor, 0, item.allocated(scale))
            os.write(descriptor, item.mark[:BLOCK])
    finally:
        os.close(descriptor)
    set_date(path, item.date)


def set_date(path, date):
    seconds = int(date.timestamp())
    os.utime(path, (seconds, seconds))


def empty(item, path, paths):
    """Removes the contents of the folders at those paths."""
    if path in paths:
        item.children = []
    for child in item.children:
        empty(child, path + "/" + os.fsdecode(child.name), paths)


def replace_root(kind, folder, scale, left_empty=()):
    """Creates FOLDER/root, replacing an earlier one, and leaves some of its folders empty."""
    wanted = description(kind)
    empty(wanted, "", left_empty)
    os.makedirs(folder, exist_ok=True)
    remove_root(folder)
    folder = os.fsencode(folder)
    with open(os.path.join(folder, MARKER), "wb") as marker:
        marker.write(kind.encode() + b"\n")
    build(wanted, os.path.join(folder, b"root"), scale)


def remove_root(folder):
    """Deletes FOLDER/root if it exists. Exits with an error if this program did not create it."""
    folder = os.fsencode(folder)
    root = os.path.join(folder, b"root")
    if not os.path.lexists(root):
        return
    if not os.path.exists(os.path.join(folder, MARKER)):
        raise SystemExit(f"shaped_root: {os.fsdecode(root)} is there and was not made by this program")
    for parent, folders, _ in os.walk(root):
        for name in folders:
            path = os.path.join(parent, name)
            if not os.path.islink(path):
                os.chmod(path, 0o755)
    shutil.rmtree(root)


def sizes(item, path, scale, result):
    """Every item's allocated bytes, keyed by its path in the root; a folder's are the total of its files."""
    if item.link is not None:
        return 0
    if item.is_folder:
        total = sum(sizes(child, path + b"/" + child.name, scale, result) for child in item.children)
    else:
        total = item.allocated(scale)
    result[path or b"/"] = total
    return total


def all_sizes(kind, scale):
    result = {}
    sizes(description(kind), b"", scale, result)
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=("build", "sizes"))
    parser.add_argument("kind", choices=KINDS)
    parser.add_argument("folder", nargs="?")
    parser.add_argument("--scale", type=int, default=DEFAULT_SCALE, help="what the described sizes are divided by")
    arguments = parser.parse_args()
    if arguments.action == "sizes":
        table = {os.fsdecode(path): size for path, size in all_sizes(arguments.kind, arguments.scale).items()}
        json.dump(table, sys.stdout, indent=1, ensure_ascii=True)
        print()
    elif not arguments.folder:
        parser.error("build needs a folder")
    else:
        replace_root(arguments.kind, arguments.folder, arguments.scale)


if __name__ == "__main__":
    main()
