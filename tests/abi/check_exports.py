#!/usr/bin/env python3
"""Compares what a built library shows to the outside with the list of its exported names.

A shared object must export exactly the listed functions, all under one version node, and carry the expected SONAME.
A DLL must export exactly the listed names, undecorated, and import from system DLLs only.
Prints one line for each difference. Exit status: 0 none, 1 some, 2 usage or a tool that failed.
"""

import argparse
import contextlib
import io
import re
import subprocess
import sys
import tempfile
from pathlib import Path

SYSTEM_DLLS = re.compile(
    r"(kernel32|kernelbase|ntdll|msvcrt|ucrtbase|api-ms-win-crt-[a-z0-9-]+|"
    r"ole32|oleaut32|advapi32|user32|shell32)\.dll",
    re.IGNORECASE,
)


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def read_list(path):
    lines = (line.split("#")[0].strip() for line in Path(path).read_text(encoding="utf-8").splitlines())
    return [line for line in lines if line]


def compare_names(expected, actual):
    for name in sorted(set(expected) - set(actual)):
        yield f"not exported: {name}"
    for name in sorted(set(actual) - set(expected)):
        yield f"exported, but not in the list: {name}"
    for name in sorted({name for name in expected if expected.count(name) > 1}):
        yield f"listed more than once: {name}"


def elf_symbols(options):
    """Yields (kind, name, version) of each dynamic symbol that the library defines."""
    listing = run(options.nm, "-D", "--defined-only", "--with-symbol-versions", options.library)
    for line in listing.splitlines():
        _, kind, symbol = line.split()
        name, _, version = symbol.partition("@@")
        yield kind, name, version


def check_elf(options, expected):
    names = []
    for kind, name, version in elf_symbols(options):
        if kind == "A" and name == options.version_node:
            continue
        names.append(name)
        if kind != "T":
            yield f"not a function: {name} (symbol type {kind})"
        if version != options.version_node:
            yield f"wrong version node: {name} has '{version}', expected '{options.version_node}'"
    yield from compare_names(expected, names)
    found = re.findall(r"^\s*SONAME\s+(\S+)$", run(options.objdump, "-p", options.library), re.MULTILINE)
    if found != [options.soname]:
        yield f"wrong SONAME: {found}, expected '{options.soname}'"


def check_pe(options, expected):
    headers = run(options.objdump, "-p", options.library)
    _, _, table = headers.partition("[Ordinal/Name Pointer] Table")
    names = re.findall(r"^\s*\[\s*\d+\](?:\s+\+base\[\s*\d+\]\s+[0-9a-f]+)?\s+(\S+)$", table, re.MULTILINE)
    yield from compare_names(expected, names)
    addresses = re.search(r"Export Address Table\s+([0-9a-f]{8,})", headers)
    if addresses is None or int(addresses.group(1), 16) != len(names):
        yield "exported without a name: the address table and the name table differ in length"
    imports = re.findall(r"^\s*DLL Name:\s+(\S+)$", headers, re.MULTILINE)
    if not imports:
        yield "no imports found"
    for dll in imports:
        if not options.system_dlls.fullmatch(dll):
            yield f"imported from a DLL that is not the system's: {dll}"


def check(options, list_path):
    expected = read_list(list_path)
    differences = list((check_pe if options.format == "pe" else check_elf)(options, expected))
    for difference in differences:
        print(f"{Path(options.library).name}: {difference}")
    if not differences:
        print(f"{Path(options.library).name}: {len(expected)} names, as listed")
    return 1 if differences else 0


def self_test_cases(options):
    """Yields (message, names, changed options): what must be reported for a wrong list or a wrong expectation."""
    names = read_list(options.list)
    yield f"exported, but not in the list: {names[0]}", names[1:], {}
    yield "not exported: NotAFunctionOfThisLibrary", names + ["NotAFunctionOfThisLibrary"], {}
    yield f"not exported: _{names[-1]}@0", names[:-1] + [f"_{names[-1]}@0"], {}
    yield f"listed more than once: {names[0]}", names + names[:1], {}
    if options.format == "pe":
        yield "imported from a DLL that is not the system's", names, {"system_dlls": re.compile("(?!)")}
    else:
        yield "wrong version node", names, {"version_node": "ANOTHER_NODE"}
        yield "wrong SONAME", names, {"soname": "libanother.so.1"}


def self_test(options):
    """Shows on the library itself that each of the wrong expectations above is noticed."""
    cases = list(self_test_cases(options))
    unnoticed = 0
    with tempfile.TemporaryDirectory() as folder:
        for message, names, changed in cases:
            path = Path(folder) / "exports.txt"
            path.write_text("\n".join(names) + "\n", encoding="utf-8")
            output = io.StringIO()
            with contextlib.redirect_stdout(output):
                status = check(argparse.Namespace(**{**vars(options), **changed}), path)
            if status != 1 or message not in output.getvalue():
                print(f"went unnoticed: {message}")
                unnoticed += 1
    print(f"{len(cases) - unnoticed} of {len(cases)} wrong expectations were noticed")
    return 1 if unnoticed else 0


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("library")
    parser.add_argument("--list", required=True, help="the exported names, one a line, '#' starts a comment")
    parser.add_argument("--format", required=True, choices=["elf", "pe"])
    parser.add_argument("--nm", default="nm")
    parser.add_argument("--objdump", default="objdump")
    parser.add_argument("--soname", help="expected SONAME (elf)")
    parser.add_argument("--version-node", help="expected symbol version (elf)")
    parser.add_argument("--self-test", action="store_true", help="check instead that wrong expectations are noticed")
    parser.set_defaults(system_dlls=SYSTEM_DLLS)
    return parser.parse_args()


def main():
    options = parse_arguments()
    try:
        return self_test(options) if options.self_test else check(options, options.list)
    except (OSError, subprocess.CalledProcessError) as error:
        print(f"{error}\n{getattr(error, 'stderr', '') or ''}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
