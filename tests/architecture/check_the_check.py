#!/usr/bin/env python3
"""The include check finds an upward include, a sideways one and a widget, and passes a clean tree."""

import subprocess
import sys
import tempfile
from pathlib import Path

CHECK = Path(__file__).with_name("check_includes.py")


def run(files):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "src").mkdir()
        (root / "apps").mkdir()
        for name, text in files.items():
            path = root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        done = subprocess.run([sys.executable, CHECK, root], capture_output=True, text=True)
        return done.returncode, done.stdout


CASES = [
    ("clean", {"src/feed/A.h": '#include "records/B.h"\n#include <QString>\n'}, 0, ""),
    ("upward", {"src/records/A.h": '#include "platform/B.h"\n'}, 1, "src/records/A.h:1:"),
    ("engine into feed", {"src/feed/A.h": '\n#include "queue_engine/B.h"\n'}, 1, "src/feed/A.h:2:"),
    ("panel into panel", {"src/tick/A.h": '#include "thousand/B.h"\n'}, 1, "src/tick/A.h:1:"),
    ("widget in the feed", {"src/feed/A.h": "#include <QWidget>\n"}, 1, "src/feed/A.h:1:"),
    ("unknown folder", {"src/misc/A.h": ""}, 1, "src/misc/A.h:1:"),
]

failed = 0
for name, files, code, expected in CASES:
    got, text = run(files)
    if got != code or expected not in text:
        print(f"{name}: exit {got}, output {text!r}")
        failed = 1
sys.exit(failed)
