"""A copy of the sources with a build of its own, in which one mutant after the other is tried."""

import filecmp
import os
import pathlib
import re
import resource
import shutil
import subprocess
import time

# The quickest first. Those that only link the shared library come to their turn sooner when a
# header has changed, as they need not be compiled anew.
PROGRAMS = ("unit_tests", "transcript_test", "foreign_platform", "no_context_test",
            "null_tree_test", "late_context_test", "abi_test", "own_platform_test",
            "operations_test")
PROGRAMS_OF_HEADERS = ("foreign_platform", "abi_test", "own_platform_test", "operations_test",
                       "unit_tests", "transcript_test", "no_context_test", "null_tree_test",
                       "late_context_test")
LIBRARY = ("igd_objects", "igd")
# These do not call what the canary is put into.
WITHOUT_CANARY = ("abi_test",)
CANARY_FILE = "framework/igd/data_model.cpp"
CANARY_PLACE = b"void ensureContext() {"

SECONDS_TO_BUILD = 600
LEAST_SECONDS_TO_RUN = 20
TIMES_AS_SLOW = 20
MEMORY_LIMIT = 4 << 30
OUTPUT_LIMIT = 256 << 20


class Worker:
    """`folder` has the copy; the checked-out sources are only read."""

    def __init__(self, root, folder):
        self.root = root
        self.folder = folder
        self.source = folder / "source"
        self.build_folder = self.source / "build" / "mutation"
        self.log = folder / "log"
        self.limits = {}
        self.changed = None

    # ---- Preparation ----

    def prepare(self):
        """Brings copy and build up to date."""
        self.copy_sources()
        self.run(["cmake", "--preset", "mutation"], SECONDS_TO_BUILD, check=True)
        self.run(["ninja", "-C", str(self.build_folder), *LIBRARY, *PROGRAMS],
                 10 * SECONDS_TO_BUILD, check=True)

    def try_tests(self):
        """Sees that all tests pass without a mutant, how long they take, and what they load."""
        for program in PROGRAMS:
            start = time.monotonic()
            if self.run_program(program, SECONDS_TO_BUILD) != 0:
                raise RuntimeError(f"{program} fails without a mutant: {self.log}")
            took = time.monotonic() - start
            self.limits[program] = max(LEAST_SECONDS_TO_RUN, TIMES_AS_SLOW * took)
        self.try_canary()

    def copy_sources(self):
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others",
                                 "--exclude-standard"], cwd=self.root, check=True,
                                capture_output=True).stdout.decode()
        names = {name for name in listed.split("\0") if name and (self.root / name).is_file()}
        for name in names:
            copy = self.source / name
            if not copy.exists() or not filecmp.cmp(self.root / name, copy, shallow=False):
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(self.root / name, copy)
                shutil.copymode(self.root / name, copy)
        for copy in self.source.rglob("*"):
            if "build" not in copy.relative_to(self.source).parts and copy.is_file():
                if str(copy.relative_to(self.source)) not in names:
                    copy.unlink()

    def try_canary(self):
        """A library that ends the process must end every program, else it was not loaded."""
        source = (self.root / CANARY_FILE).read_bytes()
        if source.count(CANARY_PLACE) != 1:
            raise RuntimeError(f"{CANARY_FILE} has no place for the canary")
        self.put(CANARY_FILE, source.replace(CANARY_PLACE, CANARY_PLACE + b" __builtin_trap();"))
        for program in PROGRAMS:
            if program in WITHOUT_CANARY:
                continue
            if self.build(program) != 0 or self.run_program(program, SECONDS_TO_BUILD) == 0:
                raise RuntimeError(f"{program} does not run the changed library")

    # ---- One mutant ----

    def attempt(self, mutant):
        """Returns what became of it, and by what."""
        self.put(mutant.file, mutant.applied_to((self.root / mutant.file).read_bytes()))
        if self.build(*LIBRARY) != 0:
            return "stillborn", self.compiler_error()
        programs = PROGRAMS_OF_HEADERS if mutant.file.endswith(".h") else PROGRAMS
        for program in programs:
            if self.build(program) != 0:
                return "killed", f"{program} (does not compile)"
            code = self.run_program(program, self.limits.get(program, SECONDS_TO_BUILD))
            if code is None:
                return "killed", f"{program} (time limit)"
            if code != 0:
                return "killed", f"{program} {self.failed_test()}"
        return "survived", ""

    def put(self, name, content):
        """Changes one file of the copy, and takes an earlier change of another one back."""
        if self.changed not in (None, name):
            shutil.copyfile(self.root / self.changed, self.source / self.changed)
        (self.source / name).write_bytes(content)
        self.changed = name

    def restore(self):
        if self.changed is not None:
            shutil.copyfile(self.root / self.changed, self.source / self.changed)
            self.changed = None

    def build(self, *targets):
        return self.run(["ninja", "-C", str(self.build_folder), *targets], SECONDS_TO_BUILD)

    def run_program(self, program, seconds):
        """The exit code; None when the time was up."""
        command = [str(self.build_folder / "bin" / program), "--gtest_fail_fast"]
        return self.run(command, seconds, limited=True)

    def compiler_error(self):
        found = re.search(r"error: (.*)", self.log.read_text(errors="replace"))
        return found.group(1) if found else ""

    def failed_test(self):
        """The test that failed; of a program that crashed, the one that ran."""
        text = self.log.read_text(errors="replace")
        failed = re.findall(r"^\[  FAILED  \] (\S+?)[, ]", text, re.MULTILINE)
        started = re.findall(r"\[ RUN      \] (\S+)", text)
        return failed[0] if failed else (started[-1] + " (crash)" if started else "(crash)")

    def run(self, command, seconds, check=False, limited=False):
        temporary = self.folder / "tmp"
        shutil.rmtree(temporary, ignore_errors=True)
        temporary.mkdir(parents=True)
        environment = dict(os.environ, IGD_STORE=":memory:", TMPDIR=str(temporary), LC_ALL="C")
        environment.pop("LD_LIBRARY_PATH", None)
        with open(self.log, "wb") as log:
            process = subprocess.Popen(
                command, cwd=self.source, env=environment, stdin=subprocess.DEVNULL, stdout=log,
                stderr=subprocess.STDOUT, start_new_session=True,
                preexec_fn=limit_resources if limited else None)
            try:
                code = process.wait(seconds)
            except subprocess.TimeoutExpired:
                code = None
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, 9)
                    process.wait()
        if check and code != 0:
            raise RuntimeError(f"{' '.join(command)} failed: {self.log}")
        return code


def limit_resources():
    """An endless loop must fill neither memory nor disk."""
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_FSIZE, (OUTPUT_LIMIT, OUTPUT_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def worker_folders(root, count):
    return [pathlib.Path(root, "build", "mutation", str(number + 1)) for number in range(count)]
