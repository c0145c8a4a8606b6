#!/usr/bin/env python3
"""Measures what the tests catch: changes one line of the core at a time and runs the nearest tests.

    tests/mutation/mutate.py                          200 mutants of all core libraries
    tests/mutation/mutate.py --sample 20 text search  20 mutants of two folders
    tests/mutation/mutate.py --jobs 2                 two at a time
    tests/mutation/mutate.py --list 3 view            shows three mutants and runs nothing
    tests/mutation/mutate.py --again FILE             the survivors that FILE lists, the output of an earlier run

After you have added tests, --again tells which survivors they kill; it needs the sources of the earlier run.

A mutant is killed if a test fails, crashes or hangs; it survives if all pass. One that does not compile is not counted.
The work is done on copies in build/mutation, so the checkout stays as it is. A mutant of the file code could delete what
it should not, so the tests see the rest of the machine write-protected (package bubblewrap). The same seed on the same
sources gives the same mutants. A survivor is a place to look at, not a verdict: some mutants change nothing visible.
"""
import argparse
import itertools
import os
import queue
import random
import re
import shutil
import subprocess
import sys
from collections import Counter, deque
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
WORK = TOP / "build" / "mutation"
TEST_SECONDS = 120


@dataclass(frozen=True)
class Library:
    folder: str
    name: str
    sources: tuple[str, ...]
    tests: tuple[str, ...]


@dataclass(frozen=True)
class Mutant:
    library: Library
    path: str
    line: int
    before: str
    after: str
    kind: str


# Each row: the kind, a pattern for a line without strings and comments, and the replacement (None adds 1 to a number).
# Operators are matched with the blanks that the formatter puts around them, which leaves templates and pointers alone.
CHANGES = [
    ("boundary", r" < ", " <= "),
    ("boundary", r" <= ", " < "),
    ("boundary", r" > ", " >= "),
    ("boundary", r" >= ", " > "),
    ("condition", r" == ", " != "),
    ("condition", r" != ", " == "),
    ("condition", r" && ", " || "),
    ("condition", r" \|\| ", " && "),
    ("condition", r"(?<=[( ])!(?=[\w(])", ""),
    ("condition", r"(?<=if \()(?!const |auto )[^;{}]+(?=\)( \{)?$)", "false"),
    ("arithmetic", r" \+ (?!\")", " - "),
    ("arithmetic", r" - ", " + "),
    ("arithmetic", r"\+\+", "--"),
    ("constant", r"\btrue\b", "false"),
    ("constant", r"\bfalse\b", "true"),
    ("constant", r"(?<![\w.'])\d+(?![\w.'])", None),
]
STATEMENT = re.compile(r"^ +(?!return|using|throw|break|continue|case|delete|else|goto)[\w.:>\[\]()*-]+( [-+|&]?= .*|\(.*\));$")
STRING_OR_COMMENT = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'|//.*')


def cmake_calls(text, function):
    """Yields (name, {keyword: words}) of each call of the function in a CMakeLists.txt."""
    for body in re.findall(function + r"\((.*?)\)", re.sub(r"#.*", "", text), re.S):
        name, *words = body.split()
        lists, key = {"": []}, ""
        for word in words:
            if word.isupper():
                key = word
                lists.setdefault(key, [])
            else:
                lists[key].append(word)
        yield name, lists


# Libraries that are tested through a program above them.
TESTED_BY = {"velmarin_book": ["cli_tests"]}


