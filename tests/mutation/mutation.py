#!/usr/bin/python3
"""Changes the library in small ways and sees whether the tests notice: see scripts/mutation."""

import argparse
import collections
import fcntl
import hashlib
import json
import pathlib
import queue
import random
import re
import signal
import sys
import threading
import time

import mutants
import worker

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "build" / "mutation"
RESULTS = FOLDER / "results.jsonl"
REASONS = ROOT / "tests" / "mutation" / "survivors.md"
LIBRARY = ROOT / "framework" / "igd"
WORKERS = 2


def parsed_arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutation", description=__doc__)
    parser.add_argument("--sample", type=int, default=600, metavar="N",
                        help="try N of all mutants (default: 600)")
    parser.add_argument("--seed", type=int, default=1, metavar="S",
                        help="which N; a larger sample has the smaller ones in it (default: 1)")
    parser.add_argument("--all", action="store_true", help="try every mutant")
    parser.add_argument("--only", metavar="ID", help="try this one, show its change and its end")
    parser.add_argument("--survivors", action="store_true",
                        help="of those chosen, try the ones again that survived and have no reason")
    parser.add_argument("--list", action="store_true", help="list the mutants, try none")
    parser.add_argument("--report", action="store_true",
                        help="only show the results that there are of those chosen")
    return parser.parse_args()


# ---- The mutants ----

def include_arguments():
    """As the library's objects are compiled; the version's header is made by the build."""
    generated = FOLDER / "version"
    generated.mkdir(parents=True, exist_ok=True)
    (generated / "igd_version.h").write_text(
        (LIBRARY / "inc" / "igd_version.h.in").read_text().replace("@", "0"))
    folders = (LIBRARY, LIBRARY / "inc", generated, ROOT / "platform" / "inc")
    return ["-xc++", "-std=c++17"] + [f"-I{folder}" for folder in folders]


def all_mutants():
    arguments = include_arguments()
    found = []
    for path in sorted([*LIBRARY.glob("*.cpp"), *LIBRARY.glob("*.h")]):
        name = str(path.relative_to(ROOT))
        found += mutants.Finder(path, name, arguments).mutants()
    return found


def chosen(every, options):
    if options.only:
        named = [mutant for mutant in every if mutant.name == options.only]
        if not named:
            sys.exit(f"mutation: there is no mutant {options.only}; see --list")
        return named
    if options.all or options.sample >= len(every):
        return every
    numbers = list(range(len(every)))
    random.Random(options.seed).shuffle(numbers)
    return [every[number] for number in sorted(numbers[:options.sample])]


def digest(mutant):
    """Of the changed source: what was found out about another one does not count."""
    changed = mutant.applied_to((ROOT / mutant.file).read_bytes())
    return hashlib.sha256(changed).hexdigest()[:16]


# ---- The results ----

def earlier_results():
    results = {}
    if RESULTS.exists():
        for line in RESULTS.read_text().splitlines():
            result = json.loads(line)
            results[result["name"], result["digest"]] = result
    return results


def results_of(wanted):
    earlier = earlier_results()
    return {m: earlier[m.name, digest(m)] for m in wanted if (m.name, digest(m)) in earlier}


