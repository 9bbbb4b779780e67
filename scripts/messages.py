#!/usr/bin/env python3
"""Prints the user-visible texts in src/ as PATH:LINE: TEXT, to proofread them or to find the source of a sentence.
messages.py [--find TEXT] [FOLDER]

With --find, only the texts that TEXT is a part of, and those that make up TEXT or a part of it: TEXT may be copied from
the window, with its figures and names. The longest match comes first. If even that is less than half of TEXT, standard
error says so; exit status 1 says that there is none.

In QML a text is the argument of qsTr(). In C++ it is a string literal of several words, or of one capitalised word, or
one combined with a count; paths, keys and the like are recognised by their shape and skipped, but a few remain.
Adjacent literals are one text. A sentence that is assembled at run time is listed in pieces.
"""
import argparse
import os
import pathlib
import re
import signal
import sys

SUFFIXES = {".h", ".cpp", ".mm", ".qml"}
# Also matches comments, preprocessor lines and character literals, so that a quotation mark in them does not start a
# string.
TOKEN = re.compile(
    r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|'(?:[^'\\\n]|\\.)+'"
    r'|R"(?P<mark>\w*)\((?P<raw>.*?)\)(?P=mark)"|"(?P<plain>(?:[^"\\\n]|\\.)*)"', re.S | re.M)
JOINED = re.compile(r"\s*(?:\+\s*)?")
TRANSLATED = re.compile(r"\bqsTr\(\s*$")
COUNTED = re.compile(r"\b(?:formatCount|countText|plural)\([^;{}]*$")
FOR_DEVELOPERS = re.compile(r"\b(?:static_assert|QML_UNCREATABLE|qFatal)\([^;]*$")
# Placeholders of fmt, Qt and printf, and escaped characters.
REPLACED = re.compile(r"\{[^{}]*\}|%(?:L?\d+|[a-z])|\\.")
LETTER = re.compile(r"[^\W\d_]")
SEVERAL_WORDS = re.compile(r"\S\s+\S|^\s|\s$")
ONE_WORD = re.compile(r"(?:[A-Z][a-z]+|OK)(?:…|:)?")
PATH_OR_MARKUP = re.compile(r"[\w.~-]*/\S|[<@]")


def literals(source):
    """The literals of a source as (offset, text), with adjacent ones joined."""
    found, end = [], None
    for token in TOKEN.finditer(source):
        text = token["raw"] if token["plain"] is None else token["plain"]
        if text is None:
            continue
        if end is not None and JOINED.fullmatch(source, end, token.start()):
            found[-1] = (found[-1][0], found[-1][1] + text)
        else:
            found.append((token.start(), text))
        end = token.end()
    return found


def is_message(text, before):
    """Whether a C++ literal is user-visible; `before` is the code before it."""
    words = REPLACED.sub("", text)
    if not LETTER.search(words) or FOR_DEVELOPERS.search(before):
        return False
    if SEVERAL_WORDS.search(text):
        return not PATH_OR_MARKUP.match(text)
    return bool(ONE_WORD.fullmatch(text) or COUNTED.search(before))


def messages(source, is_qml):
    """The user-visible texts of a source, as (line, text)."""
    for offset, text in literals(source):
        before = source[max(0, offset - 200):offset]
        if TRANSLATED.search(before) if is_qml else is_message(text, before):
            yield source.count("\n", 0, offset) + 1, text


def likeness(text, wanted):
    """How many characters of a text of the window are in a text of the sources; 0 if it is another text."""
    pieces = [re.sub(r"\s+", " ", piece) for piece in REPLACED.split(text.replace('\\"', '"').strip())]
    wanted = re.sub(r"\s+", " ", wanted.strip())
    if any(wanted.casefold() in piece.casefold() for piece in pieces):
        return len(wanted)
    fixed = sum(len(piece.strip()) for piece in pieces)
    if fixed >= 4 and re.fullmatch(".+?".join(map(re.escape, pieces)), wanted, re.I):
        return fixed
    # A shorter one, such as "items", is in many texts.
    if fixed < max(8, len(wanted) / 4) or not re.search(".*?".join(map(re.escape, pieces)), wanted, re.I):
        return 0
    return fixed


def is_only_a_part(text, wanted):
    """Whether a text that was found is less than half of the sentence, which may well be another one then."""
    return 2 * likeness(text, wanted) < sum(map(len, re.findall(r"[^\W\d]+", wanted)))


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # a reader such as head may close the pipe early
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--find", metavar="TEXT", help="only the sources of this text")
    parser.add_argument("folder", nargs="?", type=pathlib.Path, metavar="FOLDER",
                        default=pathlib.Path(__file__).resolve().parents[1] / "src")
    arguments = parser.parse_args()
    found = [(os.path.relpath(path), line, text)
             for path in sorted(path for path in arguments.folder.rglob("*") if path.suffix in SUFFIXES)
             for line, text in messages(path.read_text(), path.suffix == ".qml")]
    if arguments.find is not None:
        found = [each for each in found if likeness(each[2], arguments.find)]
        found.sort(key=lambda each: (-likeness(each[2], arguments.find), len(each[2])))
        if found and is_only_a_part(found[0][2], arguments.find):
            print("messages: only parts of it are found:", file=sys.stderr)
    for path, line, text in found:
        print(f"{path}:{line}: {text}")
    return 0 if found else 1


if __name__ == "__main__":
    sys.exit(main())
