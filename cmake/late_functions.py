#!/usr/bin/env python3
"""Writes the stubs of the functions that an archive takes from shared libraries, so that whoever links the archive loads
these libraries at the first call and not at its start. src/platform/system/linux/late_binding.h has what a stub does.

Usage: late_functions.py --nm NM --readelf READELF --archive ARCHIVE --out SOURCE LIBRARY...

Which functions these are, and which library has each, is read from the files themselves.
"""
import argparse
import pathlib
import re
import subprocess

SOURCE = """\
// Made by late_functions.py: what {archive} calls of other libraries.

#include "platform/system/linux/late_binding.h"

const Platform::LateFunction kLateFunctions[] = {{
{rows}
}};

std::atomic<void*> gLateAddresses[{count}];

asm(R"(
    .text
    .macro late_function name, index
    .weak \\name
    .hidden \\name
    .type \\name, @function
\\name:
    .cfi_startproc
    endbr64
    movq gLateAddresses+8*\\index(%rip), %r11
    testq %r11, %r11
    jz 1f
    jmp *%r11
1:  movl $\\index, %r11d
    jmp CallLateFunction
    .cfi_endproc
    .size \\name, . - \\name
    .endm

{stubs}
)");
"""


def symbols(nm, path, *options):
    """Pairs of name and kind, as nm tells them."""
    lines = subprocess.run([nm, "--format=posix", *options, path], capture_output=True, text=True, check=True).stdout
    return [(fields[0], fields[1]) for fields in map(str.split, lines.splitlines()) if len(fields) > 1]


def soname(readelf, library):
    """The name that programs ask for the library by."""
    dynamic = subprocess.run([readelf, "--dynamic", library], capture_output=True, text=True, check=True).stdout
    return re.search(r"\(SONAME\).*\[(.*)\]", dynamic).group(1)


def late_functions(tools):
    """Pairs of function and library, by the name of the function."""
    wanted = {name for name, kind in symbols(tools.nm, tools.archive, "--undefined-only") if kind == "U"}
    found = {}
    for library in tools.libraries:
        name = soname(tools.readelf, library)
        for symbol, kind in symbols(tools.nm, library, "--dynamic", "--defined-only"):
            symbol = symbol.split("@")[0]
            if symbol in wanted and kind in "TWi":
                found.setdefault(symbol, name)
            elif symbol in wanted:
                raise SystemExit(f"late_functions: {symbol} of {name} is data, which can't wait for a call")
    return sorted(found.items())


def main():
    parser = argparse.ArgumentParser()
    for option in ("nm", "readelf", "archive", "out"):
        parser.add_argument("--" + option, required=True)
    parser.add_argument("libraries", nargs="+")
    tools = parser.parse_args()
    functions = late_functions(tools)
    out = pathlib.Path(tools.out)
    source = SOURCE.format(
        archive=pathlib.Path(tools.archive).name, count=len(functions),
        rows="\n".join(f'    {{"{name}", "{library}"}},' for name, library in functions),
        stubs="\n".join(f"    late_function {name}, {index}" for index, (name, _) in enumerate(functions)))
    if not out.exists() or out.read_text() != source:
        out.write_text(source)


main()
