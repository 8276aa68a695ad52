"""A small change of a source, and what is known by it."""

import dataclasses
import difflib
import hashlib


@dataclasses.dataclass(frozen=True)
class Mutant:
    """Replaces the bytes from start to end of a file.

    `scope` is the outermost declaration around the change: a result holds as long as that stays.
    `key` names the change wherever its file is moved and whatever is written above it.
    """

    file: str
    line: int
    kind: str
    start: int
    end: int
    text: bytes
    scope: tuple
    ordinal: int = 1
    key: str = ""

    @property
    def name(self):
        return f"{self.file}:{self.line}:{self.kind}:{self.ordinal}"

    def applied_to(self, source):
        return source[:self.start] + self.text + source[self.end:]

    def digest(self, source):
        first, last = self.scope
        changed = source[first:self.start] + self.text + source[self.end:last]
        return hashlib.sha256(changed).hexdigest()[:16]

    def diff(self, source):
        before = source.decode().splitlines()
        after = self.applied_to(source).decode().splitlines()
        lines = list(difflib.unified_diff(before, after, lineterm="", n=1))[2:]
        return "\n".join(line for line in lines if not line.startswith("@@"))


def numbered(found, source):
    """By their place; those of one line and kind, and those that look alike, are numbered."""
    places, looks, mutants = {}, {}, []
    for mutant in sorted(found, key=lambda m: (m.start, m.end, m.kind, m.text)):
        place = (mutant.line, mutant.kind)
        places[place] = places.get(place, 0) + 1
        look = (mutant.kind, lines_around(mutant, source), mutant.text)
        looks[look] = looks.get(look, 0) + 1
        name = repr((mutant.file.rsplit("/", 1)[-1], look, looks[look])).encode()
        mutants.append(dataclasses.replace(mutant, ordinal=places[place],
                                           key=hashlib.sha256(name).hexdigest()[:16]))
    return mutants


def lines_around(mutant, source):
    """The changed lines, split where the change is."""
    first = source.rfind(b"\n", 0, mutant.start) + 1
    last = source.find(b"\n", mutant.end)
    return (source[first:mutant.start], source[mutant.start:mutant.end],
            source[mutant.end:last if last >= 0 else len(source)])
