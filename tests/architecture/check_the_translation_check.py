#!/usr/bin/env python3
"""The check of translations finds what is missing, goes past it or is left over, and passes a clean tree."""

import subprocess
import sys
import tempfile
from pathlib import Path

CHECK = Path(__file__).with_name("check_translations.py")
FILE = "src/host/window/language/terminal_en.ts"


def english(*pairs):
    rows = "".join(f"<message><source>{a}</source><translation>{b}</translation></message>" for a, b in pairs)
    return f"<TS><context><name>terminal</name>{rows}</context></TS>"


def run(files):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        for name, text in files.items():
            path = root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True)
        return done.returncode, done.stdout


PLAY = english(("播放", "Play"))
SOURCE = "src/host/window/a/A.cpp"
CASES = [
    ("clean", {SOURCE: '// "注释"\nuiText("播放"); uiText("plain");', FILE: PLAY}, 0, ""),
    ("missing", {SOURCE: 'uiText("播放");\nuiText("停");', FILE: PLAY}, 1, "A.cpp:2: '停' has no English"),
    ("in a table", {SOURCE: 'const char* a[] = {"停"};\nuiText("播放");', FILE: PLAY}, 1, "A.cpp:1: '停'"),
    ("past it", {SOURCE: 'QStringLiteral("播放")', FILE: PLAY}, 1, "A.cpp:1: '播放' does not go through uiText"),
    ("in two parts", {SOURCE: 'uiText("播"\n   "放")', FILE: PLAY}, 0, ""),
    ("columns", {SOURCE: 'uiText("播放"); fixedTable({QStringLiteral("价")}, f(x))', FILE: PLAY}, 0, ""),
    ("after columns", {SOURCE: 'uiText("播放"); fixedTable(f(x)); QStringLiteral("价")', FILE: PLAY}, 1, "'价' does not go"),
    ("left over", {SOURCE: "", FILE: PLAY}, 1, "no source has '播放'"),
    ("empty", {SOURCE: 'uiText("播放")', FILE: english(("播放", ""))}, 1, "'播放' has no English text"),
    ("Chinese", {SOURCE: 'uiText("播放")', FILE: english(("播放", "Play（空格）"))}, 1, "'播放' has no English text"),
    ("values", {SOURCE: 'uiText("已%1")', FILE: english(("已%1", "Done"))}, 1, "other places for values"),
]

failed = 0
for name, files, code, expected in CASES:
    got, text = run(files)
    if got != code or expected not in text:
        print(f"{name}: exit {got}, output {text!r}")
        failed = 1
sys.exit(failed)
