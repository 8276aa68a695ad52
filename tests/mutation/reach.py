"""Which blocks of the sources each test enters. What it does not enter it cannot notice."""

import bisect
import pathlib

import suite

HEADER = pathlib.Path(__file__).resolve().parent / "reach.h"


class Reach:
    """`blocks` by the name of a source: where each is, and its number among all."""

    def __init__(self, finders):
        self.blocks = {}
        self.count = 0
        self.entered = {}
        self.costs = {}
        for finder in finders:
            if finder.name.endswith(".cpp"):  # a test that includes a header has its own code of it
                numbers = range(self.count, self.count + len(finder.blocks))
                self.blocks[finder.name] = list(zip(sorted(finder.blocks), numbers))
                self.count += len(finder.blocks)

    def instrumented(self, name, source):
        """The source with a call after the opening brace of each block."""
        pieces, last = [], 0
        for (start, _), number in self.blocks[name]:
            if source[start:start + 1] != b"{":  # "= default" has a body, but nowhere to put a call
                continue
            pieces += [source[last:start + 1], b" ::mutation_reach::enter(%d);" % number]
            last = start + 1
        return b"".join([*pieces, source[last:]])

    def measure(self, worker, tests, say):
        """Runs each test once: it has to pass, and we learn what it enters and costs."""
        file = worker.folder / "reach"
        size = self.count + 1
        file.write_bytes(bytes(size))
        source = worker.base.source
        worker.put({name: self.instrumented(name, (source / name).read_bytes())
                    for name, blocks in self.blocks.items() if blocks},
                   [f'-DMUTATION_REACH="{file}"', f"-DMUTATION_BLOCKS={size}",
                    "-include", str(HEADER)])
        for test in tests:
            with open(file, "r+b") as map_:
                map_.write(bytes(size))
            outcome = worker.run(test, suite.Cost(), keep_going=True)
            if not outcome.passed:
                log = worker.folder / "log"
                log.write_text(outcome.output)
                raise RuntimeError(f"{test.name} fails without a mutant: {log}")
            entered = file.read_bytes()
            self.entered[test.name] = {n for n in range(self.count) if entered[n]}
            self.costs[test.name] = outcome.cost
            say(f"{test.name}: {outcome.cost.seconds:.1f} s, "
                f"{len(self.entered[test.name])} of {self.count} blocks")
        worker.put({}, ())

    def block_of(self, mutant):
        """The innermost block around a mutant; None outside of all."""
        blocks = self.blocks.get(mutant.file, [])
        at = bisect.bisect_left(blocks, ((mutant.start, 0), 0))
        for (start, end), number in reversed(blocks[:at]):
            if start < mutant.start < end:
                return number
        return None

    def enters(self, test, mutant):
        block = self.block_of(mutant)
        return block is None or block in self.entered[test.name]

    # ---- Kept between runs ----

    def as_data(self):
        return {"entered": {name: sorted(blocks) for name, blocks in self.entered.items()},
                "costs": {name: [cost.seconds, cost.work] for name, cost in self.costs.items()}}

    def restore(self, data):
        self.entered = {name: set(blocks) for name, blocks in data["entered"].items()}
        self.costs = {name: suite.Cost(*cost) for name, cost in data["costs"].items()}
