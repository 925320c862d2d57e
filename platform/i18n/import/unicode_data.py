"""The facts of the 16-bit plane, read from the files of Debian's unicode-data package."""

import os
import re


class Character:
    """What the Unicode Character Database says of one code."""

    def __init__(self, code, name, category, decomposition, upper, lower):
        self.code = code
        self.name = name
        self.category = category
        tag, mapping = "", decomposition
        if decomposition.startswith("<"):
            tag, mapping = decomposition[1:].split("> ")
        self.tag = tag  # kind of compatibility mapping; empty for a canonical one
        self.mapping = [int(code, 16) for code in mapping.split()]
        self.upper = upper  # simple mapping; None: itself
        self.lower = lower
        self.upper_rest = []  # what follows `upper` in the full upper-case form
        self.script = "Unknown"
        self.is_space = False

    @property
    def is_letter(self):
        return self.category[0] == "L"

    @property
    def printable(self):
        return self.category[0] not in "CZM"


def in_plane(code):
    return code <= 0xFFFF


def _lines(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as file:
        for line in file:
            line = line.split("#")[0].strip()
            if line:
                yield line


def _ranges(folder, name):
    """The code ranges of a property file with their values."""
    for line in _lines(folder, name):
        codes, value = [field.strip() for field in line.split(";")[:2]]
        first, _, last = codes.partition("..")
        yield range(int(first, 16), min(int(last or first, 16), 0xFFFF) + 1), value


def _code(field):
    code = int(field, 16) if field else None
    return code if code is None or in_plane(code) else None


def read(folder):
    """All assigned characters but U+0000, by code."""
    characters = {}
    first = None
    with open(os.path.join(folder, "UnicodeData.txt"), encoding="utf-8") as file:
        for line in file:
            fields = line.rstrip("\n").split(";")
            code = int(fields[0], 16)
            if code == 0 or not in_plane(code):
                continue
            name = fields[1]
            if name.endswith(", First>"):
                first = code
                continue
            codes = [code]
            if name.endswith(", Last>"):
                codes, name = range(first, code + 1), name[1:-len(", Last>")]
            elif name == "<control>":
                name = fields[10] or "control"
            for each in codes:
                characters[each] = Character(each, name, fields[2], fields[5], _code(fields[12]), _code(fields[13]))
    for codes, script in _ranges(folder, "Scripts.txt"):
        for code in codes:
            if code in characters:
                characters[code].script = script
    for codes, value in _ranges(folder, "PropList.txt"):
        if value == "White_Space":
            for code in codes:
                if code in characters:
                    characters[code].is_space = True
    _read_full_upper_case(folder, characters)
    return characters


def _read_full_upper_case(folder, characters):
    """Unconditional upper-case forms of several characters, where there is no simple one."""
    for line in _lines(folder, "SpecialCasing.txt"):
        fields = [field.strip() for field in line.split(";")]
        code = int(fields[0], 16)
        upper = [int(each, 16) for each in fields[3].split()]
        if len(fields) > 5 or code not in characters or len(upper) < 2:
            continue  # a fifth field is a condition
        character = characters[code]
        if character.upper is None:
            character.upper, character.upper_rest = upper[0], upper[1:]


def canonical_target(characters, code):
    """The character that is canonically equivalent to this one; None when that is a sequence or itself."""
    target = None
    while code in characters and not characters[code].tag and len(characters[code].mapping) == 1:
        code = target = characters[code].mapping[0]
    return target if target is not None and in_plane(target) else None


def is_singleton(characters, code):
    return canonical_target(characters, code) is not None


def han_ideograph(character):
    return character.script == "Han" and character.is_letter


_KEY = re.compile(r"([0-9A-F ]+?)\s*;\s*((?:\[[.*][0-9A-F.]+\])+)")
_ELEMENT = re.compile(r"\[[.*]([0-9A-F.]+)\]")


def read_collation(folder):
    """Collation elements (primary, secondary, tertiary) of every single character in the default collation."""
    keys = {}
    for line in _lines(folder, "allkeys.txt"):
        match = _KEY.match(line)
        if match and " " not in match[1] and in_plane(int(match[1], 16)):
            keys[int(match[1], 16)] = [tuple(int(weight, 16) for weight in element.split("."))
                                       for element in _ELEMENT.findall(match[2])]
    return keys
