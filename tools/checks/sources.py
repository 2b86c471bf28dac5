#!/usr/bin/env python3
"""Fails on operating-system code outside the platform folders, on marks of unfinished work, and on files too long."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SYSTEM_TEST = re.compile(r"#\s*(if|ifdef|ifndef|elif).*\b(_WIN32|_WIN64|__linux__|__unix__|__MINGW\w*)\b")
SYSTEM_HEADER = re.compile(r"#\s*include\s*<(windows|windowsx|commctrl|gdiplus|winuser|unistd|sys/|dlfcn|cairo|pango|xcb)")
UNFINISHED = re.compile(r"\b(TO" r"DO|FIX" r"ME|GTEST" r"_SKIP|DISABLED" r"_\w+)\b")
MOST_LINES = 1000


def sources():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", "*.h", "*.cpp", "*.c", "*.inc"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    return [pathlib.Path(name) for name in listed if (ROOT / name).is_file()]


def main():
    faults = []
    for name in sources():
        lines = (ROOT / name).read_text().splitlines()
        in_module = name.parts[0] == "src" and name.parts[1] != "platform"
        if len(lines) > MOST_LINES:
            faults.append(f"{name}: {len(lines)} lines; no source has more than {MOST_LINES}")
        for number, line in enumerate(lines, 1):
            if in_module and (SYSTEM_TEST.search(line) or SYSTEM_HEADER.search(line)):
                faults.append(f"{name}:{number}: operating-system code belongs in src/platform")
            if UNFINISHED.search(line):
                faults.append(f"{name}:{number}: finish this or take it out")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
