#!/usr/bin/env python3
"""The check of symbols and that of installed headers find what they should, and pass what is right.

Usage: check_the_checks.py CXX NM
"""

import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).parent
CXX, NM = sys.argv[1], sys.argv[2]
EXPORT = '__attribute__((visibility("default")))'
HEADER = """#pragma once
#define DEPTH_EXPORT __attribute__((visibility("default")))
namespace Kel {
class DEPTH_EXPORT Offered
{
public:
    virtual ~Offered();
};
DEPTH_EXPORT int offered(int number);
} // namespace Kel
"""
SOURCE = """#include "a.h"
#include <string>
#include <vector>
namespace Kel {
Offered::~Offered() = default;
std::vector<std::string> inner;
%s
} // namespace Kel
%s
"""
OFFERED = "int offered(int number) { inner.emplace_back(); return number; }"

SYMBOL_CASES = [
    ("all is right", OFFERED, "", 0, ""),
    ("a function without a mark", OFFERED + f"{EXPORT} int stray() {{ return 1; }}", "", 1,
     "Kel::stray(): is exported and not marked"),
    ("a class without a mark", OFFERED + f"struct {EXPORT} Stray {{ virtual ~Stray(); }}; Stray::~Stray() = default;", "",
     1, "Kel::Stray::~Stray(): is exported and not marked"),
    ("another's function", OFFERED, f"{EXPORT} int other() {{ return 1; }}", 1, "other(): is exported and not ours"),
    ("a marked function that is not there", "", "", 1, "Kel::offered: is marked and not exported"),
]

HEADER_CASES = [
    ("all is right", ["a/A.h"], {"a/A.h": "class DEPTH_EXPORT A", "a/B.h": "class B"}, 0, ""),
    ("a listed header is missing", ["a/A.h"], {}, 1, "a/A.h: is listed and does not exist"),
    ("one includes a header that is not listed", ["a/A.h"], {"a/A.h": '#include "a/B.h"', "a/B.h": ""}, 1,
     "a/A.h: includes a/B.h, which is not installed"),
    ("one that offers something is not listed", [], {"a/A.h": "class DEPTH_EXPORT A"}, 1,
     "a/A.h: offers something and is not installed"),
    ("feeds and hosts are not asked", [], {"feed/A.h": "class DEPTH_EXPORT A", "host/A.h": "DEPTH_EXPORT"}, 0, ""),
]


def run(*arguments):
    done = subprocess.run([sys.executable, *arguments], capture_output=True, text=True)
    return done.returncode, done.stdout


failed = 0


def expect(name, got, code, text):
    global failed
    if got[0] != code or text not in got[1]:
        print(f"{name}: exit {got[0]}, output {got[1]!r}")
        failed = 1


for name, inside, outside, code, text in SYMBOL_CASES:
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "a.h").write_text(HEADER)
        (root / "a.cpp").write_text(SOURCE % (inside, outside))
        subprocess.run([CXX, "-std=c++17", "-shared", "-fPIC", "-fvisibility=hidden", "a.cpp", "-o", "liba.so"],
                       check=True, cwd=root)
        expect(name, run(HERE / "check_symbols.py", NM, root / "liba.so", root), code, text)

for name, listed, files, code, text in HEADER_CASES:
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "cmake").mkdir()
        (root / "src").mkdir()
        lines = "".join(f"  {header}\n" for header in listed)
        (root / "cmake/PublicHeaders.cmake").write_text(f"set(DEPTH_PUBLIC_HEADERS\n{lines})\n")
        for header, content in files.items():
            (root / "src" / header).parent.mkdir(parents=True, exist_ok=True)
            (root / "src" / header).write_text(content + "\n")
        expect(name, run(HERE / "check_public_headers.py", root), code, text)

sys.exit(failed)
