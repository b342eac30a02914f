#!/usr/bin/env python3
"""Includes go downward only: holds every #include line of src/ and apps/ against who may know whom.

Usage: check_includes.py SOURCE_DIR
Prints each line that breaks a rule as file:line: reason, and exits with 1 if there is one.
"""

import re
import sys
from pathlib import Path

PANELS = ["queue_view", "frame", "thousand", "tick", "holographic", "level_panels", "information"]

# Folder of src/ -> folders it may include besides itself.
ALLOWED = {
    "records": set(),
    "platform": {"records"},
    "queue_engine": {"platform", "records"},
    "feed": {"platform", "records"},
    "host": {"feed", "queue_engine", "platform", "records", *PANELS},
    "apps": {"host", "feed", "queue_engine", "platform", "records", *PANELS},
}
for panel in PANELS:
    ALLOWED[panel] = {"platform", "records"}
ALLOWED["queue_view"].add("queue_engine")

# Folders that must not know a widget.
WITHOUT_WIDGETS = {"records", "queue_engine", "feed"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
WIDGETS = re.compile(r"^(QtWidgets/|QtGui/)|^Q(Widget|Dialog|Painter|Pixmap|Label|Application|MainWindow|Menu|ScrollBar)\b")


def findings(root):
    for top, base in (("src", root / "src"), ("apps", root / "apps")):
        for path in sorted(base.rglob("*")):
            if path.suffix not in {".h", ".cpp"}:
                continue
            layer = "apps" if top == "apps" else path.relative_to(base).parts[0]
            if layer not in ALLOWED:
                yield path, 1, f"folder {layer} has no rule in this check"
                continue
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                target = match.group(2)
                if layer in WITHOUT_WIDGETS and WIDGETS.match(target):
                    yield path, number, f"{layer} includes a widget header, {target}"
                if match.group(1) != '"' or "/" not in target:
                    continue
                other = target.split("/")[0]
                if other in ALLOWED and other != layer and other not in ALLOWED[layer]:
                    yield path, number, f"{layer} includes {target}, which it may not know"


def main():
    root = Path(sys.argv[1])
    found = list(findings(root))
    for path, number, reason in found:
        print(f"{path.relative_to(root)}:{number}: {reason}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
