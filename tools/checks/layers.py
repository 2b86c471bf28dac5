#!/usr/bin/env python3
"""Fails when a folder of src/ includes one that lies above it in SIDECAR_HOUSE, when a sub-folder includes one that is
named after it, or when a source lies outside the sub-folders that the row of its layer names."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
SYSTEMS = ("linux", "win32")


def house():
    """{layer: {sub-folder: rank}}, the layers lowest first."""
    text = (ROOT / "cmake/SidecarTargets.cmake").read_text()
    rows = re.search(r"set\(SIDECAR_HOUSE\s+([^)]*)\)", text).group(1)
    layers = {}
    for name, folders in re.findall(r'"(\w+):([^"]*)"', rows):
        layers[name] = {folder: rank for rank, folder in enumerate(folders.split())}
    return layers


def sub_folder(parts):
    """Of a path within src/: its sub-folder, or None for a file of the layer itself."""
    inner = [part for part in parts[1:-1] if part not in SYSTEMS]
    return inner[0] if inner else None


def include_faults(path, layers, order):
    here = path.relative_to(ROOT / "src").parts
    own, own_folder = here[0], sub_folder(here)
    if own not in order:
        yield f"src/{own} is no layer; add it to SIDECAR_HOUSE"
        return
    if own_folder not in layers[own] and (own_folder is not None or layers[own]) and here[-1] not in ALONE:
        yield f"src/{'/'.join(here[:-1])} is no sub-folder of its layer; add it to SIDECAR_HOUSE"
        return
    for number, line in enumerate(path.read_text().splitlines(), 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        there = pathlib.PurePosixPath(match.group(1)).parts
        if there[0] == "lumograph":
            continue
        if there[0] not in order:
            yield f'{number}: include "{match.group(1)}" by its path from src/'
        elif order[there[0]] > order[own]:
            yield f"{number}: {own} lies below {there[0]} and must not include it"
        elif there[0] == own and there[-1] not in ALONE:
            rank = layers[own].get(own_folder, len(layers[own]))
            if layers[own].get(sub_folder(there), len(layers[own])) > rank:
                yield f"{number}: {own}/{own_folder} lies below {own}/{sub_folder(there)} and must not include it"


# Sources that belong to their layer as a whole.
ALONE = ("factories.h", "factories.cpp", "registered_classes.cpp", "registered_classes.h")


def main():
    layers = house()
    order = {name: rank for rank, name in enumerate(layers)}
    faults = []
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix in (".h", ".cpp", ".inc"):
            faults += [f"{path.relative_to(ROOT)}:{fault}" for fault in include_faults(path, layers, order)]
    for header in sorted((ROOT / "include").rglob("*.h")):
        for number, line in enumerate(header.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if match and "/" in match.group(1):
                faults.append(f"{header.relative_to(ROOT)}:{number}: the protocol's headers include only their siblings")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
