#!/usr/bin/env python3
"""Renders the drawings of resources/icons with rsvg-convert and packs them as the icon store.

Usage: pack_icons.py [--base STORE_FOLDER] [--styles FOLDER] TABLE... OUT_FOLDER KEPT_FOLDER

Writes IconResources.idx, IconsLowRes.dat and IconsHighRes.dat; src/images/icon_index.h describes their bytes. What was
rendered once stays in KEPT_FOLDER under a name made of its content, so that only what has changed is rendered again. The
styles lie beside the first table if they aren't named. With a base, its icons come first; one of the same name in a table
takes the place of that in the base.
"""

import argparse
import concurrent.futures
import dataclasses
import hashlib
import os
import pathlib
import re
import struct
import subprocess
import sys

# The slot of each state; the module reads the same numbers.
SLOTS = {"normal": 0, "inactive": 2, "pressed": 4, "dark": 6}
DENSITIES = (1, 2)  # pixels of a unit at low and at high density
RESOLUTIONS, SLOT_COUNT = 4, 8
HEADER = b"Lumograph Icon Resource Index 1.0\n"
DATA_FILES = ("IconsLowRes.dat", "IconsHighRes.dat", "IconsXLowRes.dat", "IconsXHighRes.dat")
DATA_MARK = b"fdrk"
# Bytes of a data file's name and of an icon's record in the index: its name, its four sizes and hot spots, its places.
DATA_NAME_SIZE, NAME_SIZE = 128, 48
RECORD_SIZE = NAME_SIZE + 4 * 4 * RESOLUTIONS + 2 * 4 * RESOLUTIONS * SLOT_COUNT
PLAIN_CHUNKS = (b"IHDR", b"PLTE", b"tRNS", b"IDAT", b"IEND")

# A turn as a matrix over a picture of w by h, and whether it exchanges the two.
TURNS = {
    "transpose": ("matrix(0 1 1 0 0 0)", True),
    "mirror": ("matrix(-1 0 0 1 {w} 0)", False),
    "flip": ("matrix(1 0 0 -1 0 {h})", False),
}


class Mistake(Exception):
    """A message for whoever draws."""


@dataclasses.dataclass
class Icon:
    name: str
    width: int
    height: int
    body: str  # the drawing, cut to its part and turned
    states: list
    hot: tuple


def numbers(text, count):
    if not re.fullmatch(r"\d+(,\d+){%d}" % (count - 1), text):
        raise Mistake(f"'{text}' must be {count} numbers with commas between them")
    return tuple(int(number) for number in text.split(","))


def read_drawing(path):
    try:
        text = path.read_text(encoding="utf-8")
    except FileNotFoundError:
        raise Mistake(f"{path} isn't there; draw it, or name another with drawing=") from None
    root = re.search(r"<svg\b[^>]*>", text)
    size = root and re.search(r'\bwidth="(\d+)" height="(\d+)"', root.group())
    if not size:
        raise Mistake(f'{path}: the root must read <svg ... width="W" height="H" ...>, in whole units')
    return text[root.start():], int(size[1]), int(size[2])


def read_row(folder, row):
    name, *options = row.split()
    options = dict(option.split("=", 1) if "=" in option else (option, "") for option in options)
    unknown = options.keys() - {"drawing", "part", "turn", "states", "hot"}
    if unknown:
        raise Mistake(f"'{unknown.pop()}' is no option; they are drawing=, part=, turn=, states= and hot=")
    if not re.fullmatch(r"[A-Za-z][A-Za-z0-9_]{0,46}", name):
        raise Mistake(f"'{name}' must be up to 47 letters, digits and underscores, a letter first")
    body, width, height = read_drawing(folder / (options.get("drawing", name) + ".svg"))
    if "part" in options:
        left, top, *size = numbers(options["part"], 4)
        if left + size[0] > width or top + size[1] > height or 0 in size:
            raise Mistake(f"part={options['part']} must lie in the drawing, which is {width} by {height}")
        width, height = size
        body = f'<g transform="translate({-left} {-top})">{body}</g>'
    for turn in filter(None, options.get("turn", "").split(",")):
        if turn not in TURNS:
            raise Mistake(f"'{turn}' is no turn; they are {', '.join(TURNS)}")
        matrix, exchanges = TURNS[turn]
        body = f'<g transform="{matrix.format(w=width, h=height)}">{body}</g>'
        if exchanges:
            width, height = height, width
    states = ["normal"] + [state for state in options.get("states", "").split(",") if state]
    for state in states:
        if state not in SLOTS:
            raise Mistake(f"'{state}' is no state; they are {', '.join(SLOTS)}")
    hot = numbers(options.get("hot", "0,0"), 2)
    if hot[0] >= width or hot[1] >= height:
        raise Mistake(f"hot={options['hot']} must lie in the picture, which is {width} by {height}")
    return Icon(name, width, height, body, states, hot)


