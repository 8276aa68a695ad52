#!/usr/bin/env python3
"""Checks that what the documents link to, and the files they name, are there."""

import re
import sys

from markdown import ROOT, blocks_of, documents

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"`([^`\n]+)`")
TOP_FOLDERS = ("abi/", "bench/", "cmake/", "docs/", "examples/", "framework/", "packaging/",
               "platform/", "scripts/", "tests/", "tools/", ".ci/")


def anchor_of(heading):
    kept = re.sub(r"[^\w\- ]", "", re.sub(r"[`*]", "", heading).strip().lower())
    return kept.replace(" ", "-")


def anchors_of(document):
    prose = blocks_of(document)[1]
    return {anchor_of(line.lstrip("#")) for line in prose if line.startswith("#")}


def fault_of_link(document, target):
    """What is wrong with a link, or None. Addresses of the web are not asked."""
    if re.match(r"https://[\w.-]+(/|$)", target):
        return None
    if ":" in target:
        return "is neither a path nor an https address"
    path, _, anchor = target.partition("#")
    file = (ROOT / document).parent / path if path else ROOT / document
    if not file.exists():
        return "is not there"
    if anchor and anchor not in anchors_of(str(file.resolve().relative_to(ROOT))):
        return "has no such heading"
    return None


def fault_of_code(text):
    """What is wrong with a path in code style, or None when it is no path or is there."""
    path = text.split()[0] if text.split() else ""
    if not path.startswith(TOP_FOLDERS) or re.search(r"[<>${}]", path):
        return None
    path = path.rstrip(".,:;")
    if any(ROOT.glob(path)) or any(ROOT.glob(path + ".*")):
        return None
    return "is not there"


def faults_of(document):
    for number, line in enumerate(blocks_of(document)[1], 1):
        for target in LINK.findall(line):
            yield number, target, fault_of_link(document, target)
        for text in CODE.findall(line):
            yield number, text, fault_of_code(text)


def main():
    faults = 0
    links = 0
    for document in documents():
        for number, target, fault in faults_of(document):
            links += 1
            if fault:
                faults += 1
                print(f"{document}:{number}: {target} {fault}", file=sys.stderr)
    print(f"{links} links and names, {faults} faults")
    return 1 if faults or not links else 0


if __name__ == "__main__":
    sys.exit(main())
