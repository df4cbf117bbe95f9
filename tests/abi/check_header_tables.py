#!/usr/bin/env python3
"""Checks that no record member and no constant of the public headers lacks its row in the C tests of the headers.

Every member of a record needs an offset assertion beside the record and a row in header_layout_test.c; every VZ_
constant a row in header_constants_test.c. Prints one line for each that is missing; exit status 1 when there is one.
"""

import re
import sys
from pathlib import Path

COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)
RECORD = re.compile(r"typedef (?:struct|union) (\w+) \{(.*?)\} \1;", re.DOTALL)
MEMBER = re.compile(r"(\w+)(?:\[\d+\])?;")
CONSTANT = re.compile(r"^(?:#define\s+|\s*|enum \{ )(VZ_\w+)(?= =|\s+(?:UINT32_C|\d))", re.MULTILINE)


def missing_rows(headers, layout_test, constants_test):
    records = re.findall(r"RECORD\((\w+),", layout_test)
    members = set(re.findall(r"MEMBER\((\w+), (\w+),", layout_test))
    constants = set(re.findall(r"CONSTANT\((VZ_\w+),", constants_test))
    asserted = set(re.findall(r"VZAPI_ASSERT_OFFSET\((\w+), (\w+),", headers))
    sized = set(re.findall(r"VZAPI_ASSERT_SIZE\((\w+),", headers))
    for record, body in RECORD.findall(headers):
        if record not in sized:
            yield f"{record}: no size assertion"
        if record not in records:
            yield f"{record}: no row in header_layout_test.c"
        for member in MEMBER.findall(body):
            if (record, member) not in asserted:
                yield f"{record}.{member}: no offset assertion"
            if (record, member) not in members:
                yield f"{record}.{member}: no row in header_layout_test.c"
    for constant in CONSTANT.findall(headers):
        if constant not in constants:
            yield f"{constant}: no row in header_constants_test.c"


def main():
    folder = Path(__file__).resolve().parent
    paths = sorted((folder.parents[1] / "include" / "vzapi").glob("*.h"))
    headers = COMMENT.sub("", "\n".join(path.read_text(encoding="utf-8") for path in paths))
    layout_test = (folder / "header_layout_test.c").read_text(encoding="utf-8")
    constants_test = (folder / "header_constants_test.c").read_text(encoding="utf-8")
    missing = list(missing_rows(headers, layout_test, constants_test))
    for line in missing:
        print(line)
    print(f"{len(RECORD.findall(headers))} records, {len(CONSTANT.findall(headers))} constants, {len(missing)} rows missing")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
