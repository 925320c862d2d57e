#!/usr/bin/env python3
"""Writes the files of platform/i18n/data/codesets.

Each set is what the C library's iconv says of its bytes: a byte that iconv refuses is no character. Where Python
knows the set too, every byte on which the two differ is printed. The files are checked in and frozen; this script
shows where they come from and is not part of the build.

    make_codesets.py FOLDER
"""

import subprocess
import sys
from pathlib import Path

# Number, name for iconv and in the file. 1 is the first 256 codes of Unicode and needs no file.
CODE_SETS = [
    (2, "windows-1252"),
    (3, "US-ASCII"),
    (4, "IBM437"),
    (5, "IBM850"),
    (6, "HP-ROMAN8"),
] + list(
    enumerate(
        [f"ISO-8859-{part}" for part in (2, 3, 5, 6, 7, 8, 9, 11, 13, 15, 16)]
        + [f"windows-125{part}" for part in (0, 1, 3, 4, 5, 6, 7, 8)]
        + ["KOI8-R"],
        start=7,
    )
)


def iconv_codes(name, values):
    """The Unicode code of each of the bytes; None: no character."""
    # Each byte on a line of its own: sets that compose characters of several bytes forget the letter at the line's end.
    text = b"".join(bytes([value]) + b"|\n" for value in values)
    run = subprocess.run(["iconv", "-c", "-f", name, "-t", "UTF-8"], input=text, capture_output=True, check=False)
    lines = run.stdout.decode("utf-8").split("|\n")[:-1]
    if len(lines) != len(values) or any(len(line) > 1 for line in lines):
        sys.exit(f"{name}: iconv's answer is not a character a byte")
    return [ord(line) if line else None for line in lines]


def python_code(name, value):
    try:
        return ord(bytes([value]).decode(name))
    except UnicodeDecodeError:
        return None


def compare_with_python(name, codes):
    try:
        b"".decode(name)
    except LookupError:
        print(f"{name}: not known to Python")
        return
    for value, code in codes.items():
        other = python_code(name, value)
        if other != code:
            print(f"{name} {value:02X}: iconv {code and hex(code)}, Python {other and hex(other)}")


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    ascii_bytes = [value for value in range(0x80) if value not in (0x0A, ord("|"))]
    upper_bytes = list(range(0x80, 0x100))
    for number, name in CODE_SETS:
        if iconv_codes(name, ascii_bytes) != ascii_bytes:
            sys.exit(f"{name}: not ASCII below 80")
        codes = dict(zip(upper_bytes, iconv_codes(name, upper_bytes)))
        compare_with_python(name, codes)
        lines = [f"codeset {number} {name}"]
        lines += [f"{value:02X} {code:04X}" for value, code in codes.items() if code is not None]
        (folder / f"{number:02}-{name.lower()}.txt").write_text("\n".join(lines) + "\n", encoding="ascii")


main()