def read_table(table):
    icons = {}
    for number, line in enumerate(table.read_text(encoding="utf-8").splitlines(), 1):
        row = line.partition("#")[0].strip()
        if not row:
            continue
        try:
            icon = read_row(table.parent, row)
            if icon.name in icons:
                raise Mistake(f"'{icon.name}' is there twice")
        except Mistake as mistake:
            raise Mistake(f"{table}:{number}: {mistake}") from None
        icons[icon.name] = icon
    return list(icons.values())


def read_styles(folder):
    base = (folder / "normal.css").read_text(encoding="utf-8")
    return {state: base + ("" if state == "normal" else (folder / f"{state}.css").read_text(encoding="utf-8"))
            for state in SLOTS}


def strip(png):
    """The PNG without the chunks that say nothing about its pixels."""
    kept, place = [png[:8]], 8
    while place < len(png):
        end = place + 12 + int.from_bytes(png[place:place + 4], "big")
        if png[place + 4:place + 8] in PLAIN_CHUNKS:
            kept.append(png[place:end])
        place = end
    return b"".join(kept)


def render(icon, style, density, kept):
    """The icon's PNG, out of the folder of kept ones if it is there."""
    svg = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{icon.width}" height="{icon.height}">'
           f"<style>{style}</style>{icon.body}</svg>").encode()
    path = kept / (hashlib.sha256(svg + b"%d" % density).hexdigest() + ".png")
    if not path.exists():
        done = subprocess.run(["rsvg-convert", "--format=png", f"--zoom={density}"], input=svg, capture_output=True,
                              check=False)
        if done.returncode != 0:
            raise Mistake(f"{icon.name} can't be rendered: {done.stderr.decode().strip()}")
        fresh = path.with_suffix(f".{os.getpid()}")  # another build may be at the same picture
        fresh.write_bytes(strip(done.stdout))
        fresh.replace(path)
    return path


def read_base(folder, replaced):
    """The records of a store's icons but the replaced ones, and its data files."""
    if folder is None:
        return bytearray(), {density: bytearray(DATA_MARK) for density in DENSITIES}
    records = (folder / "IconResources.idx").read_bytes()[len(HEADER) + len(DATA_FILES) * DATA_NAME_SIZE:]
    each = (records[place:place + RECORD_SIZE] for place in range(0, len(records), RECORD_SIZE))
    kept = b"".join(record for record in each if record[:NAME_SIZE].rstrip(b"\0").decode() not in replaced)
    return bytearray(kept), {density: bytearray((folder / name).read_bytes())
                             for density, name in zip(DENSITIES, DATA_FILES)}


def pack(icons, pictures, base):
    """The index and the two data files, of {(name, density, state): PNG bytes}."""
    records, data = read_base(base, {icon.name for icon in icons})
    index = bytearray(HEADER)
    for name in DATA_FILES:
        index += name.encode().ljust(DATA_NAME_SIZE - 1, b"\0") + b"\n"
    index += records
    for icon in icons:
        places = [[0] * SLOT_COUNT for _ in range(RESOLUTIONS)]
        sizes = [[0] * SLOT_COUNT for _ in range(RESOLUTIONS)]
        for resolution, density in enumerate(DENSITIES):
            for state in icon.states:
                png = pictures[icon.name, density, state]
                places[resolution][SLOTS[state]] = len(data[density])
                sizes[resolution][SLOTS[state]] = len(png)
                data[density] += png
        index += icon.name.encode().ljust(NAME_SIZE, b"\0")
        for value in (icon.width, icon.height, *icon.hot):
            index += struct.pack("<4I", *(value * density for density in DENSITIES), 0, 0)
        for table in (places, sizes):
            index += struct.pack("<32I", *(number for row in table for number in row))
    return index, data


def main(options):
    out, kept = options.out, options.kept
    out.mkdir(parents=True, exist_ok=True)
    kept.mkdir(parents=True, exist_ok=True)
    icons = [icon for table in options.tables for icon in read_table(table)]
    styles = read_styles(options.styles or options.tables[0].parent / "styles")
    wanted = [(icon, density, state) for icon in icons for density in DENSITIES for state in icon.states]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        paths = list(pool.map(lambda one: render(one[0], styles[one[2]], one[1], kept), wanted))
    pictures = {(icon.name, density, state): path.read_bytes()
                for (icon, density, state), path in zip(wanted, paths)}
    index, data = pack(icons, pictures, options.base)
    for density, name in zip(DENSITIES, DATA_FILES):
        (out / name).write_bytes(data[density])
    (out / "IconResources.idx").write_bytes(index)
    for stale in set(kept.glob("*.png")) - set(paths):
        stale.unlink(missing_ok=True)


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--base", type=pathlib.Path)
    parser.add_argument("--styles", type=pathlib.Path)
    parser.add_argument("tables", type=pathlib.Path, nargs="+")
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("kept", type=pathlib.Path)
    return parser.parse_args()


if __name__ == "__main__":
    try:
        main(arguments())
    except Mistake as mistake:
        sys.exit(f"pack_icons: {mistake}")
