#!/usr/bin/env python3
"""Holds the list of installed headers against the headers themselves.

Usage: check_public_headers.py SOURCE_DIR
Prints what is wrong, a line each, and exits with 1 if there is something: a listed header that is not there, one that
includes a header of ours that is not listed, and one with DEPTH_EXPORT that is not listed.
"""

import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
NOT_IN_THE_LIBRARY = {"feed", "host"}


def findings(root):
    text = (root / "cmake/PublicHeaders.cmake").read_text(encoding="utf-8")
    listed = set(re.findall(r"^\s+(\S+\.h)$", text, re.MULTILINE))
    for name in sorted(listed):
        path = root / "src" / name
        if not path.exists():
            yield f"{name}: is listed and does not exist"
            continue
        for target in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if target not in listed:
                yield f"{name}: includes {target}, which is not installed"
    for path in sorted((root / "src").rglob("*.h")):
        name = str(path.relative_to(root / "src"))
        if name.split("/")[0] in NOT_IN_THE_LIBRARY or name in listed:
            continue
        if "DEPTH_EXPORT" in path.read_text(encoding="utf-8"):
            yield f"{name}: offers something and is not installed"


def main():
    found = list(findings(Path(sys.argv[1])))
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
