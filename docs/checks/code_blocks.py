#!/usr/bin/env python3
"""Compiles or runs every code block of the documents.

  cpp, c   a whole program is built against the headers and libraries, and run; a fragment is
           compiled as the body of a function
  cmake    is configured and built as a project, against the tree that README.md installs
  json     is read
  sh, and indented blocks: each command is run, or stands in commands.txt with a reason; those
           with igdctl one after another, in a folder and on a store that are the document's own
  text     is for people

usage: docs/checks/code_blocks.py <build folder> [document]...
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from markdown import ROOT, blocks_of, documents

INCLUDES = ["framework/igd/inc", "platform/inc", "platform/host/inc"]
PLAIN_PROGRAM = "#include <igd_api.h>\nint main() { return 0; }\n"


class Fault(Exception):
    pass


def declared_commands():
    """The commands that are not run. Each group needs a line with its reason above it."""
    commands, reason = set(), False
    for line in (ROOT / "docs/checks/commands.txt").read_text(encoding="utf-8").split("\n"):
        if not line:
            reason = False
        elif line.startswith("#"):
            reason = True
        elif reason:
            commands.add(line)
        else:
            raise SystemExit(f"commands.txt: no reason for: {line}")
    return commands


def commands_in(text):
    """Commands of a shell block: lines joined where they go on, without comments."""
    joined = re.sub(r"\s*\\\n\s*", " ", text)
    lines = (re.sub(r"(^|\s+)#\s.*$", "", line).strip() for line in joined.split("\n"))
    return [line for line in lines if line]


class Checker:
    def __init__(self, build, folder):
        self.build = pathlib.Path(build).resolve()
        self.folder = pathlib.Path(folder)
        self.declared = declared_commands()
        self.used = set()
        self.counts = {}
        self.environment = dict(
            os.environ, HOME=folder, IGD_STORE=":memory:",
            PATH=f"{self.build}/bin:{os.environ['PATH']}",
            CMAKE_PREFIX_PATH=str(self.folder / "igd"))

    def run(self, *command, cwd=ROOT):
        done = subprocess.run(command, cwd=cwd, env=self.environment, text=True, timeout=1200,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        if done.returncode != 0:
            raise Fault(f"{' '.join(map(str, command))}: {done.returncode}\n{done.stdout}")
        return done.stdout

    def compile(self, source, compiler, *arguments):
        headers = [f"-I{ROOT / each}" for each in INCLUDES]
        headers.append(f"-I{self.build}/framework/igd/inc")
        self.run(*compiler, "-Wall", "-Wextra", *headers, str(source), *arguments)

    def check_source(self, block, suffix, compiler):
        source = self.folder / f"block{suffix}"
        if not re.search(r"\bmain\(", block.text):
            source.write_text('#include "fragment.h"\nint fragment();\n'
                              f"int fragment() {{\n{block.text}\nreturn 0;\n}}\n")
            self.compile(source, compiler, "-fsyntax-only", "-Wno-unused",
                         f"-I{ROOT}/docs/checks")
            return "compiled"
        source.write_text(block.text)
        program = str(self.folder / "block")
        self.compile(source, compiler, "-Werror", f"-L{self.build}/lib", "-ligd", "-lcommon_util",
                     f"-Wl,-rpath,{self.build}/lib", "-o", program)
        with tempfile.TemporaryDirectory(dir=self.folder) as place:
            self.environment["IGD_STORE"] = f"{place}/gateway.db"
            self.run(program, cwd=place)
        return "compiled and run"

    def check_cpp(self, block):
        return self.check_source(block, ".cpp", ["g++", "-std=c++17"])

    def check_c(self, block):
        return self.check_source(block, ".c", ["gcc", "-std=c99", "-pedantic"])

    def check_cmake(self, block):
        project = self.folder / "project"
        project.mkdir(exist_ok=True)
        (project / "CMakeLists.txt").write_text(
            f"cmake_minimum_required(VERSION 3.25)\nproject(example LANGUAGES CXX)\n{block.text}")
        (project / "my_program.cpp").write_text(PLAIN_PROGRAM)
        self.run("cmake", "-S", str(project), "-B", str(project / "build"))
        self.run("cmake", "--build", str(project / "build"))
        return "built"

    def check_json(self, block):
        json.loads(block.text)
        return "read"

    def check_text(self, _):
        return "for people"

    def place_of(self, block):
        """Where a shell block is run: igdctl's sessions leave nothing in the project's folder."""
        if not re.search(r"\bigdctl\b", block.text):
            return ROOT
        place = self.folder / block.document.replace("/", "_")
        if not place.exists():
            place.mkdir()
            self.run(str(ROOT / "docs/checks/try_gateway"), cwd=place)
        return place

    def check_sh(self, block):
        commands = commands_in(block.text)
        left = [each for each in commands if each not in self.declared]
        self.used.update(set(commands) - set(left))
        if not left:
            return "declared"
        script = self.folder / "block.sh"
        script.write_text("\n".join(left) + "\n")
        place = self.place_of(block)
        self.environment["IGD_STORE"] = str((self.folder if place == ROOT else place) / "gateway.db")
        self.run("bash", "-euo", "pipefail", str(script), cwd=place)
        return "run"

    def check(self, block):
        checks = getattr(self, f"check_{block.language}", None)
        if checks is None:
            raise Fault(f"the language is none of cpp, c, cmake, json, sh, text: {block.language!r}")
        outcome = checks(block)
        self.counts[outcome] = self.counts.get(outcome, 0) + 1


def main():
    build, *names = sys.argv[1:]
    failed = False
    with tempfile.TemporaryDirectory() as folder:
        checker = Checker(build, folder)
        for document in names or documents():
            for block in blocks_of(document)[0]:
                try:
                    checker.check(block)
                except (Fault, ValueError, subprocess.TimeoutExpired) as fault:
                    failed = True
                    print(f"{block}: {fault}", file=sys.stderr)
    for command in checker.declared - checker.used if not names else ():
        failed = True
        print(f"commands.txt: in no document: {command}", file=sys.stderr)
    print(", ".join(f"{number} {outcome}" for outcome, number in sorted(checker.counts.items())))
    return 1 if failed or not checker.counts else 0


if __name__ == "__main__":
    sys.exit(main())
