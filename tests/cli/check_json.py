#!/usr/bin/python3
"""Holds JSON against the schemas of docs/schemas, and those against the page that describes them.

  check_json.py documents FILE...     each file is a document as its kind's schema says; prints
                                      the kinds that there were, one a line
  check_json.py descriptions FILE...  each file is what --from takes
  check_json.py kinds                 prints the kinds that there are schemas for, one a line
  check_json.py page                  the page and the schemas have the same kinds and keys

People read documents too: the members of an object stand in the order that its schema lists.

Faults go to standard error, one a line, and end it with 1.
"""

import json
import pathlib
import re
import sys

import jsonschema

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"
SCHEMAS = DOCS / "schemas"
PAGE = DOCS / "igdctl-json.md"
EXPORT_PAGE = DOCS / "host-platform.md"  # has the keys of an exported tree
NO_KINDS = {"common", "description", "document"}


def schema_of(name):
    return json.loads((SCHEMAS / f"{name}.json").read_text())


def kinds_of_schemas():
    return {path.stem for path in SCHEMAS.glob("*.json")} - NO_KINDS


def in_order(validator, properties, instance, schema):
    """In place of the usual check of `properties`."""
    yield from DRAFT.VALIDATORS["properties"](validator, properties, instance, schema)
    if validator.is_type(instance, "object"):
        listed = [key for key in properties if key in instance]
        if [key for key in instance if key in properties] != listed:
            yield jsonschema.ValidationError(f"its members stand in another order than {listed}")


DRAFT = jsonschema.Draft202012Validator
ORDERED = jsonschema.validators.extend(DRAFT, {"properties": in_order})


def faults_of(value, name, draft=DRAFT):
    """Schemas name each other by their files."""
    schema = schema_of(name)
    draft.check_schema(schema)
    base = (SCHEMAS / f"{name}.json").as_uri()
    errors = draft(schema, resolver=jsonschema.RefResolver(base, schema)).iter_errors(value)
    return [f"{error.json_path}: {error.message[:300]}" for error in errors]


def check_documents(files):
    kinds = set()
    faults = []
    for file in files:
        document = json.loads(pathlib.Path(file).read_text())
        kind = document.get("kind")
        known = kind in kinds_of_schemas()
        found = faults_of(document, kind, ORDERED) if known else [f"no schema for the kind {kind!r}"]
        faults += [f"{file}: {fault}" for fault in found]
        kinds.add(str(kind))
    print("\n".join(sorted(kinds)))
    return faults


def check_descriptions(files):
    faults = []
    for file in files:
        description = json.loads(pathlib.Path(file).read_text())
        faults += [f"{file}: {fault}" for fault in faults_of(description, "description")]
    return faults


def kinds_in(section):
    """They stand in headings as code, or in bold at the beginning of what is told of them."""
    heading = section.partition("\n")[0]
    return set(re.findall(r"`([a-z.]+)`", heading) + re.findall(r"\*\*([a-z.]+)\*\*", section))


def keys_of_tables(section):
    """What stands as code in the first column: keys, and words that a key can have."""
    rows = re.findall(r"^\| (`[^|]*`) \|", section, re.MULTILINE)
    return {word for row in rows for word in re.findall(r"`([^`]+)`", row)}


def words_of(part, name):
    """The keys, and the words listed as values, of a part of a schema and of what it refers to."""
    if isinstance(part, list):
        return set().union(*(words_of(element, name) for element in part))
    if not isinstance(part, dict):
        return set()
    words = set(part.get("properties", {}))
    words |= {word for word in part.get("enum", []) if isinstance(word, str) and word}
    file, _, place = part.get("$ref", "").partition("#/$defs/")
    if place:
        name = file.removesuffix(".json") or name
        words |= words_of(schema_of(name)["$defs"][place], name)
    return words.union(*(words_of(value, name) for key, value in part.items() if key != "$defs"))


def words_as_code(page):
    """Every word within code, in a line or in a block."""
    code = re.findall(r"```.*?```|`[^`]+`", page, re.DOTALL)
    return {word for piece in code for word in re.findall(r"[\w.-]+", piece)}


def faults_of_section(section, kinds):
    told = kinds_in(section)
    for kind in sorted(told - kinds):
        yield f"the kind {kind} has no schema"
    words = set().union(*(words_of(schema_of(kind), kind) for kind in told & kinds))
    for word in sorted(keys_of_tables(section) - words):
        yield f"no schema of {' '.join(sorted(told))} has {word}"


def keys_of_connection(form):
    return set(schema_of("description")["$defs"][form]["properties"])


def check_page():
    page = PAGE.read_text()
    kinds = kinds_of_schemas()
    faults = []
    sections = page.split("\n## ")[1:]
    for section in sections:
        faults += faults_of_section(section, kinds)
    told = set().union(*map(kinds_in, sections))
    faults += [f"{PAGE.name} does not tell of the kind {kind}" for kind in sorted(kinds - told)]
    words = set().union(*(words_of(schema_of(name), name) for name in kinds | {"description"}))
    told_words = words_as_code(page + EXPORT_PAGE.read_text())
    faults += [f"{PAGE.name} does not tell of {word}" for word in sorted(words - told_words)]
    if set(schema_of("document")["properties"]["kind"]["enum"]) != kinds:
        faults.append("document.json lists other kinds than there are schemas for")
    shown = keys_of_connection("shown")
    if shown != keys_of_connection("description"):
        faults.append("a connection has other keys when it is shown than in a description")
    return faults


def print_kinds():
    print("\n".join(sorted(kinds_of_schemas())))
    return []


def main():
    verb, files = sys.argv[1], sys.argv[2:]
    if verb in ("documents", "descriptions"):
        if not files:
            sys.exit("no files to check")
        faults = check_documents(files) if verb == "documents" else check_descriptions(files)
    else:
        faults = {"kinds": print_kinds, "page": check_page}[verb]()
    for fault in faults:
        print(fault, file=sys.stderr)
    sys.exit(1 if faults else 0)


main()