def core_libraries():
    """Every library without the toolkit, as CMake lists it, with the nearest test programs: those in the folder
    of the same name that link it, or else all that link it, or else all in that folder."""
    programs = []
    for path in sorted((TOP / "tests").glob("*/CMakeLists.txt")):
        programs += [(path.parent.name, *call) for call in cmake_calls(path.read_text(), "velmarin_test")]
    found = []
    for path in sorted((TOP / "src").glob("*/CMakeLists.txt")):
        folder = path.parent.name
        for name, lists in cmake_calls(path.read_text(), "velmarin_library"):
            if any(link.startswith("Qt6") for link in lists.get("LINKS", [])):
                continue
            linking = [(place, program) for place, program, its in programs if name in its.get("LINKS", [])]
            nearest = [program for place, program in linking if place == folder] or [program for _, program in linking]
            nearest = nearest or [program for place, program, _ in programs if place == folder]
            nearest = TESTED_BY.get(name, nearest)
            sources = [source for source in lists.get("SOURCES", []) if not source.startswith("Scripted")]
            if nearest:
                found.append(Library(folder, name, tuple(sources), tuple(nearest)))
            else:
                print(f"{name}: no tests", file=sys.stderr)
    return found


def blanked(line):
    """The line with strings, characters and comments as blanks, so that columns stay."""
    return STRING_OR_COMMENT.sub(lambda match: " " * len(match.group()), line)


def mutants_of_line(library, path, number, line):
    code = blanked(line)
    if line.startswith(("#", "}")) or "static_assert" in code or not code.strip():
        return
    for kind, pattern, instead in CHANGES:
        for match in re.finditer(pattern, code):
            new = str(int(match.group()) + 1) if instead is None else instead
            yield Mutant(library, path, number, line, line[: match.start()] + new + line[match.end() :], kind)
    if STATEMENT.match(code.rstrip()):
        yield Mutant(library, path, number, line, ";", "statement")


def all_mutants(libraries):
    for library in libraries:
        for source in library.sources:
            path = f"src/{library.folder}/{source}"
            for number, line in enumerate((TOP / path).read_text().split("\n")):
                yield from mutants_of_line(library, path, number, line)


def listed_in(output, mutants):
    """Those that the output of an earlier run lists as survivors."""
    found = [mutant for mutant in mutants if f"survives: {shown(mutant)}\n" in output]
    missing = output.count("survives: ") - len(found)
    if missing > 0:
        print(f"{missing} of the listed survivors are not mutants of these sources", file=sys.stderr)
    return found


def run(command, seconds=None):
    """The exit status, or None if the command did not end in time."""
    try:
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=seconds).returncode
    except subprocess.TimeoutExpired:
        return None


class Worker:
    """A copy of the checkout with a build of its own, so that several mutants can be tried at a time."""

    def __init__(self, number, jobs):
        self.copy = WORK / f"source{number}"
        self.build_folder = WORK / f"build{number}"
        self.compilers = max(1, (os.cpu_count() or 1) // jobs)

    def build(self, targets):
        return run(["cmake", "--build", str(self.build_folder), "-j", str(self.compilers), "--target", *targets]) == 0

    def copy_checkout(self):
        """Writes only what differs, so that a second run builds little, and removes what the checkout has lost."""
        listed = subprocess.run(["git", "ls-files", "-z"], cwd=TOP, check=True, capture_output=True, text=True).stdout
        names = {name for name in listed.split("\0") if name and (TOP / name).is_file()}
        for name in names:
            source, copy = TOP / name, self.copy / name
            if not (copy.exists() and copy.read_bytes() == source.read_bytes()):
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copy)
        for old in self.copy.rglob("*"):
            if old.is_file() and str(old.relative_to(self.copy)) not in names:
                old.unlink()

    def prepare(self, libraries):
        """Copies the checkout, builds the test programs and makes sure that they pass before anything is changed."""
        self.copy_checkout()
        if not (self.build_folder / "build.ninja").exists():
            options = ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DVELMARIN_WERROR=OFF"]
            if shutil.which("ccache"):
                options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
            subprocess.run(["cmake", "-G", "Ninja", "-S", str(self.copy), "-B", str(self.build_folder), *options],
                           check=True, stdout=subprocess.DEVNULL)
        for library in libraries:
            if not self.build(library.tests):
                sys.exit(f"{library.name}: the tests do not build")
            if self.killed_by_tests(library):
                sys.exit(f"{library.name}: the tests fail before anything is changed")

    def killed_by_tests(self, library):
        # CTest sets the environment and arguments of each program.
        names = "^(" + "|".join(library.tests) + ")$"
        guard = ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp",
                 "--die-with-parent", "--unshare-pid", "--bind", str(self.build_folder), str(self.build_folder)]
        command = [*guard, "ctest", "--test-dir", str(self.build_folder), "-R", names, "--stop-on-failure"]
        return run(command, TEST_SECONDS) != 0

    def try_mutant(self, mutant):
        """True if killed, False if it survives, None if it does not compile."""
        path = self.copy / mutant.path
        original = path.read_text()
        lines = original.split("\n")
        lines[mutant.line] = mutant.after
        try:
            path.write_text("\n".join(lines))
            return self.killed_by_tests(mutant.library) if self.build(mutant.library.tests) else None
        finally:
            path.write_text(original)


