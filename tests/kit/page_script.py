#!/usr/bin/env python3
"""Turns a page of the documentation into a shell script: page_script.py PAGE >SCRIPT

What a reader would do, in order: blocks marked "sh" are commands; a block marked "KIND FILE" is that file; "diff FILE" is a
change of it. Any other block with a kind is a part of some file of the folder, and has to stand in one. Blocks without a kind
are for reading only.
"""
import pathlib
import re
import sys

BLOCK = re.compile(r"^```(\w+)(?: (\S+))?\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def here(command, text):
    return f"{command} <<'END_OF_BLOCK'\n{text}END_OF_BLOCK\n"


def step(kind, name, text):
    if kind == "sh":
        return text
    if kind == "diff":
        return here(f"patch {name} -", text)
    if name:
        return here(f"cat >{name}", text)
    return here("python3 -c 'import pathlib, sys; part = sys.stdin.read(); "
                'sys.exit(not any(part in file.read_text(errors="replace") for file in pathlib.Path().glob("*.*")))\'', text)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    page = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    print("set -eux")
    for block in BLOCK.findall(page):
        print(step(*block), end="")
