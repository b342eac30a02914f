#!/usr/bin/env python3
"""Every Chinese text of the terminal's window has its English one.

Usage: check_translations.py SOURCE_DIR
The sources of src/host/window have their texts in Chinese, as plain literals that reach the screen through `uiText`. A
Chinese text in a literal that goes past it, such as QStringLiteral, would stay Chinese whatever the language. Columns of
exported tables do: they are named as the panels name them. Prints each fault as file:line: reason, or the text of a file
of translations that no source has, and exits with 1 if there is one.
"""

import re
import sys
import xml.etree.ElementTree as xml
from pathlib import Path

CHINESE = re.compile(r"[\u3000-\u303f\u4e00-\u9fff\uff00-\uffef]")
# A comment, a character, or a literal with what stands before it; parts that stand one after another are one text.
PIECES = re.compile(
    r"(?P<comment>//[^\n]*|/\*.*?\*/)|(?P<character>'(?:\\.|[^'\\])+')|(?P<raw>R\"\(.*?\)\")"
    r"|(?P<past>(?:QStringLiteral|QLatin1String|QString::fromUtf8|QString|tr)\(\s*|\bu)?"
    r"(?P<text>\"(?:\\.|[^\"\\\n])*\"(?:\s*\"(?:\\.|[^\"\\\n])*\")*)",
    re.S,
)
PART = re.compile(r"\"((?:\\.|[^\"\\\n])*)\"")
TABLE = re.compile(r"\bfixedTable\(")
# The name of a language for itself.
AS_IT_IS = {"中文"}


def unescaped(text):
    return text.replace('\\"', '"').replace("\\n", "\n").replace("\\\\", "\\")


def table_spans(source):
    for start in TABLE.finditer(source):
        depth, place = 1, start.end()
        while depth and place < len(source):
            depth += {"(": 1, ")": -1}.get(source[place], 0)
            place += 1
        yield start.end(), place


def literals(source):
    """Offset, text, and whether it goes past `uiText`, of each Chinese literal."""
    tables = list(table_spans(source))
    for piece in PIECES.finditer(source):
        if piece["text"] is None:
            continue
        text = unescaped("".join(PART.findall(piece["text"])))
        if not CHINESE.search(text) or text in AS_IT_IS:
            continue
        if any(begin <= piece.start() < end for begin, end in tables):
            continue
        yield piece.start("text"), text, piece["past"] is not None


def translations(file):
    texts = {}
    for message in xml.parse(file).iter("message"):
        texts[message.findtext("source")] = message.findtext("translation") or ""
    return texts


def findings(root):
    window = root / "src/host/window"
    file = window / "language/terminal_en.ts"
    english = translations(file)
    used = set()
    for path in sorted(window.rglob("*")):
        if path.suffix not in {".h", ".cpp"} or path.parent.name == "tables":
            continue
        source = path.read_text(encoding="utf-8")
        for offset, text, past in literals(source):
            place = f"{path.relative_to(root)}:{source.count(chr(10), 0, offset) + 1}"
            used.add(text)
            if past:
                yield f"{place}: {text!r} does not go through uiText"
            elif text not in english:
                yield f"{place}: {text!r} has no English text in {file.name}"
    for text, translation in english.items():
        place = file.relative_to(root)
        if text not in used:
            yield f"{place}: no source has {text!r}"
        if not translation or CHINESE.search(translation):
            yield f"{place}: {text!r} has no English text"
        if sorted(re.findall(r"%\d", text)) != sorted(re.findall(r"%\d", translation)):
            yield f"{place}: {text!r} has other places for values in English"


def main():
    found = list(findings(Path(sys.argv[1])))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
