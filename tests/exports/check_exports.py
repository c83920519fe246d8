"""Compares the classes that a shared library exports with a list.

Usage: check_exports.py LIBRARY LIST. A class is exported when one of its members, its table of virtual
operations or its type information is. Weak symbols are left out where they are no tables: they are
instances of Qt's and the standard library's templates. Exit code 1 when the two differ.
"""

import re
import subprocess
import sys
from pathlib import Path

TABLE = re.compile(r"^(?:vtable|typeinfo|typeinfo name|VTT) for (.+)$")
FOREIGN = ("std::", "__gnu_cxx::", "QtPrivate::")
# The linker's own marks, and an interface of KrFirmware without out-of-line operation, whose type
# information therefore stands in every library that implements it.
IGNORED = {"__bss_start", "_edata", "_end", "_init", "_fini", "CallbackProvider"}


def owner(name):
    """The class to which a demangled symbol belongs; a free function is its own."""
    table = TABLE.match(name)
    if table:
        return table[1]
    name = re.sub(r"^(?:non-virtual thunk to|virtual thunk to|guard variable for) ", "", name)
    name = re.sub(r"\[abi:\w+\]", "", name).split("(")[0]
    return name.split("::")[0]


def exported_classes(library):
    output = subprocess.run(
        ["nm", "--dynamic", "--demangle", "--defined-only", library],
        capture_output=True, text=True, check=True).stdout
    classes = set()
    for line in output.splitlines():
        kind, name = line[17:].split(" ", 1)
        if kind in "ABDGRST" or TABLE.match(name):
            found = owner(name)
            is_function_type = TABLE.match(name) and "(" in found
            if not found.startswith(FOREIGN) and found not in IGNORED and not is_function_type:
                classes.add(found)
    return classes


def main():
    found = exported_classes(sys.argv[1])
    listed = set(Path(sys.argv[2]).read_text(encoding="utf-8").split())
    for name in sorted(found - listed):
        print(f"exported, but not listed: {name}")
    for name in sorted(listed - found):
        print(f"listed, but not exported: {name}")
    return 0 if found == listed else 1


if __name__ == "__main__":
    sys.exit(main())
