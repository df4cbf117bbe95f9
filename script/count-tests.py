#!/usr/bin/env python3
"""Counts the tests in the logs of script/test and closes with one line of sums.

A log is what `ctest --verbose` or a GoogleTest program printed. GoogleTest programs count by their test cases, any
other ctest entry by what its driver says ("N passed, M failed" alone on a line) or as one.
Usage: count-tests.py FOLDER-OF-LOGS. Exits with 1 when a test failed or none ran.
"""
import pathlib
import re
import sys

GTEST = {
    "passed": re.compile(r"\[  PASSED  \] (\d+) tests?\."),
    "failed": re.compile(r"\[  FAILED  \] (\d+) tests?, listed below"),
    "skipped": re.compile(r"\[  SKIPPED \] (\d+) tests?, listed below"),
}
DRIVER = re.compile(r"^(?:\w+: )?(\d+) passed, (\d+) failed(?:, (\d+) skipped)?\s*$")
CTEST_END = re.compile(r"^\s*\d+/\d+ Test\s+#(\d+): (\S+) \.+\**\s*(Passed|\*+\w+|Not Run)")
CTEST_PREFIX = re.compile(r"^(\d+): ?")


def count_lines(lines):
    """(passed, failed, skipped) of one program's output; None when it does not tell."""
    sums = dict.fromkeys(GTEST, 0)
    told = False
    for line in lines:
        for kind, pattern in GTEST.items():
            if match := pattern.search(line):
                sums[kind] += int(match[1])
                told = True
        if match := DRIVER.match(line):
            for kind, value in zip(("passed", "failed", "skipped"), match.groups()):
                sums[kind] += int(value or 0)
            told = True
    return (sums["passed"], sums["failed"], sums["skipped"]) if told else None


def count_log(path):
    """Sums over one log, per ctest entry where it has any."""
    outputs, ends, plain = {}, {}, []
    for line in path.read_text(errors="replace").splitlines():
        if match := CTEST_END.match(line):
            ends[match[1]] = match[3] == "Passed"
        elif match := CTEST_PREFIX.match(line):
            outputs.setdefault(match[1], []).append(line[match.end():])
        else:
            plain.append(line)
    if not ends:
        return count_lines(plain) or (0, 0, 0)
    total = [0, 0, 0]
    for number, passed in ends.items():
        counts = count_lines(outputs.get(number, [])) or (int(passed), int(not passed), 0)
        if not passed and counts[1] == 0:
            counts = (counts[0], 1, counts[2])
        total = [a + b for a, b in zip(total, counts)]
    return tuple(total)


def main():
    total = [0, 0, 0]
    for path in sorted(pathlib.Path(sys.argv[1]).glob("*.log")):
        if path.stem.startswith("build-"):
            continue
        counts = count_log(path)
        print(f"{path.stem:>14}: {counts[0]:5} passed, {counts[1]} failed, {counts[2]} skipped")
        total = [a + b for a, b in zip(total, counts)]
    print(f"{total[0]} passed, {total[1]} failed, {total[2]} skipped")
    return 1 if total[1] or not total[0] else 0


if __name__ == "__main__":
    sys.exit(main())
