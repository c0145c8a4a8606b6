#!/usr/bin/env python3
"""Measures what the tests catch: changes one line of the core at a time and runs the nearest tests.

    tests/mutation/mutate.py                          200 mutants of all core libraries
    tests/mutation/mutate.py --sample 20 text search  20 mutants of two folders
    tests/mutation/mutate.py --list 3 view            shows three mutants and runs nothing

A mutant is killed if a test fails, crashes or hangs; it survives if all pass. One that does not compile is not counted.
The work is done on a copy in build/mutation, so the checkout stays as it is. A mutant of the file code could delete what
it should not, so the tests see the rest of the machine write-protected (package bubblewrap). The same seed on the same
sources gives the same mutants. A survivor is a place to look at, not a verdict: some mutants change nothing that can be seen.
"""
import argparse
import random
import re
import shutil
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

TOP = Path(__file__).resolve().parents[2]
WORK = TOP / "build" / "mutation"
COPY = WORK / "source"
BUILD = WORK / "build"
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


# Each row: what it is called, what it looks for in a line without strings and comments, what stands there instead.
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
    for body in re.findall(function + r"\((.*?)\)", text, re.S):
        name, *words = body.split()
        lists, key = {"": []}, ""
        for word in words:
            if word.isupper():
                key = word
                lists.setdefault(key, [])
            else:
                lists[key].append(word)
        yield name, lists


def core_libraries():
    """Every library without the toolkit, with the test programs that link it and stand in the folder of the same name."""
    found = []
    for path in sorted((TOP / "src").glob("*/CMakeLists.txt")):
        folder = path.parent.name
        tests = TOP / "tests" / folder / "CMakeLists.txt"
        if not tests.exists():
            continue
        programs = list(cmake_calls(tests.read_text(), "velmarin_test"))
        for name, lists in cmake_calls(path.read_text(), "velmarin_library"):
            if any(link.startswith("Qt6") for link in lists.get("LINKS", [])):
                continue
            nearest = tuple(program for program, its in programs if name in its.get("LINKS", []))
            sources = tuple(source for source in lists["SOURCES"] if not source.startswith("Scripted"))
            if nearest:
                found.append(Library(folder, name, sources, nearest))
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


def run(command, seconds=None):
    """The exit status, or None if the command did not end in time."""
    try:
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=seconds).returncode
    except subprocess.TimeoutExpired:
        return None


def build(targets):
    return run(["cmake", "--build", str(BUILD), "--target", *targets]) == 0


def copy_checkout():
    """Writes only what differs, so that a second run builds little."""
    for name in subprocess.run(["git", "ls-files", "-z"], cwd=TOP, check=True, capture_output=True, text=True).stdout.split("\0"):
        source, copy = TOP / name, COPY / name
        if name and source.is_file() and not (copy.exists() and copy.read_bytes() == source.read_bytes()):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)


def prepare(libraries):
    """Copies the checkout, builds the test programs and makes sure that they pass before anything is changed."""
    if not shutil.which("bwrap"):
        sys.exit("bubblewrap is not installed (apt-get install bubblewrap)")
    copy_checkout()
    if not (BUILD / "build.ninja").exists():
        options = ["-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DVELMARIN_WERROR=OFF"]
        subprocess.run(["cmake", "-G", "Ninja", "-S", str(COPY), "-B", str(BUILD), *options], check=True,
                       stdout=subprocess.DEVNULL)
    for library in libraries:
        if not build(library.tests):
            sys.exit(f"{library.name}: the tests do not build")
        if killed_by_tests(library):
            sys.exit(f"{library.name}: the tests fail before anything is changed")


def killed_by_tests(library):
    # CTest sets the environment and arguments of each program.
    names = "^(" + "|".join(library.tests) + ")$"
    guard = ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp", "--die-with-parent",
             "--unshare-pid", "--bind", str(BUILD), str(BUILD)]
    return run([*guard, "ctest", "--test-dir", str(BUILD), "-R", names, "--stop-on-failure"], TEST_SECONDS) != 0


def try_mutant(mutant):
    """True if killed, False if it survives, None if it does not compile."""
    path = COPY / mutant.path
    original = path.read_text()
    lines = original.split("\n")
    lines[mutant.line] = mutant.after
    try:
        path.write_text("\n".join(lines))
        return killed_by_tests(mutant.library) if build(mutant.library.tests) else None
    finally:
        path.write_text(original)


def shown(mutant):
    return f"{mutant.path}:{mutant.line + 1}: {mutant.kind}\n  - {mutant.before.strip()}\n  + {mutant.after.strip()}"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folders", nargs="*", help="folders of src; all that have a core library if none is named")
    parser.add_argument("--sample", type=int, default=200, help="mutants that count, at most (default 200)")
    parser.add_argument("--seed", type=int, default=1, help="chooses the sample (default 1)")
    parser.add_argument("--list", type=int, metavar="N", help="show N mutants and run nothing")
    arguments = parser.parse_args()

    libraries = [one for one in core_libraries() if not arguments.folders or one.folder in arguments.folders]
    mutants = list(all_mutants(libraries))
    random.Random(arguments.seed).shuffle(mutants)
    if arguments.list is not None:
        print("\n".join(shown(mutant) for mutant in mutants[: arguments.list]))
        return
    prepare(libraries)
    survivors, killed = [], 0
    for mutant in mutants:
        if killed + len(survivors) >= arguments.sample:
            break
        result = try_mutant(mutant)
        if result:
            killed += 1
        elif result is False:
            survivors.append(mutant)
            print(f"survives: {shown(mutant)}", flush=True)
    total = killed + len(survivors)
    print(f"{killed} of {total} mutants killed ({100 * killed / max(total, 1):.1f} %), {len(mutants)} possible")


if __name__ == "__main__":
    main()
