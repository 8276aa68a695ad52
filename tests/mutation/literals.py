"""Other numbers, permissions and statements of SQL in the place of those in a source."""

import re

NUMBER = re.compile(rb"(0[xX][0-9a-fA-F]+|\d+)([uUlLzZ]*)$")
# What a statement promises, and the same without it.
STATEMENTS = (
    (rb"BEGIN IMMEDIATE", b"BEGIN"),
    (rb"COMMIT", b"ROLLBACK"),
    (rb"ROLLBACK", b"COMMIT"),
    (rb"synchronous = FULL", b"synchronous = OFF"),
    (rb"journal_mode = WAL", b"journal_mode = DELETE"),
    (rb"wal_checkpoint\(TRUNCATE\)", b"wal_checkpoint(PASSIVE)"),
    (rb"OR REPLACE ", b""),
    (rb" UNIQUE", b""),
    (rb" PRIMARY KEY", b""),
    (rb" WHERE [^\"]*", b""),
    (rb" ORDER BY [^\";]*", b""),
    (rb" DESC", b""),
    (rb" AND ", b" OR "),
    (rb"\bmax\(", b"min("),
    (rb" > \?", b" >= ?"),
    (rb" < \?", b" <= ?"),
    (rb"(?<== )\d+", b"7"),
)
IS_STATEMENT = re.compile(
    rb"\b(SELECT|INSERT|UPDATE|DELETE FROM|PRAGMA|CREATE|BEGIN|COMMIT|ROLLBACK|WHERE|ORDER BY)\b")


def other_numbers(text):
    """Pairs of a kind and a text: one more, one less; a mode lets everybody read, or nobody."""
    found = NUMBER.match(text)
    if not found:
        return []
    digits, suffix = found.groups()
    if len(digits) > 1 and digits.isdigit() and digits.startswith(b"0"):
        mode = int(digits, 8)
        return [("mode", b"0%o" % other) for other in (mode | 0o044, mode & 0o300)]
    if not digits.isdigit():
        return [("number", hex(int(digits, 16) + step).encode() + suffix) for step in (1, -1)]
    return [("number", b"%d" % (int(digits) + step) + suffix) for step in (1, -1)]


def other_statements(text):
    """Triples: from where to where in the literal there is to be what instead."""
    if not IS_STATEMENT.search(text):
        return []
    return [(*found.span(), other) for pattern, other in STATEMENTS
            for found in re.finditer(pattern, text)]
