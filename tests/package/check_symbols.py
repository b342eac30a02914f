#!/usr/bin/env python3
"""Holds what a shared library exports against what the headers mark with DEPTH_EXPORT.

Usage: check_symbols.py NM LIBRARY SOURCE_DIR
Prints what is wrong, a line each, and exits with 1 if there is something: an exported symbol of a class or function that
is not marked, and a marked function that is not exported. Instances of other libraries' templates, which every program
makes for itself (weak symbols outside of our namespaces), are let be.
"""

import re
import subprocess
import sys
from pathlib import Path

NAMESPACE = re.compile(r"^namespace ([\w:]+) \{")
MARKED_CLASS = re.compile(r"^(?:class|struct) DEPTH_EXPORT (\w+)")
MARKED_FUNCTION = re.compile(r"^DEPTH_EXPORT [\w:<>,*& ]*?(\w+)\(")
# What stands before the name of a class or function in a demangled symbol.
OF_A_CLASS = re.compile(r"^(?:vtable for |typeinfo for |typeinfo name for |VTT for |guard variable for "
                        r"|non-virtual thunk to |virtual thunk to |covariant return thunk to )+")
# Every linker puts these in.
LINKER = {"__bss_start", "_edata", "_end", "_init", "_fini"}


def marked_names(source):
    classes, functions = set(), set()
    for path in source.rglob("*.h"):
        namespace = ""
        for line in path.read_text(encoding="utf-8").splitlines():
            if match := NAMESPACE.match(line):
                namespace = match.group(1)
            elif match := MARKED_CLASS.match(line):
                classes.add(f"{namespace}::{match.group(1)}")
            elif match := MARKED_FUNCTION.match(line):
                functions.add(f"{namespace}::{match.group(1)}")
    return classes, functions


def exported(nm, library):
    """Pairs of nm's letter and the demangled name."""
    lines = subprocess.run([nm, "--dynamic", "--demangle", "--defined-only", library],
                           check=True, capture_output=True, text=True).stdout.splitlines()
    for line in lines:
        _, kind, name = line.split(" ", 2)
        yield kind, name


def strip_return_type(name):
    """Instances of function templates are shown with their return type in front."""
    depth = 0
    for index, char in enumerate(name):
        if char in "<(":
            depth += 1
        elif char in ">)":
            depth -= 1
        elif char == " " and depth == 0:
            rest = name[index + 1:]
            return rest if re.match(r"[\w:~]+[<(]", rest) and "operator" not in name[:index] else name
    return name


def main():
    nm, library, source = sys.argv[1], sys.argv[2], Path(sys.argv[3])
    classes, functions = marked_names(source)
    namespaces = {name.split("::")[0] for name in classes | functions}
    found, seen = [], set()
    for kind, shown in exported(nm, library):
        if shown in LINKER:
            continue
        name = strip_return_type(OF_A_CLASS.sub("", shown))
        path = re.split(r"[<(\[ ]", name, maxsplit=1)[0]
        if path.split("::")[0] not in namespaces:
            if kind not in "WVuvw":
                found.append(f"{shown}: is exported and not ours")
            continue
        parts = path.split("::")
        owners = {"::".join(parts[:count]) for count in range(1, len(parts) + 1)}
        if owners & classes:
            continue
        if path in functions:
            seen.add(path)
            continue
        found.append(f"{shown}: is exported and not marked")
    found += [f"{name}: is marked and not exported" for name in sorted(functions - seen)]
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
