#!/usr/bin/env python3
"""Writes the C++ of a page as a source: extract_examples.py PAGE SOURCE

Takes all blocks between ```cpp and ```, one after the other. Messages of the compiler name the page's own lines.
"""
import pathlib
import sys


def cpp_of(page):
    inside = False
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("```"):
            inside = line == "```cpp"
            if inside:
                yield f'#line {number + 1} "{page.as_posix()}"'
        elif inside:
            yield line


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    page, source = map(pathlib.Path, sys.argv[1:])
    source.write_text("\n".join(cpp_of(page)) + "\n", encoding="utf-8")
