"""What is known of mutants, and which test to ask first."""

import collections
import json
import re

A_FEW = 6


class Results:
    """One line a mutant tried; the last one counts."""

    def __init__(self, file):
        self.file = file
        self.lines = []
        self.latest = {}
        self.kills = collections.Counter()
        self.kills_in = collections.defaultdict(collections.Counter)
        self.killers = collections.defaultdict(collections.Counter)
        if file.exists():
            for line in file.read_text().splitlines():
                self.note(json.loads(line))

    def note(self, result):
        self.lines.append(result)
        self.latest[result["key"], result["digest"]] = result
        if result["outcome"] == "killed":
            self.kills[result["test"]] += 1
            self.kills_in[result["file"]][result["test"]] += 1
            self.killers[result["file"], result["test"]][result["by"]] += 1

    def add(self, result):
        self.note(result)
        with open(self.file, "a", encoding="utf-8") as file:
            file.write(json.dumps(result) + "\n")

    def of(self, mutant, digest):
        return self.latest.get((mutant.key, digest))

    def survivors(self):
        """The keys of changes that survived when they were tried last, in whatever surroundings."""
        last = {result["key"]: result["outcome"] for result in self.lines}
        return {key for key, outcome in last.items() if outcome == "survived"}

    def killers_of(self, test, file):
        """The parts of a test that killed most in a file, for a first look at them alone."""
        return [by for by, _ in self.killers[file.rsplit("/", 1)[-1], test.name].most_common(
            A_FEW)]

    def order(self, tests, file, costs):
        """The likeliest to kill for its time comes first."""
        total = sum(self.kills.values())
        own = self.kills_in[file.rsplit("/", 1)[-1]]
        in_file = sum(own.values())

        def chance(test):
            everywhere = (self.kills[test.name] + 1) / (total + len(tests))
            alike = 2 if likeness(test.name, file) else 1
            return (own[test.name] + 2 * alike * everywhere) / (in_file + 4)

        return sorted(tests, key=lambda t: (costs[t.name].seconds + 0.05) / chance(t))


def likeness(test, file):
    """Whether a word of the file's name stands in that of the test: wan_keep.cpp, igdctl.wan_set."""
    words = set(re.findall("[a-z]+", file.rsplit("/", 2)[-2] + " " + file.rsplit("/", 1)[-1]))
    return bool(words & set(re.findall("[a-z]+", test.lower())) - {"igdctl", "cpp", "tests", "h"})
