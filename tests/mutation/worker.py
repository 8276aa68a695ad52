"""What differs from the shared build under one mutant: an object or a few, and what they go into."""

import json
import os
import re
import shutil
import subprocess

import base
import suite

SECONDS_TO_BUILD = 300


class BuildFailure(Exception):
    """The message is the compiler's or the linker's."""


class Worker:
    """Compiles and links changed sources into `folder`; the shared build stays as it is."""

    def __init__(self, shared, number):
        self.base = shared
        self.costs = {}
        self.folder = shared.folder / str(number)
        self.temporary = self.folder / "tmp"
        self.overlay = self.folder / "overlay.json"
        self.libraries = self.folder / "lib"
        shutil.rmtree(self.folder, ignore_errors=True)
        for name in ("lib", "bin", "obj", "changed"):
            (self.folder / name).mkdir(parents=True)
        self.put({}, ())

    # ---- The change ----

    def put(self, contents, arguments):
        """`contents` by the names of sources, which are compiled with further arguments."""
        self.contents = contents
        self.arguments = arguments
        self.affected = set()
        self.made = {}
        self.linked = set()
        roots = []
        for number, (name, content) in enumerate(contents.items()):
            changed = self.folder / "changed" / str(number)
            changed.write_bytes(content)
            path = self.base.source / name
            self.affected |= self.base.objects_with(path)
            roots.append({"name": str(path), "type": "file", "external-contents": str(changed)})
        self.overlay.write_text(json.dumps(
            {"version": 0, "use-external-names": False, "roots": roots}))
        for library in (self.base.build / "lib").glob("*.so*"):
            self.link_to(library)

    def link_to(self, library):
        """Its short names lead to its full one, which leads to the shared build or is our own."""
        own = self.libraries / library.name
        target = os.readlink(library) if library.is_symlink() else str(library)
        if own.is_symlink() and os.readlink(own) == target:
            return
        own.unlink(missing_ok=True)
        own.symlink_to(target)

    # ---- Building ----

    def compile(self, made):
        """Compiles an object anew, once for each change."""
        if made in self.made:
            return
        own = self.folder / "obj" / made.replace("/", "_")
        command = [*self.base.compilation_of(made), *self.arguments, "-w",
                   "-ivfsoverlay", str(self.overlay), "-o", str(own)]
        self.build(command)
        self.made[made] = str(own)

    def compile_sources(self):
        """The objects of the changed sources themselves, or of one that includes a header."""
        own = [made for made in self.affected if any(
            f"/{name.rsplit('/', 1)[-1]}.o" in f"/{made}" for name in self.contents)]
        for made in own or sorted(self.affected - in_tests(self.affected))[:1]:
            self.compile(made)

    def prepare(self, program):
        """Links a program anew, if the change reaches it, and the shared libraries it runs with."""
        for output, command in self.base.steps.get(program, ()):
            if output in self.linked:
                continue
            words = set(command.split())
            for made in words & self.affected:
                self.compile(made)
            if words & self.made.keys():
                self.link(output, command, words)

    def link(self, output, command, words):
        """Programs find their shared libraries as they start, and are not linked anew for them."""
        own = self.folder / ("lib" if output.startswith("lib/") else "bin") / output.split("/")[-1]
        own.unlink(missing_ok=True)
        for made in words & self.made.keys():
            command = replaced(command, made, self.made[made])
        self.build(["sh", "-c", replaced(command, output, str(own))])
        self.linked.add(output)
        if ".so" not in output:
            self.made[output] = str(own)

    def build(self, command):
        try:
            done = subprocess.run(command, cwd=self.base.build, env=base.ENVIRONMENT,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT, timeout=SECONDS_TO_BUILD, check=False)
        except subprocess.TimeoutExpired as expired:
            raise BuildFailure("(time limit)") from expired
        if done.returncode != 0:
            text = done.stdout.decode(errors="replace")
            found = re.search(r"error: (.*)", text)
            raise BuildFailure(found.group(1) if found else text[-200:])

    # ---- Running ----

    def run(self, test, cost=suite.Cost(), **options):
        """Runs a test on the change; raises BuildFailure when it cannot be built."""
        programs = self.base.programs_of(test)
        for program in programs:
            self.prepare(program)
        environment = {**base.ENVIRONMENT, "LD_LIBRARY_PATH": str(self.libraries)}
        own = {str(self.base.build / p): self.made[p] for p in programs if p in self.made}

        def substitute(word):
            for program, path in own.items():
                word = re.sub(re.escape(program) + r"(?!\w)", path, word)
            return word

        return suite.run(test, environment, self.temporary, cost, substitute, **options)


def in_tests(objects):
    return {made for made in objects if made.startswith("tests/")}


def replaced(command, word, other):
    return re.sub(rf"(?<=\s){re.escape(word)}(?=\s|$)", other, command)
