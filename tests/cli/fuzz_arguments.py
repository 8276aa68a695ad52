#!/usr/bin/env python3
"""Gives igdctl arguments and descriptions that nobody would, and holds that it stays well-behaved.

Whatever it is given, igdctl ends by itself with one of its exit codes, prints no control character
but line ends, and has changed nothing unless it ends with 0, and never with --dry-run.

Each run has a fresh copy of a prepared store in a folder of its own, so a vector that fails does so
alone. IGDCTL and EDIT_TREE name the programs; ctest sets them.
"""

import argparse
import collections
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import unicodedata

import fuzz_inputs

EXIT_CODES = range(11)
SECONDS_PER_RUN = 10
WAN = "InternetGatewayDevice.WANDevice.1.WANConnectionDevice"
Run = collections.namedtuple("Run", "code output errors")


class Sandbox:
    """Prepared stores, and the folder in which igdctl is run with a copy of one of them."""

    def __init__(self, folder, program, edit_tree):
        self.folder, self.program, self.edit_tree = pathlib.Path(folder), program, edit_tree
        self.case = self.folder / "case"
        self.prepared = {}
        self.meanings = {}
        for name, prepare in (("plain", self.prepare_plain), ("pending", self.prepare_pending),
                              ("hostile", self.prepare_hostile)):
            self.start_anew(self.prepared.get("plain"))
            prepare()
            self.prepared[name] = self.folder / name
            shutil.copytree(self.case, self.prepared[name])
            self.meanings[name] = self.meaning()

    def prepare_plain(self):
        self.edit("create", "Internet", "100", "INTERNET", "LAN1,LAN2", "-")
        self.edit("create", "Television", "200", "OTHER", "-", "LAN3")
        self.edit("create", "Management", "46", "TR069", "-", "-")
        self.must("store", "checkpoint", "before")
        self.must("route", "add", "203.0.113.128/25", "--connection", "Internet")
        self.must("store", "export", "dump.csv")
        (self.case / "wan.json").write_text('{"name": "Guests", "mode": "dhcp", "vlan": 300}')
        (self.case / "password").write_text("correct-horse\n")
        (self.case / "folder").mkdir()

    def prepare_pending(self):
        self.must("route", "add", "198.51.100.0/24", "--gateway", "192.0.2.1", "--confirm", "86400")

    def prepare_hostile(self):
        self.edit("set", f"{WAN}.2.WANIPConnection.2.Name", "\x1b[31mred\x07\n\t\u009b31m")
        bridge = "InternetGatewayDevice.Layer2Bridging.Bridge.3."
        self.edit("set", bridge + "BridgeName", "\x1b]0;t\x07")
        self.edit("set", bridge + "Port.1.PortInterface", "\x01\x7f")

    def start_anew(self, prepared):
        shutil.rmtree(self.case, ignore_errors=True)
        if prepared:
            shutil.copytree(prepared, self.case)
        else:
            self.case.mkdir()

    def environment(self):
        home = str(self.folder)
        return dict(os.environ, HOME=home, XDG_STATE_HOME=home, TMPDIR=home, LC_ALL="C.UTF-8",
                    IGD_STORE=str(self.case / "gateway.db"))

    def run(self, vector, given=b""):
        """Runs igdctl without a terminal. @throws subprocess.TimeoutExpired when it does not end"""
        done = subprocess.run([self.program, *vector], input=given, capture_output=True,
                              cwd=self.case, env=self.environment(), timeout=SECONDS_PER_RUN,
                              start_new_session=True, check=False)
        return Run(done.returncode, done.stdout, done.stderr)

    def must(self, *words):
        run = self.run([word.encode() for word in words])
        if run.code != 0:
            sys.exit(f"cannot prepare: {words}: {run}")
        return run.output

    def edit(self, *words):
        subprocess.run([self.edit_tree, *words], env=self.environment(), check=True)

    @staticmethod
    def kept_bytes(folder):
        """What a store keeps: a commit changes its file or the log beside it."""
        files = (folder / "gateway.db", folder / "gateway.db-wal")
        return [file.read_bytes() if file.is_file() else b"" for file in files]

    def meaning(self):
        return self.must("store", "export"), self.must("--json", "store", "history")

    def has_other_bytes(self, name):
        return self.kept_bytes(self.case) != self.kept_bytes(self.prepared[name])

    def is_changed(self, name):
        """Other bytes can still be the same tree: SQLite may move what it keeps."""
        return self.has_other_bytes(name) and self.meaning() != self.meanings[name]


def control_character(text):
    """The first character that a terminal could obey, or None."""
    for character in text.decode("utf-8", "replace"):
        if character != "\n" and unicodedata.category(character) == "Cc":
            return character
    return None


def prints_values_as_they_are(vector):
    return b"export" in vector


