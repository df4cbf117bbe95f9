#!/usr/bin/env python3
"""Holds the documents against the tree: the README quotes the example that the tests build, every test that
docs/limits.md names exists, and every link to a file leads to one. Exits with 1 and a line for each difference."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def quoted_example():
    example = (ROOT / "examples/bookmark_to_text.c").read_text().rstrip("\n")
    if f"```c\n{example}\n```" not in (ROOT / "README.md").read_text():
        yield "README.md: its C code is not examples/bookmark_to_text.c"


def named_tests():
    tests = set()
    for path in (ROOT / "tests").rglob("*_test.cpp"):
        for suite, name in re.findall(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", path.read_text(), re.MULTILINE):
            tests |= {name, f"{suite}.{name}", suite}
    for name in re.findall(r"`((?:[A-Z]\w+\.)?[A-Z]\w*[a-z]\w*)`", (ROOT / "docs/limits.md").read_text()):
        if name not in tests:
            yield f"docs/limits.md: no test is called {name}"


def links():
    for path in [*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md")]:
        for target in re.findall(r"\]\(([^)#:]+)\)", path.read_text()):
            if not (path.parent / target).exists():
                yield f"{path.relative_to(ROOT)}: {target} does not exist"


def main():
    differences = [*quoted_example(), *named_tests(), *links()]
    print("\n".join(differences) or "docs: agree with the tree")
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
