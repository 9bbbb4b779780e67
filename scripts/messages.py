#!/usr/bin/env python3
"""Prints the user-visible texts in src/ as PATH:LINE: TEXT, to proofread them or to find the source of a sentence.
messages.py [FOLDER]

In QML a text is the argument of qsTr(). In C++ it is a string literal of several words, or of one capitalised word, or
one combined with a count; paths, keys and the like are recognised by their shape and skipped, but a few remain.
Adjacent literals are one text. A sentence that is assembled at run time is listed in pieces.
"""
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


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # a reader such as head may close the pipe early
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parents[1] / "src"
    for path in sorted(path for path in folder.rglob("*") if path.suffix in SUFFIXES):
        for line, text in messages(path.read_text(), path.suffix == ".qml"):
            print(f"{os.path.relpath(path)}:{line}: {text}")


if __name__ == "__main__":
    main()