def faults(sandbox, name, vector, run):
    """What igdctl did wrong, as sentences."""
    found = []
    if run.code not in EXIT_CODES:
        found.append(f"it ended with {run.code}")
    if b"Sanitizer" in run.errors or b"runtime error:" in run.errors:
        found.append("a sanitizer found something")
    for stream, text in (("output", run.output), ("messages", run.errors)):
        character = control_character(text)
        if character and not (name == "hostile" and prints_values_as_they_are(vector)):
            found.append(f"control character {character!r} in its {stream}")
    if (run.code != 0 or b"--dry-run" in vector) and sandbox.is_changed(name):
        found.append("it changed the store")
    return found


def faults_of_case(sandbox, name, vector, given, tally):
    sandbox.start_anew(sandbox.prepared[name])
    try:
        run = sandbox.run(vector, given)
    except subprocess.TimeoutExpired:
        return [f"it did not end in {SECONDS_PER_RUN} seconds"], None
    tally[run.code] += 1
    tally["changed"] += sandbox.has_other_bytes(name)
    return faults(sandbox, name, vector, run), run


def descriptions_shown(sandbox):
    sandbox.start_anew(sandbox.prepared["plain"])
    shown = {name: json.loads(sandbox.must("--json", "wan", "show", name))["data"]
             for name in ("Internet", "Television", "Management")}
    guests = dict(shown["Internet"], name="Guests", vlan=300, bind_lan=["LAN4"])
    shown["Guests"] = {key: guests[key] for key in guests if key not in ("path", "id", "bridge")}
    return shown


def cases(sandbox, chance, rounds):
    """Rounds of argument vectors and as many of descriptions, each with the store it is run on."""
    shown = descriptions_shown(sandbox)
    for _ in range(rounds):
        name = chance.choice(["plain", "plain", "pending", "hostile"])
        yield name, fuzz_inputs.argument_vector(chance), b""
        yield ("plain", *fuzz_inputs.description_case(chance, shown))


def short(thing):
    text = repr(thing)
    return text if len(text) <= 2000 else f"{text[:2000]}... ({len(text)} characters)"


def fuzz(sandbox, seed, rounds):
    tally = collections.Counter()
    failures = 0
    for number, (name, vector, given) in enumerate(cases(sandbox, random.Random(seed), rounds)):
        found, run = faults_of_case(sandbox, name, vector, given, tally)
        if found:
            failures += 1
            print(f"--seed {seed}, run {number}, store {name}: {'; '.join(found)}\n"
                  f"  igdctl {short(vector)}\n  given {short(given)}\n  {short(run)}")
    changed = tally.pop("changed")
    print(f"{sum(tally.values())} runs, {changed} of them changed the store; "
          f"by exit code: {dict(sorted(tally.items()))}")
    if changed == 0 or tally[2] == 0:
        sys.exit("not a fair trial: nothing was changed, or nothing refused")
    return failures


# Stand-ins for igdctl that misbehave, in words of the shell, and what is to be said of each.
MISBEHAVED = [
    ("set_name; exit 1", [], "it changed the store"),
    ("set_name", [b"--dry-run"], "it changed the store"),
    ("kill -SEGV $$", [], "it ended with -11"),
    ("exit 11", [], "it ended with 11"),
    (r"printf '\033[31m'", [], "control character '\\x1b' in its output"),
    (r"printf '\302\233' >&2", [], "control character '\\x9b' in its messages"),
    ("echo x: runtime error: y >&2", [], "a sanitizer found something"),
]


def selftest(sandbox):
    """The number of misbehaviours that went unseen, a well-behaved stand-in counted with them."""
    igdctl, wrong = sandbox.program, 0
    set_name = f'set_name() {{ "{igdctl}" -q tree set Layer2Bridging.Bridge.1.BridgeName lan; }}'
    for body, vector, fault in MISBEHAVED + [("exit 3", [], None), ("set_name", [], None)]:
        stand_in = sandbox.folder / "stand-in"
        stand_in.write_text(f"#!/bin/sh\n{set_name}\n{body}\n")
        stand_in.chmod(0o700)
        sandbox.start_anew(sandbox.prepared["plain"])
        sandbox.program = str(stand_in)
        run = sandbox.run(vector)
        sandbox.program = igdctl
        found = faults(sandbox, "plain", vector, run)
        if found != ([fault] if fault else []):
            wrong += 1
            print(f"{body}: {fault} expected, {found} found")
    return wrong


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seed", type=int, default=20)
    parser.add_argument("--rounds", type=int, default=180)
    parser.add_argument("--selftest", action="store_true", help="try the checks themselves")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        sandbox = Sandbox(folder, os.environ["IGDCTL"], os.environ["EDIT_TREE"])
        failures = selftest(sandbox) if options.selftest else fuzz(sandbox, options.seed,
                                                                   options.rounds)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
