"""What can be changed, and which of CTest's tests are asked about it."""

import hashlib
import multiprocessing
import pathlib
import pickle
import re

import finder

# By names of tests. Those that look at the binary, at the documents or at the tests themselves
# are left out; and so are those of another folder that take long for the little they see of this one.
TESTS = {
    "framework/igd": r"(?!igdctl|cli\.|host_|store_|proof_|contract|loading_|fixed_|c_program"
                     r"|fuzz\.(dump|rows|store|description)|Binary|Docs)",
    "platform/host": r"host_tests|store_tests|proof_tests|contract\.tree|fuzz\.(dump|rows|store)"
                     r"|Docs\.DataModel|(igdctl|cli)\.(store|failures|tree)",
    "tools/igdctl": r"igdctl|cli\.|fuzz\.description",
}
NEVER = r"(?i).*(selftest|new_store)"


def is_asked(folder):
    def asked(test):
        return bool(re.match(TESTS[folder], test)) and not re.match(NEVER, test)
    return asked


def read(job):
    """Finds the mutants of a file, or takes what was found in the same text before."""
    path, name, arguments, cache = job
    code = b"".join(file.read_bytes() for file in sorted(pathlib.Path(__file__).parent.glob("*.py"))
                    if file.stem in ("finder", "literals", "mutant", "syntax"))
    known = cache / hashlib.sha256(code + name.encode() + path.read_bytes()).hexdigest()
    if known.exists():
        return pickle.loads(known.read_bytes())
    found = finder.Finder(path, name, arguments)
    result = Source(name, found.mutants(), found.blocks)
    known.write_bytes(pickle.dumps(result))
    return result


class Source:
    def __init__(self, name, mutants, blocks):
        self.name = name
        self.mutants = mutants
        self.blocks = blocks


def sources(base, folder):
    """All of a folder, however deep, with their mutants and blocks; public headers are none."""
    cache = base.folder / "found"
    cache.mkdir(exist_ok=True)
    paths = sorted(p for kind in ("*.cpp", "*.h") for p in (base.source / folder).rglob(kind)
                   if str(p) in base.compilations or p.suffix == ".h" and p.parent.name != "inc")
    jobs = [(path, str(path.relative_to(base.source)), base.arguments_for(path), cache)
            for path in paths]
    with multiprocessing.Pool(2) as pool:
        return pool.map(read, jobs, chunksize=1)
