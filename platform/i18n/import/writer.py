"""Writes character files: the format of platform/i18n/data/README.md."""

import os
import textwrap

from classes import IDENTITIES
from latin import BASE

CASES = ["upper", "title", "lower", "small"]
_SOURCES = {"unicode": "Unicode Character Database 15.0.0", "collation": "default Unicode collation table 15.0.0"}
_WIDTH = 118


class File:
    """The lines of one file, to be written in code order."""

    def __init__(self, name, subject):
        self.name = name
        self.subject = subject
        self.lines = {}
        self.legend = []  # further lines of the head comment

    def write(self, folder):
        head = (f"{self.subject} Written by platform/i18n/import from the {_SOURCES['unicode']} and the "
                f"{_SOURCES['collation']} (Debian package unicode-data 15.0.0-1).")
        with open(os.path.join(folder, self.name + ".txt"), "w", encoding="utf-8", newline="\n") as file:
            for line in textwrap.wrap(head, _WIDTH - 2):
                file.write(f"# {line}\n")
            for line in self.legend:
                file.write(f"# {line}\n")
            file.write("\n")
            for code in sorted(self.lines):
                file.write(self.lines[code] + "\n")


def codes_text(codes):
    return ",".join(f"{code:04X}" for code in codes)


def case_text(character):
    result = ""
    if character.upper is not None:
        result += f" upper={character.upper:04X}"
    if character.upper_rest:
        result += f" upper+={codes_text(character.upper_rest)}"
    if character.lower is not None:
        result += f" lower={character.lower:04X}"
    return result


def comment(character):
    return f"  # {chr(character.code)} {character.name}" if character.printable else f"  # {character.name}"


def line(character, arguments, then=()):
    expansion = f" then={codes_text(then)}" if then else ""
    return f"{character.code:04X} {arguments}{case_text(character)}{expansion}{comment(character)}"


def range_line(codes, arguments, subject):
    return f"{codes[0]:04X}..{codes[-1]:04X} {arguments}  # {subject}"


def letter_arguments(first_class, slot):
    number, identity = divmod(slot.identity, IDENTITIES)
    letter, variant = divmod(identity, 4)
    # Latin letters have names; their identities are counted from a.
    name = BASE[letter] if first_class == 32 else letter
    return f"letter {first_class + number} {name}.{variant} {CASES[slot.case]} {slot.accent}"
