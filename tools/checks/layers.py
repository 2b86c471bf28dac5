#!/usr/bin/env python3
"""Fails when a folder of src/ includes one that lies above it in SIDECAR_LAYERS, or when a header doesn't stand alone."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')


def layers():
    text = (ROOT / "cmake/SidecarTargets.cmake").read_text()
    return re.search(r"set\(SIDECAR_LAYERS\s+([^)]*)\)", text).group(1).split()


def main():
    order = {name: rank for rank, name in enumerate(layers())}
    faults = []
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp", ".inc"):
            continue
        own = path.relative_to(ROOT / "src").parts[0]
        if own not in order:
            faults.append(f"{path.relative_to(ROOT)}: src/{own} is no layer; add it to SIDECAR_LAYERS")
            continue
        for number, line in enumerate(path.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            target = match.group(1).split("/")[0]
            if target == "lumograph":
                continue
            if target not in order:
                faults.append(f'{path.relative_to(ROOT)}:{number}: include "{match.group(1)}" by its path from src/')
            elif order[target] > order[own]:
                faults.append(f"{path.relative_to(ROOT)}:{number}: {own} lies below {target} and must not include it")
    for header in sorted((ROOT / "include").rglob("*.h")):
        for number, line in enumerate(header.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if match and "/" in match.group(1):
                faults.append(f"{header.relative_to(ROOT)}:{number}: the protocol's headers include only their siblings")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
