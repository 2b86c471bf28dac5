#!/usr/bin/env python3
"""Writes headers as Doxygen reads them: plain_comments.py OUT_FOLDER ROOT... -- HEADER...

Each is written to its path from the root that it lies in. The headers' comments are plain ones. Those before a declaration and those at the end of its line become comments that
Doxygen reads; the first of a file is about the file. Nothing in them is markup: text that is indented stays as it is laid out.
"""
import pathlib
import re
import sys

LINE = re.compile(r"^( *)//(?: (.*))?$")
TRAILING = re.compile(r"^(.*\S)( *)// (.*)$")
RULE = re.compile(r"^-{8,}")
SPECIAL = re.compile(r"([\\@&$#<>%*`~|\[\]\"])")
# Doxygen stumbles over these, which nobody looks up.
HASHES = re.compile(r"^template <>\nstruct std::hash<.*?^};$", re.MULTILINE | re.DOTALL)
INDENTED = re.compile(r"^ {2,}\S")


def plain(text):
    return SPECIAL.sub(r"\\\1", text).replace("::", r"\::")


def block(indent, texts, head):
    """The lines of a comment of its own."""
    out = [r"\file"] if head else []
    verbatim = False
    for text in texts:
        if bool(INDENTED.match(text)) != verbatim and text:
            verbatim = not verbatim
            out.append(r"\verbatim" if verbatim else r"\endverbatim")
        out.append(text if verbatim else plain(text))
    if verbatim:
        out.append(r"\endverbatim")
    return [f"{indent}/// {text}".rstrip() for text in out]


def cpp(lines):
    place, head = 0, True
    while place < len(lines):
        match = LINE.match(lines[place])
        if match and not RULE.match(match.group(2) or ""):
            indent, texts = match.group(1), []
            while place < len(lines) and (match := LINE.match(lines[place])):
                texts.append(match.group(2) or "")
                place += 1
            yield from block(indent, texts, head)
            head = False
            continue
        trailing = TRAILING.match(lines[place])
        if trailing and '"' not in trailing.group(1):
            code, gap, text = trailing.groups()
            column = len(code) + len(gap)
            yield f"{code}{gap}///< {plain(text)}"
            while place + 1 < len(lines) and (more := LINE.match(lines[place + 1])) and len(more.group(1)) == column:
                yield f"{more.group(1)}///< {plain(more.group(2) or '')}"
                place += 1
        else:
            yield lines[place]
        place += 1


def c(text):
    """Of the protocol's headers, whose comments are /* */."""
    head = True

    def comment(match):
        nonlocal head
        before, words = match.group(1), match.group(2)
        texts = [re.sub(r"^ *\* ?", "", line) for line in words.split("\n")]
        if before.strip():
            return f"{before}/**< {' '.join(plain(text.strip()) for text in texts)} */"
        lines = block("", [texts[0].lstrip(), *texts[1:]], head)
        head = False
        return "\n".join(before + line for line in lines)

    return re.sub(r"^([^\n]*?)/\*(.*?)\*/", comment, text, flags=re.MULTILINE | re.DOTALL)


def write(out, roots, header):
    text = header.read_text(encoding="utf-8")
    path = next(header.relative_to(root) for root in roots if header.is_relative_to(root))
    (out / path).parent.mkdir(parents=True, exist_ok=True)
    plain_text = c(text) if "/*" in text.split("\n", 1)[0] else "\n".join(cpp(HASHES.sub("", text).split("\n")))
    (out / path).write_text(plain_text, encoding="utf-8")


if __name__ == "__main__":
    if "--" not in sys.argv:
        sys.exit(__doc__)
    middle = sys.argv.index("--")
    out_folder, *root_folders = map(pathlib.Path, sys.argv[1:middle])
    for name in sys.argv[middle + 1:]:
        write(out_folder, root_folders, pathlib.Path(name))
