"""The Markdown files of the project, and the code blocks in them."""

import pathlib
import re
import subprocess
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIST_ITEM = re.compile(r"\s*([-*+]|\d+\.)\s")


@dataclass
class Block:
    """A fenced block, which may stand in a list; or an indented one, whose language is "sh"."""

    document: str
    line: int
    language: str
    text: str
    indent: int = 0

    def __str__(self):
        return f"{self.document}:{self.line}"


def documents():
    """Paths of all Markdown files that are tracked or new, relative to the project's folder."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.md"],
        cwd=ROOT, check=True, capture_output=True, text=True)
    return sorted(name for name in listed.stdout.split("\n") if name and (ROOT / name).exists())


def lines_of(document):
    return (ROOT / document).read_text(encoding="utf-8").split("\n")


def blocks_of(document):
    """All code blocks; and the document's lines with those of the blocks emptied."""
    lines = lines_of(document)
    blocks, prose, fenced, indented, in_list = [], [], None, None, False
    for number, line in enumerate(lines, 1):
        fence = re.match(r"\s*```(\w*)\s*$", line)
        if fenced is not None:
            if fence:
                fenced = None
            else:
                fenced.text += line.removeprefix(" " * fenced.indent) + "\n"
        elif fence:
            fenced = Block(document, number, fence.group(1), "", line.index("`"))
            blocks.append(fenced)
        elif line.startswith("    ") and not in_list and (indented or prose[-1:] == [""]):
            if indented is None:
                indented = Block(document, number, "sh", "")
                blocks.append(indented)
            indented.text += line[4:] + "\n"
        else:
            if line:
                indented = None
                in_list = bool(LIST_ITEM.match(line)) or (in_list and line.startswith(" "))
            prose.append(line)
            continue
        prose.append("\0")
    if fenced is not None:
        raise SystemExit(f"{fenced}: the block has no end")
    return blocks, ["" if line == "\0" else line for line in prose]
