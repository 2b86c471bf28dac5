#!/usr/bin/env python3
"""Fails when something tells another version than the project() line of CMakeLists.txt: the newest entry of CHANGELOG.md, the
property list, the kits that examples and pages ask for, the packages that a page names."""

import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


def faults():
    version = re.search(r"^project\(Sidecar VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE).group(1)
    newest = re.search(r"^## (\S+)", (ROOT / "CHANGELOG.md").read_text(), re.MULTILINE).group(1)
    if newest != version:
        yield f"CHANGELOG.md begins with {newest}, but this is {version}"
    for row in json.loads((ROOT / "resources/tagl.json").read_text())["Tagls"]:
        told = ".".join(str(row[f"ComponentVersion{part}Num"]) for part in ("Short", "MinorRev", "DotRev"))
        if told != version:
            yield f"resources/tagl.json tells {told} of {row['Name']}, but this is {version}"
    major = version.split(".")[0]
    for file in (*ROOT.glob("examples/*/CMakeLists.txt"), *ROOT.glob("docs/write-a-*.md")):
        text = file.read_text()
        for asked in re.findall(r"find_package\(Sidecar (\d+)", text):
            if asked != major:
                yield f"{file.relative_to(ROOT)} asks for Sidecar {asked}, but this is {version}"
        for named in re.findall(r"sidecar(?:-dev)?[_-](\d+\.\d+\.\d+)", text):
            if named != version:
                yield f"{file.relative_to(ROOT)} names a package of {named}, but this is {version}"


if __name__ == "__main__":
    found = list(faults())
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)