class Run:
    """Tries mutants on several workers; files wait in a queue, so that one stays with a worker."""

    def __init__(self, wanted, thorough=True):
        self.thorough = thorough
        self.lock = threading.Lock()
        self.started = time.monotonic()
        self.left = self.count = len(wanted)
        self.failures = []
        by_file = collections.defaultdict(list)
        for mutant in wanted:
            by_file[mutant.file].append(mutant)
        self.files = queue.Queue()
        # A changed header compiles nearly everything: those are tried last.
        for file in sorted(by_file, key=lambda name: (name.endswith(".h"), -len(by_file[name]))):
            self.files.put(by_file[file])

    def go(self):
        with open(FOLDER / "lock", "w", encoding="utf-8") as lock:
            try:
                fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            except BlockingIOError:
                sys.exit("mutation: another run works in build/mutation")
            self.start_workers()

    def start_workers(self):
        folders = worker.worker_folders(ROOT, min(WORKERS, self.files.qsize()))
        threads = [threading.Thread(target=self.work, args=(folder,)) for folder in folders]
        for thread in threads:
            thread.start()
        try:
            for thread in threads:
                thread.join()
        except KeyboardInterrupt:
            print("stopping when the mutants at hand are done", flush=True)
            self.failures.append("stopped; the same command goes on from here")
            for thread in threads:
                thread.join()
        if self.failures:
            sys.exit("mutation: " + self.failures[0])

    def work(self, folder):
        try:
            own = worker.Worker(ROOT, folder)
            own.prepare()
            if self.thorough:
                own.try_tests()
            while not self.failures:
                try:
                    group = self.files.get_nowait()
                except queue.Empty:
                    break
                for mutant in group:
                    if not self.failures:
                        self.attempt(own, mutant)
            own.restore()
        except (RuntimeError, OSError) as error:
            self.failures.append(str(error))

    def attempt(self, own, mutant):
        start = time.monotonic()
        outcome, by = own.attempt(mutant)
        result = {"name": mutant.name, "digest": digest(mutant), "outcome": outcome, "by": by,
                  "seconds": round(time.monotonic() - start, 1)}
        with self.lock:
            with open(RESULTS, "a", encoding="utf-8") as file:
                file.write(json.dumps(result) + "\n")
            self.left -= 1
            done = self.count - self.left
            print(f"[{done}/{self.count}, {time.monotonic() - self.started:.0f} s] "
                  f"{mutant.name} {outcome} {by}", flush=True)


# ---- The report ----

def explained():
    """The names in the list of changes that no test can notice."""
    return set(re.findall(r"^- (\S+): ", REASONS.read_text(), re.MULTILINE))


def report(every, wanted, results):
    row = "{:<36}{:>8}{:>8}{:>10}{:>11}".format
    counts = collections.defaultdict(collections.Counter)
    for mutant, result in results.items():
        counts[mutant.file][result["outcome"]] += 1
    print(row("file", "mutants", "killed", "survived", "stillborn"))
    total = collections.Counter()
    for file in sorted(counts):
        total.update(counts[file])
        print(row(file, sum(counts[file].values()), *columns(counts[file])))
    print(row("all", sum(total.values()), *columns(total)))
    show_survivors(results)
    for name in sorted(explained() - {mutant.name for mutant in every}):
        print(f"\n{name} stands in {REASONS.name}, and is no mutant (any more)")
    alive = total["killed"] + total["survived"]
    print(f"\n{len(wanted)} of {len(every)} mutants chosen, {len(results)} tried, {alive} compiled")
    if alive:
        print(f"killed: {total['killed']} of {alive}, {100 * total['killed'] / alive:.1f} %")


def columns(counts):
    return counts["killed"], counts["survived"], counts["stillborn"]


def show_survivors(results):
    listed = explained()
    for mutant, result in results.items():
        if result["outcome"] != "survived":
            continue
        note = "its reason is listed" if mutant.name in listed else "NOT EXPLAINED"
        print(f"\n{mutant.name}  ({note})")
        print(mutant.diff((ROOT / mutant.file).read_bytes()))


def main():
    options = parsed_arguments()
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    FOLDER.mkdir(parents=True, exist_ok=True)
    every = all_mutants()
    wanted = chosen(every, options)
    if options.list:
        for mutant in wanted:
            print(mutant.name)
            print(mutant.diff((ROOT / mutant.file).read_bytes()))
        return
    if options.only:
        print(wanted[0].diff((ROOT / wanted[0].file).read_bytes()), flush=True)
        Run(wanted, thorough=False).go()
        return
    if not options.report:
        results = results_of(wanted)
        listed = explained()
        again = [m for m in wanted if m in results and results[m]["outcome"] == "survived"
                 and m.name not in listed]
        rest = again if options.survivors else [m for m in wanted if m not in results]
        print(f"{len(rest)} of {len(wanted)} mutants to try", flush=True)
        if rest:
            Run(rest).go()
    report(every, wanted, results_of(wanted))


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("mutation: stopped")
