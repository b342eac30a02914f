#!/usr/bin/env python3
"""Holds the man page of a program against what the program prints for --help: each option and each command is in it.

    check_man_page.py MAKER PROGRAM
"""
import gzip
import re
import subprocess
import sys
import tempfile
from pathlib import Path


def help_of(*command):
    return subprocess.run([*command, "--help"], check=True, capture_output=True, text=True).stdout


def main():
    maker, program = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        page = Path(folder) / "page.1.gz"
        subprocess.run([maker, program, page], check=True)
        first = page.read_bytes()
        subprocess.run([maker, program, page], check=True)
        if page.read_bytes() != first:
            sys.exit("two pages of one program differ")
    text = gzip.decompress(first).decode("utf-8").replace("\\-", "-")

    text_of_help = help_of(program)
    commands = re.findall(r"^  (\w+) {2,}\S", text_of_help.partition("\nSubcommands:\n")[2], re.MULTILINE)
    helps = [text_of_help, *[help_of(program, command) for command in commands]]
    options = {option for one in helps for option in re.findall(r"^ +(?:-\w,)?(--[a-z][a-z-]*)", one, re.MULTILINE)}
    if len(options) < 5:
        sys.exit(f"only these options are found in the help: {sorted(options)}")
    missing = [option for option in sorted(options) if not re.search(rf"^\.B .*{option}\b", text, re.MULTILINE)]
    missing += [command for command in commands if f"\n.SS {command}\n" not in text]
    if missing:
        sys.exit(f"not in the page: {missing}")
    for section in ("NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "SEE ALSO"):
        if f"\n.SH {section}\n" not in text:
            sys.exit(f"no section {section}")
    leftovers = re.findall(r"^\.B .*(?::[A-Z]{3,}|:\{).*$", text, re.MULTILINE)
    if leftovers:
        sys.exit(f"not meant for readers: {leftovers}")


main()
