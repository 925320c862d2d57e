#!/usr/bin/env python3
"""Writes platform/i18n/data/characters from the Unicode Character Database and the default Unicode collation.

Run once, by hand; never by the build, which only reads the files that this wrote:

    python3 platform/i18n/import/import_characters.py FOLDER platform/i18n/data/characters

FOLDER holds UnicodeData.txt, Scripts.txt, PropList.txt, SpecialCasing.txt and allkeys.txt of Debian's package
unicode-data 15.0.0-1 (Unicode 15.0.0, default Unicode collation 15.0.0). The result depends on nothing else. It is
frozen: databases keep indexes in this order, so a run that changes a line needs a new table version.

After writing, the files are read back and checked (check.py), and a summary is printed.
"""

import glob
import os
import sys

sys.dont_write_bytecode = True  # nothing but the data is to stay behind

import check
import forms
import hangul
import latin
import others
import unicode_data
from classes import MODIFIERS, place
from letter import Letter
from writer import File, letter_arguments, line, range_line

_FIRST_SYMBOL_ORDER = 80

# A letter behind an apostrophe: a form of that letter, not of the apostrophe.
_BEHIND_APOSTROPHE = 0x0149


def _letters(characters, keys):
    result = []
    for code, character in sorted(characters.items()):
        if (not character.is_letter or character.script == "Han" or code in hangul.SYLLABLES
                or unicode_data.is_singleton(characters, code)):
            continue
        elements = keys[code]
        if code == _BEHIND_APOSTROPHE:
            elements = elements[::-1]
        result.append(Letter(character, elements))
    return result


def _symbol_of_weight(characters, keys):
    """What stands in an expansion for a first-level weight that no letter has."""
    result = {}
    for code, character in sorted(characters.items()):
        elements = keys.get(code, [])
        if not character.is_letter and len(elements) == 1 and elements[0][0]:
            result.setdefault(elements[0][0], code)
    return result


def _mark_names(characters, keys):
    """Names of second-level weights: those of the first marks that have them alone."""
    result = {}
    for code, character in sorted(characters.items()):
        elements = keys.get(code, [])
        if len(elements) == 1 and not elements[0][0] and elements[0][1]:
            result.setdefault(elements[0][1], character.name.removeprefix("COMBINING ").lower())
    return result


class _Output:
    def __init__(self, characters):
        self.characters = characters
        self.files = {}
        self.home = {}  # the file of each character

    def file(self, name, subject):
        return self.files.setdefault(name, File(name, subject))

    def add(self, file, code, arguments, then=()):
        file.lines[code] = line(self.characters[code], arguments, then)
        self.home[code] = file

    def add_range(self, file, codes, arguments, subject):
        file.lines[codes[0]] = range_line(codes, arguments, subject)
        for code in codes:
            self.home[code] = file


def _write_others(output, characters, keys):
    file = output.file("spaces", "White space, in the order of the default collation.")
    for number, code in enumerate(others.spaces(_own(characters), keys), 1):
        output.add(file, code, f"space {number}")
    file = output.file("symbols",
                       "Symbols: what is neither space, decimal digit, letter nor ideograph, in the order of the "
                       "default collation; controls, format characters and marks come first.")
    number = 0
    for code in others.symbols(_own(characters), keys):
        # A code without a character is its own order, and none may be a wildcard's.
        while chr(code) in "*?\\" and _FIRST_SYMBOL_ORDER + number not in characters:
            number += 1
        output.add(file, code, f"symbol {number}")
        number += 1
    file = output.file("unnamed",
                       "Codes without characters of their own: surrogates and private use, behind all symbols.")
    for codes in others.PRIVATE_AND_SURROGATES:
        output.add_range(file, codes, f"symbol {number}", characters[codes[0]].name)
        number += len(codes)
    file = output.file("digits", "Decimal digits, ten codes a set; the sets have forms and classes in code order.")
    for code, order_class, form, value in others.digits(characters):
        output.add(file, code, f"digit {order_class} {form} {value}")
    file = output.file("han", "Ideographs, in the order of the default collation.")
    for codes, number in others.ideographs(characters):
        if len(codes) == 1:
            output.add(file, codes[0], f"han {number}")
        else:
            output.add_range(file, codes, f"han {number}", characters[codes[0]].name)


def _own(characters):
    """The characters that are not canonically equivalent to another one."""
    return {code: character for code, character in characters.items()
            if not unicode_data.is_singleton(characters, code)}


def _write_letters(output, characters, keys):
    letters = _letters(characters, keys)
    plain = forms.plain_characters(letters)
    symbols = _symbol_of_weight(characters, keys)
    mark_names = _mark_names(characters, keys)
    for placement in place(letters):
        if placement.script == "Hangul":
            hangul.assign(placement)
            legend = ["Accents just number the letters of an identity."]
        elif placement.script == "Latin":
            latin.assign(placement, plain, symbols)
            legend = ["Accents of variant 0: see KyAccent; in variants 1 to 3 they just number the letters."]
        else:
            legend = forms.legend(forms.assign(placement, plain, symbols), mark_names)
        last = placement.first_class + max(letter.slot.identity for letter in placement.letters) // 128
        classes = f"class {placement.first_class}" if last == placement.first_class or placement.script == "Latin" \
            else f"classes {placement.first_class} to {last}"
        what = "Letters of no script: modifiers and repetition marks" if placement.script == MODIFIERS \
            else f"{placement.file.replace('_', ' ').title()} letters"
        file = output.file(placement.file, f"{what}, {classes}.")
        file.legend = list(legend)
        for letter in placement.letters:
            output.add(file, letter.code, letter_arguments(placement.first_class, letter.slot), letter.then)
        if placement.script == "Hangul":
            output.add_range(file, hangul.SYLLABLES, "syllables", characters[hangul.SYLLABLES[0]].name)


def _write_singletons(output, characters):
    for code in sorted(characters):
        target = unicode_data.canonical_target(characters, code)
        if target is not None:
            output.add(output.home[target], code, f"as {target:04X}")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    source, target = sys.argv[1:]
    characters, keys = unicode_data.read(source), unicode_data.read_collation(source)
    output = _Output(characters)
    _write_others(output, characters, keys)
    _write_letters(output, characters, keys)
    _write_singletons(output, characters)
    os.makedirs(target, exist_ok=True)
    for path in glob.glob(os.path.join(target, "*.txt")):
        os.remove(path)
    for file in output.files.values():
        file.write(target)
    print("\n".join(check.verify(target, characters, keys)))


if __name__ == "__main__":
    main()
