#!/usr/bin/env python3
"""Fails when cmake/public_headers.list names a header that isn't there, or one that includes a header it doesn't name."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIST = ROOT / "cmake/public_headers.list"
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def public_headers():
    """Their paths from src/. A line that begins with blanks goes on with the folder before it."""
    folder = ""
    for line in LIST.read_text().splitlines():
        if line.startswith("#"):
            continue
        name, colon, rest = line.partition(":")
        if colon:
            folder = name
        for header in (rest if colon else line).split():
            yield f"{folder}/{header}"


def faults():
    public = set(public_headers())
    for name in sorted(public):
        header = ROOT / "src" / name
        if not header.is_file():
            yield f"cmake/public_headers.list names {name}, which isn't there"
            continue
        for included in INCLUDE.findall(header.read_text()):
            if included not in public and not included.startswith("lumograph/"):
                yield f"src/{name} is public and includes {included}, which isn't: name it in cmake/public_headers.list"


if __name__ == "__main__":
    found = list(faults())
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)
