#!/usr/bin/env python3
"""Fails when a header doesn't compile alone, or one of the protocol isn't C11.

A header that its own source includes first is compiled alone by every build; the others are compiled here. Headers of a
system that isn't this one are left to that system's build."""

import concurrent.futures
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]', re.MULTILINE)
ROOTS = ("src", "include", "host", "tools", "tests")
PACKAGES = ("cairo", "pango", "pangocairo", "freetype2", "harfbuzz", "fontconfig", "xcb")
# Need compiler options of their own, as their sources have.
OPTIONS = {"avx2": ["-mavx2"], "avx512": ["-mavx512f", "-mavx512bw", "-mavx512dq", "-mavx512vl", "-mavx512vbmi"]}


def proven(header):
    """Whether the header's own source begins with it."""
    source = header.with_suffix(".cpp")
    if not source.exists():
        return False
    first = INCLUDE.search(source.read_text())
    return first is not None and header.name == pathlib.PurePosixPath(first.group(1)).name


def packages():
    found = [name for name in PACKAGES if subprocess.run(["pkg-config", "--exists", name]).returncode == 0]
    return subprocess.run(["pkg-config", "--cflags", *found], capture_output=True, text=True).stdout.split() if found else []


def fault(header, flags):
    command = ["g++", "-std=c++20", "-Wall", "-Wextra", "-Werror", "-Wno-unused", "-x", "c++", *flags]
    for folder, options in OPTIONS.items():
        command += options if folder in header.parts else []
    command += ["-fsyntax-only", "-"]
    done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, input=f'#include "{header}"\n')
    return f"{header.relative_to(ROOT)} doesn't compile alone:\n{done.stderr}" if done.returncode else None


def protocol_faults():
    for header in sorted((ROOT / "include").rglob("*.h")):
        done = subprocess.run(["gcc", "-std=c11", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only", "-x", "c",
                               str(header)], capture_output=True, text=True)
        if done.returncode:
            yield f"{header.relative_to(ROOT)} is no C11:\n{done.stderr}"


def main():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", *[f"{root}/*.h" for root in ROOTS]],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    headers = [ROOT / name for name in listed if "win32" not in pathlib.PurePosixPath(name).parts]
    flags = [f"-I{ROOT / root}" for root in ROOTS] + ["-isystem", "/usr/src/googletest/googletest/include", "-isystem",
                                                      "/usr/src/googletest/googlemock/include"] + packages()
    faults = list(protocol_faults())
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        faults += [found for found in pool.map(lambda header: fault(header, flags),
                                               [header for header in headers if not proven(header)]) if found]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
