#!/usr/bin/python3
"""Makes small changes to the sources and counts those that the tests detect: see scripts/mutation."""

import argparse
import fcntl
import hashlib
import json
import pathlib
import queue
import signal
import sys
import threading
import time

import base
import folders
import matrix
import reach
import report
import results
import worker

LONG = 1.0
A_FEW_LOOKS = 3


def parsed_arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutation", description=__doc__)
    parser.add_argument("--folder", choices=folders.TESTS, default="framework/igd",
                        help="the folder to mutate (default: framework/igd)")
    parser.add_argument("--sample", type=int, default=600, metavar="N",
                        help="try N of all mutants (default: 600)")
    parser.add_argument("--seed", type=int, default=1, metavar="S",
                        help="seed of the sample; a larger sample includes the smaller ones "
                        "(default: 1)")
    parser.add_argument("--all", action="store_true", help="try every mutant")
    parser.add_argument("--only", metavar="ID", help="try this one, show its change and result")
    parser.add_argument("--survivors", action="store_true",
                        help="try the unexplained survivors again")
    parser.add_argument("--matrix", action="store_true",
                        help="run every test on each mutant, and count those that only one kills")
    parser.add_argument("--list", action="store_true", help="list the mutants, try none")
    parser.add_argument("--report", action="store_true",
                        help="only show the results so far of the chosen ones")
    parser.add_argument("--workers", type=int, default=2, metavar="N",
                        help="how many mutants at a time (default: 2)")
    parser.add_argument("--write-to", metavar="FILE", type=pathlib.Path,
                        help="keep writing the survivors with their changes, or the table of "
                        "--matrix, to a file")
    return parser.parse_args()


def chosen(every, options):
    """The sample does not change with what is written above a mutant, or where its file stands."""
    if options.only:
        named = [mutant for mutant in every if mutant.name == options.only]
        if not named:
            sys.exit(f"mutation: there is no mutant {options.only}; see --list")
        return named
    if options.all or options.sample >= len(every):
        return every
    lot = sorted(every, key=lambda m: hashlib.sha256(f"{options.seed}{m.key}".encode()).digest())
    picked = {mutant.key for mutant in lot[:options.sample]}
    return [mutant for mutant in every if mutant.key in picked]


