"""Shows what became of mutants."""

import collections
import pathlib
import re

REASONS = pathlib.Path(__file__).resolve().parent / "survivors.md"


def explained():
    """The equivalent mutants: their names, or their keys where the list has them."""
    listed = re.findall(r"^- (\S+?)(?: \(([0-9a-f]{16})\))?: ", REASONS.read_text(), re.MULTILINE)
    return {key or name for name, key in listed}


def is_explained(mutant):
    return bool({mutant.name, mutant.key} & explained())


def known(session):
    """The mutants of the sample that were tried, with their results."""
    tried = ((mutant, session.result_of(mutant)) for mutant in session.wanted)
    return {mutant: result for mutant, result in tried if result}


def show(session):
    results = known(session)
    row = "{:<44}{:>8}{:>8}{:>10}{:>11}".format
    counts = collections.defaultdict(collections.Counter)
    for mutant, result in results.items():
        counts[mutant.file][result["outcome"]] += 1
    print(row("file", "mutants", "killed", "survived", "stillborn"))
    total = collections.Counter()
    for file in sorted(counts):
        total.update(counts[file])
        print(row(file, sum(counts[file].values()), *columns(counts[file])))
    print(row("all", sum(total.values()), *columns(total)))
    for mutant, result in results.items():
        if result["outcome"] == "survived":
            print("\n" + described(session, mutant, result))
    show_gone(session)
    alive = total["killed"] + total["survived"]
    print(f"\n{len(session.wanted)} of {len(session.every)} mutants chosen, {len(results)} tried, "
          f"{alive} compiled")
    if alive:
        seconds = sum(result["seconds"] for result in results.values()) / len(results)
        print(f"killed: {total['killed']} of {alive}, {100 * total['killed'] / alive:.1f} %; "
              f"{seconds:.1f} s for a mutant and worker")


def columns(counts):
    return counts["killed"], counts["survived"], counts["stillborn"]


def described(session, mutant, result):
    note = "its reason is listed" if is_explained(mutant) else "NOT EXPLAINED"
    return f"{mutant.name}  ({note}; {result['by']})\n{session.diff(mutant)}"


def show_gone(session):
    names = {mutant.name for mutant in session.every}
    for name in sorted(explained()):
        if name.startswith(session.options.folder) and name not in names:
            print(f"\n{name} is listed in {REASONS.name}, but is not a mutant (any more)")


def survivors(session):
    """For those who write the tests."""
    results = known(session)
    outcomes = collections.Counter(result["outcome"] for result in results.values())
    lines = [f"# Survivors in {session.options.folder}", "",
             f"{len(results)} of {len(session.wanted)} tried: " + ", ".join(
                 f"{count} {outcome}" for outcome, count in sorted(outcomes.items())), ""]
    for mutant, result in results.items():
        if result["outcome"] == "survived" and not is_explained(mutant):
            lines += [f"## {mutant.name}", "", f"key {mutant.key}; {result['by']}", "",
                      "```diff", session.diff(mutant), "```", ""]
    return "\n".join(lines)
