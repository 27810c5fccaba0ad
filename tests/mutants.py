#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT
"""mutants.py [word]...: puts one fault after another into the program and tells which test notices it.

Each line of mutants.tsv is a fault: a file, the text to look for, the text to put in its place and the tests that
ought to fail, separated by tabs; the two texts write a line's end as \\n. A fifth field says why a fault that no test
can notice is none. Words choose the faults whose line holds one of them.

The sources are copied to build/mutants, so that the tree stays as it is. Each fault is printed with the line it was put
on and the test function that noticed it; all of them take two hours. Fails when a fault goes
unnoticed, does not compile, has no place, or is noticed against what its line says. Wants git and what ./test.sh wants.
"""
import pathlib
import re
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
work = root / "build" / "mutants"
tree = work / "tree"
build = work / "build"


def copy_tree():
    """Only files that differ are written: what was built from the others stays good."""
    for target in [path for path in tree.rglob("*") if path.is_file() and not (root / path.relative_to(tree)).is_file()]:
        target.unlink()
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=root, stdout=subprocess.PIPE, check=True).stdout
    for name in listed.decode().split("\0"):
        source, target = root / name, tree / name
        if not name or not source.is_file():
            continue
        content = source.read_bytes()
        if target.is_file() and target.read_bytes() == content:
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)
        target.chmod(source.stat().st_mode)


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")


def compile_tests(tests):
    return run("cmake", "--build", build, "-j2", "--target", *(f"tst_{test}" for test in tests))


def first_failure(tests):
    """The test function that fails first, or nothing."""
    for test in tests:
        outcome = run("ctest", "--test-dir", build, "-R", f"^{test}$", "--output-on-failure")
        if outcome.returncode == 0:
            continue
        function = re.search(r"(?:FAIL!|XPASS|QFATAL) *: \w+::(\w+)", outcome.stdout)
        if function:
            return f"{test}: {function[1]}"
        return f"{test}: {'does not end' if 'Timeout' in outcome.stdout else 'crashes'}"
    return None


def main(words):
    rows = [line.split("\t") for line in (root / "tests" / "mutants.tsv").read_text().splitlines()
            if line and not line.startswith("#")]
    rows = [row for row in rows if not words or any(word in "\t".join(row) for word in words)]
    copy_tree()
    configured = run("cmake", "--preset", "dev", "-S", tree, "-B", build, "-D", "PROVENDER_DIGEST_TESTS=OFF",
                     "-D", "PROVENDER_PACKAGE_TESTS=OFF", "-D", "PROVENDER_FUZZ_TESTS=OFF", "-D", "PROVENDER_WERROR=OFF")
    everything = sorted({test for row in rows for test in row[3].split()})
    built = compile_tests(everything)
    if configured.returncode or built.returncode:
        sys.exit(configured.stdout + built.stdout)
    if failure := first_failure(everything):
        sys.exit(f"without any fault: {failure}")

    wrong = 0
    for name, before, after, tests, *reason in rows:
        before, after = (text.replace("\\n", "\n") for text in (before, after))
        path = tree / name
        sound = path.read_text()
        if sound.count(before) != 1:
            print(f"{name}: stands there {sound.count(before)} times: {before}", flush=True)
            wrong += 1
            continue
        # The line of the first difference.
        common = next((i for i, (a, b) in enumerate(zip(before, after)) if a != b), min(len(before), len(after)))
        while before[common:common + 1].isspace():
            common += 1
        line = sound.count("\n", 0, sound.index(before) + common) + 1
        path.write_text(sound.replace(before, after))
        built = compile_tests(tests.split())
        noticed = None if built.returncode else first_failure(tests.split())
        path.write_text(sound)
        if built.returncode:
            verdict = "DOES NOT COMPILE"
            print(built.stdout[-1500:])
        else:
            verdict = noticed or (f"nothing: {reason[0]}" if reason else "NOTHING")
        wrong += bool(built.returncode) or bool(noticed) == bool(reason)
        print(f"{name}:{line}: {verdict}", flush=True)
    print(f"{len(rows)} faults, {wrong} to look at")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
