"""Runs tests, each within limits of its own."""

import dataclasses
import os
import re
import resource
import shutil
import signal
import subprocess
import threading
import time

MEMORY_LIMIT = 4 << 30
OUTPUT_LIMIT = 256 << 20
# Beside what a test takes without a mutant: the machine may have other work.
TIMES_AS_LONG = 8
LEAST_SECONDS = 20
TIMES_AS_MUCH_WORK = 2
LEAST_SECONDS_OF_WORK = 2
WITHOUT_LIMIT = 900


@dataclasses.dataclass
class Test:
    """One of CTest's, run as a whole: a program of GoogleTest, a session of bats, or another."""

    name: str
    command: list
    environment: dict
    folder: str

    @property
    def is_googletest(self):
        return "--gtest_brief=1" in self.command

    @property
    def is_session(self):
        return self.command[-1].endswith(".bats")

    def only(self, parts):
        """The arguments that restrict it to some of its parts, as `reason` names them; or none."""
        if self.is_googletest:
            names = [part.split()[0] for part in parts if re.match(r"[\w/]+\.[\w/]+", part)]
            return ["--gtest_filter=" + ":".join(names)] if names else []
        names = [re.escape(part) for part in parts if not part.startswith("(")]
        return ["--filter", "^(" + "|".join(names) + ")$"] if self.is_session and names else []


@dataclasses.dataclass
class Cost:
    """What a test takes: time, and work of the processor."""

    seconds: float = 0.0
    work: float = 0.0

    def time_limit(self):
        return max(LEAST_SECONDS, TIMES_AS_LONG * self.seconds) if self.seconds else WITHOUT_LIMIT

    def work_limit(self):
        if not self.seconds:
            return WITHOUT_LIMIT
        return int(TIMES_AS_MUCH_WORK * self.work) + LEAST_SECONDS_OF_WORK


@dataclasses.dataclass
class Outcome:
    passed: bool
    by: str = ""
    output: str = ""
    cost: Cost = dataclasses.field(default_factory=Cost)


def run(test, environment, temporary, cost=Cost(), substitute=str, keep_going=False, extra=()):
    """Runs a test; without `keep_going` until the first thing in it that fails."""
    shutil.rmtree(temporary, ignore_errors=True)
    temporary.mkdir(parents=True)
    variables = {**environment, "TMPDIR": str(temporary), "LC_ALL": "C",
                 **{name: substitute(value) for name, value in test.environment.items()}}
    if variables.get("IGD_STORE", ":memory:") != ":memory:":
        variables["IGD_STORE"] = str(temporary / "store.db")
    command = [substitute(word) for word in test.command if word != "--gtest_brief=1"]
    if test.is_googletest and not keep_going:
        variables["GTEST_FAIL_FAST"] = "1"
    start, before = time.monotonic(), resource.getrusage(resource.RUSAGE_CHILDREN)
    code, output, timed_out = watched([*command, *extra], test, variables, cost, keep_going)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    took = Cost(time.monotonic() - start,
                after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
    return Outcome(code == 0, "" if code == 0 else reason(output, code, timed_out), output, took)


def watched(command, test, variables, cost, keep_going):
    """The exit code, the output, and whether the time was up."""
    process = subprocess.Popen(
        command, cwd=test.folder, env=variables, stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
        preexec_fn=lambda: limit_resources(cost.work_limit()))
    timed_out = threading.Event()

    def stop():
        timed_out.set()
        end(process)

    timer = threading.Timer(cost.time_limit(), stop)
    timer.start()
    lines = []
    try:
        for line in process.stdout:
            lines.append(line)
            if test.is_session and not keep_going and line.startswith(b"not ok"):
                break
    finally:
        failed_early = process.poll() is None and lines and lines[-1].startswith(b"not ok")
        if failed_early or timed_out.is_set():
            end(process)
        code = process.wait()
        timer.cancel()
        end(process)
    return code or int(failed_early), b"".join(lines).decode(errors="replace"), timed_out.is_set()


def end(process):
    """With what it started and left behind."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def limit_resources(work):
    """An endless loop must fill neither time nor memory nor disk."""
    resource.setrlimit(resource.RLIMIT_CPU, (work, work + 1))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_FSIZE, (OUTPUT_LIMIT, OUTPUT_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def reason(output, code, timed_out):
    """The test that failed; of a program that crashed, the one that ran."""
    if timed_out:
        return "(time limit)"
    if code in (-signal.SIGXCPU, -signal.SIGKILL):
        return started(output) + "(endless)"
    failed = re.search(r"^\[  FAILED  \] (\S+?)(?:, | \(|$)", output, re.MULTILINE)
    if failed:
        return failed.group(1)
    not_ok = re.search(r"^not ok \d+ (.*)", output, re.MULTILINE)
    if not_ok:
        return not_ok.group(1)
    return started(output) + ("(crash)" if code < 0 else f"(exit code {code})")


def started(output):
    tests = re.findall(r"\[ RUN      \] (\S+)", output)
    return tests[-1] + " " if tests else ""