class Session:
    """A run: the shared build, what is known, and the mutants that are wanted."""

    def __init__(self, options):
        self.options = options
        self.base = base.base_of_checkout()
        self.base.folder.mkdir(parents=True, exist_ok=True)
        self.lock_folder()
        self.base.configure()
        self.sources = folders.sources(self.base, options.folder)
        self.every = [mutant for source in self.sources for mutant in source.mutants]
        self.contents = {source.name: (self.base.source / source.name).read_bytes()
                         for source in self.sources}
        self.wanted = chosen(self.every, options)
        name = options.folder.replace("/", "-")
        self.results = results.Results(self.base.folder / f"results-{name}.jsonl")
        self.notices = matrix.Notices(self.base.folder / f"matrix-{name}.jsonl")
        self.reach_file = self.base.folder / f"reach-{name}.json"
        self.tests = self.base.tests(folders.is_asked(options.folder))
        self.reach = reach.Reach(self.sources)

    def lock_folder(self):
        self.lock = open(self.base.folder / "lock", "w", encoding="utf-8")
        try:
            fcntl.flock(self.lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit("mutation: another run works in build/mutation")

    def digest(self, mutant):
        return mutant.digest(self.contents[mutant.file])

    def diff(self, mutant):
        return mutant.diff(self.contents[mutant.file])

    def result_of(self, mutant):
        return self.results.of(mutant, self.digest(mutant))

    def survived(self):
        """Those of all mutants that survived and have no reason."""
        keys = self.results.survivors()
        return [m for m in self.every if m.key in keys and not report.is_explained(m)]

    def rest(self):
        if self.options.only:
            return self.wanted
        if self.options.survivors:
            return self.survived()
        if self.options.matrix:
            return [m for m in self.wanted if not self.notices.of(m, self.digest(m))]
        return [m for m in self.wanted if not self.result_of(m)]

    # ---- Before the first mutant ----

    def make_ready(self):
        """Builds, and runs every test once, unless the same was done before."""
        say("building")
        self.base.make(self.tests)
        self.workers = [worker.Worker(self.base, number + 1)
                        for number in range(self.options.workers)]
        state = self.state()
        if self.reach_file.exists():
            data = json.loads(self.reach_file.read_text())
            if data["state"] == state:
                self.reach.restore(data)
        if not self.reach.costs:
            self.reach.measure(self.workers[0], self.tests, say)
            self.reach_file.write_text(json.dumps({"state": state, **self.reach.as_data()}))
        for own in self.workers:
            own.costs = self.reach.costs

    def state(self):
        """Of the sources and of the tests."""
        whole = hashlib.sha256(repr(sorted(test.name for test in self.tests)).encode())
        for path in sorted(self.base.source.rglob("*")):
            inside = path.relative_to(self.base.source)
            if inside.parts[0] in ("framework", "platform", "tools", "tests") and path.is_file():
                if inside.parts[:2] != ("tests", "mutation"):
                    whole.update(str(inside).encode() + path.read_bytes())
        return whole.hexdigest()

    # ---- The mutants ----

    def write(self):
        if self.options.write_to:
            self.options.write_to.write_text(
                matrix.table(self) if self.options.matrix else report.survivors(self))

    def go(self):
        mutants = self.rest()
        say(f"{len(mutants)} of {len(self.wanted)} mutants to try")
        if mutants:
            self.make_ready()
            Run(self, mutants).go()


class Run:
    """Tries mutants on several workers."""

    def __init__(self, session, mutants):
        self.session = session
        self.lock = threading.Lock()
        self.started = time.monotonic()
        self.count = self.left = len(mutants)
        self.failures = []
        self.queue = queue.Queue()
        # A changed header compiles much: those are tried last.
        for mutant in sorted(mutants, key=lambda m: (m.file.endswith(".h"), m.key)):
            self.queue.put(mutant)

    def go(self):
        threads = [threading.Thread(target=self.work, args=(own,))
                   for own in self.session.workers]
        for thread in threads:
            thread.start()
        try:
            for thread in threads:
                thread.join()
        except KeyboardInterrupt:
            say("stopping when the mutants at hand are done")
            self.failures.append("stopped; the same command goes on from here")
            for thread in threads:
                thread.join()
        if self.failures:
            sys.exit("mutation: " + self.failures[0])

    def work(self, own):
        try:
            while not self.failures:
                self.attempt(own, self.queue.get_nowait())
        except queue.Empty:
            pass
        except (RuntimeError, OSError) as error:
            self.failures.append(str(error))

    def attempt(self, own, mutant):
        start = time.monotonic()
        own.put({mutant.file: mutant.applied_to(self.session.contents[mutant.file])}, ())
        reached = [t for t in self.session.tests if self.session.reach.enters(t, mutant)]
        result = {"key": mutant.key, "digest": self.session.digest(mutant), "name": mutant.name}
        ask = matrix.ask_all if self.session.options.matrix else self.ask_in_turn
        try:
            own.compile_sources()
        except worker.BuildFailure as failure:
            result.update(outcome="stillborn", test="", by=str(failure))
        else:
            result.update(ask(own, mutant, reached))
        result["seconds"] = round(time.monotonic() - start, 1)
        self.finish(mutant, result)

    def ask_in_turn(self, own, mutant, tests):
        """Until one notices; of a long test, what noticed others of this file is run first."""
        costs, known = self.session.reach.costs, self.session.results
        looks = []
        for test in known.order(tests, mutant.file, costs):
            first = test.only(known.killers_of(test, mutant.file))
            if first and costs[test.name].seconds > LONG:
                looks.append((test, first))
        looks = looks[:A_FEW_LOOKS]
        for test, extra in looks + [(t, ()) for t in known.order(tests, mutant.file, costs)]:
            try:
                outcome = own.run(test, costs[test.name], extra=extra)
            except worker.BuildFailure:
                return {"outcome": "killed", "test": test.name, "by": "does not compile"}
            if not outcome.passed:
                return {"outcome": "killed", "test": test.name, "by": outcome.by}
        return {"outcome": "survived", "test": "", "by": f"{len(tests)} tests entered it"}

    def finish(self, mutant, result):
        with self.lock:
            result["file"] = mutant.file.rsplit("/", 1)[-1]
            session = self.session
            (session.notices if session.options.matrix else session.results).add(result)
            self.left -= 1
            done = self.count - self.left
            say(f"[{done}/{self.count}, {time.monotonic() - self.started:.0f} s] {mutant.name} "
                f"{result['outcome']} {result['test']} {result['by']} ({result['seconds']} s)")
            if done % 25 == 0:
                session.write()


def say(text):
    print(text, flush=True)


def main():
    options = parsed_arguments()
    session = Session(options)
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    if options.only:
        say(session.diff(session.wanted[0]))
    if options.list:
        for mutant in session.wanted:
            say(f"{mutant.name}\n{session.diff(mutant)}")
        return
    if not options.report:
        session.go()
    session.write()
    if options.matrix:
        say(matrix.table(session))
        if options.folder == "framework/igd" and not options.only:
            matrix.write_figures(session.base.root, matrix.compiled_of(session))
    elif not options.only:
        report.show(session)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("mutation: stopped")
