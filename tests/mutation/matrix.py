"""Which tests kill what: every test runs on each mutant, even after one has killed it."""

import collections
import json
import re
import subprocess

import suite
import worker

# The library is told several times over; each telling, its tests and where it stands.
TELLINGS = {
    "unit tests": (r"unit_tests|no_context_test|null_tree_test|late_context_test",
                   ("tests/unit/igd", "tests/unit/no_tree")),
    "transcripts": (r"transcript_test", ("tests/transcripts",)),
    "reference, with faults and fuzz": (r"operations_test|fuzz\..*",
                                        ("tests/reference", "tests/operations", "tests/fuzz",
                                         ":!tests/fuzz/d*", ":!tests/fuzz/rows*",
                                         ":!tests/fuzz/store*")),
    "foreign platform": (r"foreign_platform", ("tests/foreign_platform",)),
    "binary": (r"abi_test|own_platform_test", ("tests/binary",)),
}

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
    compiled = compiled_of(session)
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


def tellings(root, results):
    """What scripts/figures shows of each telling: its size, what it notices, and what it alone does."""
    told = []
    for result in results:
        programs = {suite_of(name)[0] for name in result["noticed"]}
        told.append({telling for telling, (tests, _) in TELLINGS.items()
                     if any(re.fullmatch(tests, program) for program in programs)})
    notices, alone = counted(told)
    return [f"{telling}\t{lines_of(root, folders)} lines, notices {notices[telling]} of "
            f"{len(results)}, {alone[telling]} alone" for telling, (_, folders) in TELLINGS.items()]


def lines_of(root, folders):
    listed = subprocess.run(["git", "ls-files", "-z", *folders], cwd=root, check=True,
                            capture_output=True).stdout.decode().split("\0")
    sources = [root / name for name in listed if name.endswith((".cpp", ".h", ".c"))]
    return sum(len(path.read_bytes().splitlines()) for path in sources)


def write_figures(root, results):
    commit = subprocess.run(["git", "log", "-1", "--format=%h%x09%cs"], cwd=root, check=True,
                            capture_output=True).stdout.decode().strip()
    folder = root / "build" / "figures"
    folder.mkdir(parents=True, exist_ok=True)
    rows = "".join(f"{row}\t{commit}\n" for row in tellings(root, results))
    (folder / "tellings").write_text(rows)


def compiled_of(session):
    """The results of the mutants that were tried and compile."""
    tried = [session.notices.of(m, session.digest(m)) for m in session.wanted]
    return [r for r in tried if r and r["outcome"] != "stillborn"]


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
