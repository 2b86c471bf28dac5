#!/usr/bin/env python3
"""Fails when docs/architecture.md doesn't name a folder that holds sources: those of the top, and of src/ each layer with
its sub-folders."""

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SYSTEMS = ("linux", "win32")
NOT_SOURCES = ("docs", ".ci", "cmake")


def main():
    page = (ROOT / "docs/architecture.md").read_text()
    rows = [line for line in page.splitlines() if line.startswith("|")]
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, capture_output=True, text=True,
                            check=True).stdout.split("\n")
    faults = set()
    for name in listed:
        folders = pathlib.PurePosixPath(name).parts[:-1]
        if not folders or folders[0] in NOT_SOURCES:
            continue
        top = f"`{folders[0]}/"
        if not any(top in row for row in rows):
            faults.add(f"docs/architecture.md doesn't name {folders[0]}/")
        if folders[0] != "src" or len(folders) < 2:
            continue
        row = next((row for row in rows if row.startswith(f"| `src/{folders[1]}/` ")), None)
        if row is None:
            faults.add(f"docs/architecture.md has no row for src/{folders[1]}/")
        elif len(folders) > 2 and folders[2] not in SYSTEMS and f"{folders[2]}/" not in row:
            faults.add(f"docs/architecture.md doesn't name src/{folders[1]}/{folders[2]}/")
    print("\n".join(sorted(faults)), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
