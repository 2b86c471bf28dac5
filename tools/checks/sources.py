#!/usr/bin/env python3
"""Fails on operating-system code outside the platform folders, on marks of unfinished work, on files, headers and
functions that are too long, on lines of more than 100 columns unless they are laid out by hand, on loops of tests that
don't say which row failed, and on tests whose includes begin anywhere but at a root."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SYSTEM_TEST = re.compile(r"#\s*(if|ifdef|ifndef|elif).*\b(_WIN32|_WIN64|__linux__|__unix__|__MINGW\w*)\b")
SYSTEM_HEADER = re.compile(r"#\s*include\s*<(windows|windowsx|commctrl|gdiplus|winuser|unistd|sys/|dlfcn|cairo|pango|xcb)")
UNFINISHED = re.compile(r"\b(TO" r"DO|FIX" r"ME|GTEST" r"_SKIP|DISABLED" r"_\w+)\b")
MOST_LINES = 1000
MOST_HEADER_LINES = 300
MOST_FUNCTION_LINES = 60
MOST_COLUMNS = 100
# Longer than the rest, each for the reason at its head.
LONG_HEADERS = {
    "include/lumograph/records.h": "the offset of every field is asserted",
    "src/view/tree/view.h": "one class, in the groups of its operations",
    "src/view/window/window.h": "one class, in the groups of its operations",
}
LONG_FUNCTIONS = {
    "tests/layout/placement_test.cpp": "a table of cases",
    "tests/pixels/kernels/twins_test.cpp": "a table of cases",
    "tests/platform/graphics/canvas_test.cpp": "a table of cases",
}
ASSERTION = re.compile(r"\b(EXPECT|ASSERT)_\w+\(")
NAMED = re.compile(r"SCOPED_TRACE|<<")
INCLUDE = re.compile(r'^\s*#\s*include "([^"]+)"')
# Where the includes of tests, fuzz targets and benchmarks begin.
TEST_FOLDERS = ("tests", "fuzz", "benchmarks")
INCLUDE_ROOTS = ("tests", "benchmarks", "examples", "src", "include", "host", "tools")
LOOP = re.compile(r"^( *)for \(")


def sources():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", "*.h", "*.cpp", "*.c", "*.inc"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    return [pathlib.Path(name) for name in listed if (ROOT / name).is_file()]


def function_faults(name, lines):
    """A body begins with a brace on a line of its own and ends with the next one as far in."""
    begins = {}
    for number, line in enumerate(lines, 1):
        indent = len(line) - len(line.lstrip())
        if line.strip() == "{":
            begins[indent] = number
        elif line.lstrip().startswith("}") and indent in begins:
            length = number - begins.pop(indent) - 1
            if length > MOST_FUNCTION_LINES and str(name) not in LONG_FUNCTIONS:
                yield f"{name}:{number}: a function of {length} lines; {MOST_FUNCTION_LINES} are the most"


def loop_faults(name, lines):
    """Within a loop that asserts, something must name the row: a trace of the loop, or words of each assertion."""
    for number, line in enumerate(lines, 1):
        match = LOOP.match(line)
        if not match:
            continue
        body = []
        for inner in lines[number:]:
            if inner.strip() and len(inner) - len(inner.lstrip()) <= len(match.group(1)):
                break
            body.append(inner)
        text = "\n".join(body)
        traced = any("SCOPED_TRACE" in before for before in enclosing(lines, number, len(match.group(1))))
        if ASSERTION.search(text) and not NAMED.search(text) and not traced:
            yield f"{name}:{number}: a loop that asserts and doesn't say which row it is at (SCOPED_TRACE)"


def enclosing(lines, number, indent):
    """The lines before `number` that stand in the loops around it."""
    for before in reversed(lines[:number - 1]):
        depth = len(before) - len(before.lstrip())
        if not before.strip():
            continue
        if depth == 0:
            return
        if depth <= indent:
            indent = min(indent, depth)
            yield before


def include_faults(name, lines):
    """An include of a test is a path from a root, so that a reader finds the file without knowing who compiles it."""
    for number, line in enumerate(lines, 1):
        match = INCLUDE.match(line)
        if match and not any((ROOT / root / match.group(1)).is_file() for root in INCLUDE_ROOTS):
            yield f"{name}:{number}: include it by its path from {', '.join(INCLUDE_ROOTS)}: {match.group(1)}"


def column_faults(name, lines):
    by_hand = False
    for number, line in enumerate(lines, 1):
        if "clang-format off" in line or "clang-format on" in line:
            by_hand = "off" in line
        if len(line) > MOST_COLUMNS and not by_hand:
            yield f"{name}:{number}: {len(line)} columns; {MOST_COLUMNS} are the most"


def main():
    faults = []
    for name in sources():
        lines = (ROOT / name).read_text().splitlines()
        in_module = name.parts[0] == "src" and name.parts[1] != "platform"
        if len(lines) > MOST_LINES:
            faults.append(f"{name}: {len(lines)} lines; no source has more than {MOST_LINES}")
        if name.suffix == ".h" and len(lines) > MOST_HEADER_LINES and str(name) not in LONG_HEADERS:
            faults.append(f"{name}: {len(lines)} lines; a header has at most {MOST_HEADER_LINES}")
        faults += function_faults(name, lines)
        faults += column_faults(name, lines)
        if name.parts[0] == "tests":
            faults += loop_faults(name, lines)
        if name.parts[0] in TEST_FOLDERS:
            faults += include_faults(name, lines)
        for number, line in enumerate(lines, 1):
            if in_module and (SYSTEM_TEST.search(line) or SYSTEM_HEADER.search(line)):
                faults.append(f"{name}:{number}: operating-system code belongs in src/platform")
            if UNFINISHED.search(line):
                faults.append(f"{name}:{number}: finish this or take it out")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
