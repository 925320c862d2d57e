"""Orders of Hangul letters.

Leading consonants, vowels and trailing consonants of the modern alphabet are the first identities, in which syllables
are spelt. The letters of old spellings, which the collation ranks behind the modern ones of their kind, divide the
identities that are left among them in collation order.
"""

from classes import IDENTITIES
from letter import LOWER, SMALL, TITLE, UPPER, Slot

LEADING, VOWELS, TRAILING = range(0x1100, 0x1113), range(0x1161, 0x1176), range(0x11A8, 0x11C3)
SYLLABLES = range(0xAC00, 0xD7A4)
_ACCENTS = 32


def _identities(letters):
    """First-level weight -> identity."""
    primaries = {letter.code: letter.primary for letter in letters}
    modern = [primaries[code] for code in [*LEADING, *VOWELS, *TRAILING]]
    old = sorted(set(primaries.values()) - set(modern))
    room = IDENTITIES - len(modern)
    result = {primary: number for number, primary in enumerate(modern)}
    result.update({primary: len(modern) + number * room // len(old) for number, primary in enumerate(old)})
    return result


def assign(placement):
    identities = _identities(placement.letters)
    used = {}
    for letter in sorted(placement.letters, key=lambda each: each.collation_key):
        letter.then = ()
        identity = identities[letter.primary]
        number = used.get(identity, 0)
        used[identity] = number + 1
        letter.slot = Slot(identity, (UPPER, TITLE, LOWER, SMALL)[number // _ACCENTS], number % _ACCENTS)
