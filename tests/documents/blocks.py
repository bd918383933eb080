"""The fenced blocks of a document: what their language promises is what a test holds them to (CONTRIBUTING.md)."""
import pathlib
import re
from typing import NamedTuple


class Block(NamedTuple):
    language: str
    text: str
    line: int
    directly_after: bool  # nothing but plain text, no other block or heading, stands between it and the one before


# What the README's ways to the library are known by; tests/package takes each of them.
WAYS = {"package": "find_package(QX_Encoding", "subdirectory": "add_subdirectory(", "fetched": "FetchContent_Declare(",
        "cloned": "FetchContent_Declare(", "pkg-config": "--libs QX_Encoding",
        "messages-package": "find_package(QX_Messages", "messages-pkg-config": "--libs QX_Messages"}


def blocks_of(path):
    """All fenced blocks of a Markdown file, in order."""
    found, fence, after_block = [], None, False
    for number, line in enumerate(pathlib.Path(path).read_text(encoding="utf-8").splitlines(), 1):
        opening = re.fullmatch(r"```(\w*)", line)
        if fence is None and opening:
            fence = (opening[1], [], number, after_block)
        elif fence is not None and line == "```":
            language, lines, begun, after = fence
            found.append(Block(language, "".join(text + "\n" for text in lines), begun, after))
            fence, after_block = None, True
        elif fence is not None:
            fence[1].append(line)
        elif re.match(r"[\s>*-]*(```|~~~)", line):
            raise SystemExit(f"{path}:{number}: a fence that no test would see")
        elif line.startswith("#"):
            after_block = False
    if fence is not None:
        raise SystemExit(f"{path}:{fence[2]}: the block does not end")
    return found


def programs_of(path):
    """The whole programs of a document, each with the block of the output that it shows or None."""
    mains = {"cpp": "int main(", "c": "int main(", "rust": "fn main(", "go": "func main("}
    blocks = blocks_of(path)
    for block, following in zip(blocks, [*blocks[1:], None]):
        if block.language in mains and mains[block.language] in block.text:
            shown = following is not None and following.language == "text" and following.directly_after
            yield block, following if shown else None