def try_all(mutants, sample, workers):
    """Yields (mutant, result) in the order of `mutants`, whatever the number of workers, until `sample` of them count."""
    free = queue.SimpleQueue()
    for worker in workers:
        free.put(worker)

    def attempt(mutant):
        worker = free.get()
        try:
            return worker.try_mutant(mutant)
        finally:
            free.put(worker)

    counted = 0
    with ThreadPoolExecutor(len(workers)) as pool:
        rest = iter(mutants)
        pending = deque()
        while counted < sample:
            room = min(len(workers), sample - counted) - len(pending)
            pending.extend((mutant, pool.submit(attempt, mutant)) for mutant in itertools.islice(rest, room))
            if not pending:
                return
            mutant, future = pending.popleft()
            result = future.result()
            counted += result is not None
            yield mutant, result


def shown(mutant):
    return f"{mutant.path}:{mutant.line + 1}: {mutant.kind}\n  - {mutant.before.strip()}\n  + {mutant.after.strip()}"


def summary(killed, survived):
    """A line for each library, and one for all."""
    rows = [(name, killed[name], killed[name] + survived[name]) for name in sorted({*killed, *survived})]
    rows.append(("all", killed.total(), killed.total() + survived.total()))
    return "\n".join(f"{name:28} {hits:4} of {total:4} killed ({100 * hits / max(total, 1):5.1f} %)" for name, hits, total in rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folders", nargs="*", help="folders of src; all that have a core library if none is named")
    parser.add_argument("--sample", type=int, default=200, help="mutants that count, at most (default 200)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the sample (default 1)")
    parser.add_argument("--jobs", type=int, default=1, choices=range(1, 65), metavar="N",
                        help="mutants tried at a time, each in a build of its own (default 1)")
    parser.add_argument("--again", type=Path, metavar="FILE", help="try only the survivors in the output of an earlier run")
    parser.add_argument("--list", type=int, metavar="N", help="show N mutants and run nothing")
    arguments = parser.parse_args()

    libraries = [one for one in core_libraries() if not arguments.folders or one.folder in arguments.folders]
    mutants = list(all_mutants(libraries))
    random.Random(arguments.seed).shuffle(mutants)
    if arguments.again:
        mutants = listed_in(arguments.again.read_text(), mutants)
        arguments.sample = len(mutants)
    if arguments.list is not None:
        print("\n".join(shown(mutant) for mutant in mutants[: arguments.list]))
        return
    if not shutil.which("bwrap"):
        sys.exit("bubblewrap is not installed (apt-get install bubblewrap)")
    chosen = {mutant.library for mutant in mutants}
    workers = [Worker(number, arguments.jobs) for number in range(arguments.jobs)]
    for worker in workers:
        worker.prepare([library for library in libraries if library in chosen])
    killed, survived = Counter(), Counter()
    for mutant, result in try_all(mutants, arguments.sample, workers):
        if result:
            killed[mutant.library.name] += 1
        elif result is False:
            survived[mutant.library.name] += 1
            print(f"survives: {shown(mutant)}", flush=True)
    print(summary(killed, survived))
    if not arguments.again:
        print(f"{len(mutants)} mutants are possible")


if __name__ == "__main__":
    main()
