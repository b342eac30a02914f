#!/usr/bin/env python3
"""Makes the man page of a program, compressed, from what it prints for --help.

    make_man_page.py PROGRAM OUTPUT.1.gz

The texts are those of the program, so the page cannot fall behind it.
"""
import gzip
import re
import subprocess
import sys
from pathlib import Path

EXIT_STATUS = {
    "depth": [
        ("0", "Done."),
        ("1", "A verification found mismatches."),
        ("2", "An error, which is one line on the standard error."),
    ],
    "depth-terminal": [
        ("0", "Done."),
        ("2", "An error, which is one line on the standard error: a day that cannot be loaded, no display."),
    ],
}
LONGEST_CHOICES = 60  # characters of a list that stand in the place of an option's value
SEE_ALSO = {"depth": "depth-terminal", "depth-terminal": "depth"}


def help_of(command):
    return subprocess.run([*command, "--help"], check=True, capture_output=True, text=True).stdout


def roff(text):
    """Text that means itself: no escapes, no leading dots, hyphens that can be searched for."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text[:1] in (".", "'") else text


def sections(help_text):
    """The introduction and usage, then each list of options with its heading: (heading, notes, entries)."""
    introduction, found, entries, notes = [], [], None, None
    for line in help_text.splitlines():
        text = line.strip()
        heading = re.fullmatch(r"\[Option Group: (.+)\]|(\w[\w ]*):", text)
        if heading and heading[2] == "Options" and found and found[-1][0].startswith("Group ") and not entries:
            continue  # the list of the group itself
        if heading:
            entries, notes = [], []
            found.append((f"Group {heading[1]}" if heading[1] else heading[2], notes, entries))
        elif not text:
            continue
        elif entries is None:
            introduction.append(text)
        elif found[-1][0].startswith("Group ") and not text.startswith("-"):
            if entries:
                add_text(entries, text)
            elif not text.startswith("["):
                notes.append(text)
        elif found[-1][0] == "Layouts":
            name, _, description = text.partition(": ")
            entries.append([name, description])
        elif re.match(r"^ {2,4}\S", line):
            name, *description = re.split(r" {2,}|(?<=\])(?: Needs: \S+)? *$", text, maxsplit=1)
            entries.append([name, (description[0] or "").strip() if description else ""])
        else:
            add_text(entries, text)
    return introduction, found


def add_text(entries, text):
    entries[-1][1] = f"{entries[-1][1]} {text}".strip()


def readable(name):
    """An option without what only the program's checks need: "N:NONNEGATIVE" is N, "TEXT:{a,b}" is a|b."""
    name = re.sub(r"[\w,.]+:\{([^}]*)\}", lambda found: found[1].replace(",", "|"), name)
    return re.sub(r":[A-Z]{3,}( in \[[^]]*\])?| REQUIRED| x \d+$", "", name)


def list_of(entries):
    lines = []
    for name, description in entries:
        choices = re.search(r"\w+:\{([^}]*)\}", name)
        if choices and len(choices[1]) > LONGEST_CHOICES:
            name = name.replace(choices[0], "NAME")
            description += ": " + choices[1].replace(",", ", ")
        lines += [".TP", f".B {roff(readable(name))}", roff(description) or "\\&"]
    return lines


def options_of(help_text):
    lines = []
    for heading, notes, entries in sections(help_text)[1]:
        if heading == "Subcommands":
            continue
        if heading != "Options":
            lines += [".PP", *[roff(note) for note in notes]]
            if not notes:
                lines.append(roff(heading) + ":")
        lines += list_of(entries)
    return lines


def page(program):
    name = Path(program).name
    version = subprocess.run([program, "--version"], check=True, capture_output=True, text=True).stdout.strip()
    text = help_of([program])
    introduction, found = sections(text)
    about = [line for line in introduction if not line.startswith("Usage:")]
    usage = next(line for line in introduction if line.startswith("Usage:")).removeprefix("Usage:").strip()
    short = {"depth": "trading days as archives: simulate, import, show, verify",
             "depth-terminal": "replay trading days with all depth panels"}[name]
    lines = [f'.TH {name.upper()} 1 "" "{version}"', ".ad l", ".nh", ".SH NAME", f"{roff(name)} \\- {roff(short)}",
             ".SH SYNOPSIS", f".B {roff(usage)}", ".SH DESCRIPTION", *map(roff, about)]
    lines += [".SH OPTIONS", *options_of(text)]
    for heading, _, entries in found:
        if heading != "Subcommands":
            continue
        lines.append(".SH COMMANDS")
        for command, description in entries:
            lines += [f".SS {roff(command)}", roff(description) + ".", *options_of(help_of([program, command]))]
    lines.append(".SH EXIT STATUS")
    lines += list_of(EXIT_STATUS[name])
    lines += [".SH SEE ALSO", f".BR {roff(SEE_ALSO[name])} (1)"]
    return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    # Without a time in it, so that the same program gives the same file.
    Path(sys.argv[2]).write_bytes(gzip.compress(page(sys.argv[1]).encode("utf-8"), mtime=0))


main()
