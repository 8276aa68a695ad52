"""Which tests kill what: every test runs on each mutant, even after one has killed it."""

import collections
import json
import re

import suite
import worker

# After so many suites that end the process the rest is not asked any more.
MANY_CRASHES = 20


class Notices:
    """One line a mutant: the tests that notice it, those of GoogleTest one by one."""

    def __init__(self, file):
        self.file = file
        self.latest = {}
        if file.exists():
            for line in file.read_text().splitlines():
                self.note(json.loads(line))

    def note(self, result):
        self.latest[result["key"], result["digest"]] = result

    def add(self, result):
        self.note(result)
        with open(self.file, "a", encoding="utf-8") as file:
            file.write(json.dumps(result) + "\n")

    def of(self, mutant, digest):
        return self.latest.get((mutant.key, digest))


def ask_all(own, mutant, tests):
    del mutant
    noticed = []
    for test in tests:
        try:
            noticed += noticing(own, test)
        except worker.BuildFailure:
            noticed.append(f"{test.name}/(does not compile)")
    programs = sorted({name.split("/")[0] for name in noticed})
    return {"outcome": "killed" if noticed else "survived", "noticed": noticed,
            "test": ",".join(programs), "by": f"{len(noticed)} tests"}


def noticing(own, test):
    """The tests of a program that notice; a suite that ends the process is left out afterwards."""
    if not test.is_googletest:
        outcome = own.run(test, own.costs[test.name], keep_going=True)
        return [] if outcome.passed else [test.name]
    noticed, crashed = set(), []
    for _ in range(MANY_CRASHES):
        extra = ["--gtest_filter=-" + ":".join(crashed)] if crashed else []
        outcome = own.run(test, own.costs[test.name], keep_going=True, extra=extra)
        failed = re.findall(r"^\[  FAILED  \] ([A-Za-z_][\w/]*\.[\w/]+)", outcome.output, re.MULTILINE)
        noticed |= {f"{test.name}/{name}" for name in failed}
        if outcome.passed or re.search(r"^\[==========\].* ran\.", outcome.output, re.MULTILINE):
            break
        started = suite.started(outcome.output).strip() or "(no test).(started)"
        noticed.add(f"{test.name}/{started}")
        crashed.append(started.split(".")[0] + ".*")
    return sorted(noticed)


# ---- The table ----

def suite_of(name):
    """unit_tests/All/BridgeName.Test/0 -> (unit_tests, BridgeName); a whole test -> (name, "")."""
    program, _, test = name.partition("/")
    return program, test.split(".")[0].split("/")[-1]


def table(session):
    """Per program and per suite: how many mutants it kills, and how many only it kills."""
    tried = [session.notices.of(m, session.digest(m)) for m in session.wanted]
    compiled = [r for r in tried if r and r["outcome"] != "stillborn"]
    by_program = counted([{suite_of(n)[0] for n in r["noticed"]} for r in compiled])
    by_suite = counted([{suite_of(n) for n in r["noticed"]} for r in compiled])
    within = collections.Counter()
    for result in compiled:
        suites = {suite_of(name) for name in result["noticed"]}
        own = collections.defaultdict(set)
        for program, name in suites:
            own[program].add(name)
        within.update((program, *names) for program, names in own.items() if len(names) == 1)
    noticed = sum(1 for r in compiled if r["noticed"])
    lines = ["# Which tests kill which mutants", "",
             f"{len(compiled)} mutants of {session.options.folder} that compile, of "
             f"{len(session.wanted)} chosen; {noticed} killed. \"Only it\" counts those that "
             "nothing else kills.", "",
             "| test | kills | only it |", "|---|---:|---:|"]
    for test in sorted((t.name for t in session.tests), key=lambda name: -by_program[0][name]):
        lines.append(f"| {test} | {by_program[0][test]} | {by_program[1][test]} |")
    lines += ["", "| program | suite | file | kills | only it in its program | only it |",
              "|---|---|---|---:|---:|---:|"]
    files = suites_of_programs(session)
    rows = {key for key in files} | {key for key in by_suite[0] if key[1]}
    for key in sorted(rows, key=lambda key: (key[0], -by_suite[0][key], key[1])):
        lines.append(f"| {key[0]} | {key[1]} | {files.get(key, '')} | {by_suite[0][key]} | "
                     f"{within[key]} | {by_suite[1][key]} |")
    return "\n".join(lines) + "\n"


def counted(sets):
    """How often each is in a set, and how often alone."""
    return (collections.Counter(name for names in sets for name in names),
            collections.Counter(name for names in sets if len(names) == 1 for name in names))


def suites_of_programs(session):
    """Every suite there is, with the file that has it."""
    found = {}
    for test in session.tests:
        if not test.is_googletest:
            continue
        program = test.command[0].rsplit("/", 1)[-1]
        for path, commands in session.base.compilations.items():
            if any(f"/{program}.dir/" in word for word in commands[0]):
                with open(path, encoding="utf-8") as source:
                    for name in re.findall(r"^TEST(?:_F|_P)?\((\w+)", source.read(), re.MULTILINE):
                        found[test.name, name] = path.rsplit("/", 1)[-1]
    return found
