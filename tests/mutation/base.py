"""A copy of the sources and one build of it, which all workers share and none changes."""

import collections
import filecmp
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

import suite

# The system's own Python, which sees what scripts/setup installed, and no cache of compilers.
ENVIRONMENT = {**os.environ, "PATH": "/usr/bin:/bin", "LC_ALL": "C", "CCACHE_DISABLE": "1"}


class Base:
    def __init__(self, root):
        self.root = root
        self.folder = root / "build" / "mutation"
        self.source = self.folder / "source"
        self.build = self.source / "build" / "mutation"
        self.changed = True

    # ---- Preparation ----

    def copy(self):
        """Brings the copy of the sources up to date. Says whether anything had changed."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others",
                                 "--exclude-standard"], cwd=self.root, check=True,
                                capture_output=True).stdout.decode()
        names = {name for name in listed.split("\0") if name and (self.root / name).is_file()}
        changed = False
        for name in names:
            copy = self.source / name
            if not copy.exists() or not filecmp.cmp(self.root / name, copy, shallow=False):
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(self.root / name, copy)
                shutil.copymode(self.root / name, copy)
                changed = True
        for copy in list(self.source.rglob("*")):
            inside = copy.relative_to(self.source)
            if inside.parts[0] != "build" and copy.is_file() and str(inside) not in names:
                copy.unlink()
                changed = True
        return changed

    def configure(self):
        if self.copy() or not (self.build / "build.ninja").exists():
            self.run(["cmake", "--preset", "mutation"], self.source)
        commands = json.loads((self.build / "compile_commands.json").read_text())
        self.compilations = collections.defaultdict(list)
        for command in commands:
            self.compilations[command["file"]].append(shlex.split(command["command"]))

    def make(self, tests):
        """Builds what the tests run."""
        programs = sorted({program for test in tests for program in self.programs_of(test)})
        self.run(["ninja", "-C", str(self.build), *programs], self.source)
        self.steps = {program: self.steps_of(program) for program in programs}
        self.read_dependencies()

    def run(self, command, folder):
        log = self.folder / "log"
        with open(log, "wb") as output:
            code = subprocess.run(command, cwd=folder, env=ENVIRONMENT, stdout=output,
                                  stderr=subprocess.STDOUT, check=False).returncode
        if code != 0:
            raise RuntimeError(f"{' '.join(command)} failed: {log}")

    # ---- What there is ----

    def tests(self, wanted):
        """CTest's tests whose names match, each as a whole."""
        listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=self.build, check=True,
                                env=ENVIRONMENT, capture_output=True).stdout
        commands = {}
        for file in self.build.rglob("CTestTestfile.cmake"):
            text = file.read_text()
            folder = re.search(r"^# Source directory: (.*)", text, re.MULTILINE).group(1)
            if not pathlib.Path(folder, "CMakeLists.txt").exists():
                continue  # of a folder that was moved
            for name, command in re.findall(r"^add_test\(\[=\[(.*?)\]=\] (.*)\)$", text,
                                            re.MULTILINE):
                commands[name] = shlex.split(command)
        tests = []
        for test in json.loads(listed)["tests"]:
            if wanted(test["name"]):
                properties = {p["name"]: p["value"] for p in test["properties"]}
                tests.append(suite.Test(test["name"], commands[test["name"]],
                                        dict(pair.split("=", 1) for pair in
                                             properties.get("ENVIRONMENT", [])),
                                        properties["WORKING_DIRECTORY"]))
        return tests

    def programs_of(self, test):
        """The names, as in bin/, of the programs in a test's command and environment."""
        words = [*test.command, *test.environment.values()]
        return sorted({f"bin/{name}" for word in words for name in
                       re.findall(re.escape(str(self.build)) + r"/bin/(\w+)", word)})

    def steps_of(self, program):
        """The commands that join objects into it, in their order, with what each makes."""
        commands = subprocess.run(["ninja", "-t", "commands", program], cwd=self.build, check=True,
                                  capture_output=True).stdout.decode().splitlines()
        steps = []
        for command in commands:
            made = re.search(r"ar\S* qc (\S+)|(?: -o )(\S+)", command)
            if made and " -c " not in command and command.startswith(": && "):
                steps.append((made.group(1) or made.group(2), command))
        return steps

    def read_dependencies(self):
        """What each object was compiled from."""
        self.sources_of = {}
        text = subprocess.run(["ninja", "-t", "deps"], cwd=self.build, check=True,
                              capture_output=True).stdout.decode()
        for entry in text.split("\n\n"):
            lines = entry.split("\n")
            if ": #deps" in lines[0]:
                self.sources_of[lines[0].split(":")[0]] = {line.strip() for line in lines[1:]}

    def objects_with(self, path):
        """The objects that a change of this source or header reaches."""
        return {made for made, sources in self.sources_of.items() if str(path) in sources}

    def compilation_of(self, made):
        """The command that makes an object, without its output."""
        for source in self.sources_of[made]:
            for command in self.compilations.get(source, []):
                at = command.index("-o")
                if command[at + 1] == made:
                    return command[:at] + command[at + 2:]
        return None

    def arguments_for(self, path):
        """How clang's library reads a source; a header, as one of the sources that include it."""
        commands = self.compilations.get(str(path))
        if not commands:
            folder = str(path.parent)
            near = [c for f, cs in self.compilations.items() if f.startswith(folder) for c in cs]
            commands = near or next(iter(self.compilations.values()))
        kept = [word for word in commands[0] if word.startswith(("-I", "-D", "-std"))]
        return ["-xc++", *kept, *system_folders(commands[0])]


def system_folders(command):
    return [word for flag, folder in zip(command, command[1:]) if flag == "-isystem"
            for word in (flag, folder)]


def base_of_checkout():
    return Base(pathlib.Path(__file__).resolve().parents[2])
