#!/usr/bin/env python3
"""Tells which names of results a built library does not carry as UTF-16 text. Exit status: 0 none, 1 some."""

import sys
from pathlib import Path

NAMES = [
    "SUCCESS",
    "INVALID_PARAM",
    "UNKNOWN_TYPE",
    "INVALID_VCARD",
    "INVALID_VCAL",
    "INVALID_VMSG",
    "INVALID_VBOOKMARK",
    "OUT_OF_MEM",
]

library = Path(sys.argv[1])
content = library.read_bytes()
missing = [name for name in NAMES if f"CONVERTER_ERR_{name}\0".encode("utf-16-le") not in content]
for name in missing:
    print(f"{library.name}: CONVERTER_ERR_{name} is missing")
sys.exit(1 if missing else 0)
