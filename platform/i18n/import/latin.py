"""Orders of Latin letters.

Variant 0 of a base letter is the letter itself; marks and styles have fixed accent numbers. Variant 1 holds the forms
with rare marks and the rare letters that follow the base letter in the collation; variants 2 and 3 (or 1, where there
is nothing rare) begin with a letter of a living alphabet, and the rare letters behind it share them. In variants 1 to 3
accents just number the letters in collation order.
"""

from forms import expand
from letter import FIRST_VARIANT_WEIGHT, LOWER, SMALL, TITLE, UPPER, Slot, pair_groups

BASE = "abcdefghijklmnopqrstuvwxyz"

# Second-level weights of the marks.
ACUTE, GRAVE, BREVE, CIRCUMFLEX, CARON, RING, DIAERESIS, DOUBLE_ACUTE = 0x24, 0x25, 0x26, 0x27, 0x28, 0x29, 0x2B, 0x2C
TILDE, DOT_ABOVE, SLASH, CEDILLA, OGONEK, MACRON = 0x2D, 0x2E, 0x2F, 0x30, 0x31, 0x32
SLANTED_STROKE, STROKE = 0x35, 0x39
HOOK_ABOVE, DOUBLE_GRAVE, INVERTED_BREVE, HORN, DOT_BELOW, COMMA_BELOW = 0x3B, 0x3C, 0x3E, 0x3F, 0x42, 0x45
LINE_BELOW = 0x49

# Accent numbers of variant 0.
ACCENTS = {(): 0, (ACUTE,): 1, (GRAVE,): 2, (BREVE,): 3, (CIRCUMFLEX,): 4, (CARON,): 5, (RING,): 6, (DIAERESIS,): 7,
           (DOUBLE_ACUTE,): 8, (TILDE,): 9, (DOT_ABOVE,): 10, (SLASH,): 11, (SLANTED_STROKE,): 11, (STROKE,): 11,
           (CEDILLA,): 12, (OGONEK,): 13, (MACRON,): 14, (COMMA_BELOW,): 15, (HOOK_ABOVE,): 16, (HORN,): 17,
           (DOT_BELOW,): 18, (DOUBLE_GRAVE,): 19, (INVERTED_BREVE,): 20, (LINE_BELOW,): 21, (CIRCUMFLEX, ACUTE): 22,
           (CIRCUMFLEX, GRAVE): 23, (CIRCUMFLEX, HOOK_ABOVE): 29, (CIRCUMFLEX, TILDE): 30, (DOT_BELOW, CIRCUMFLEX): 31}
LIGATURE, MODIFIER, SUBSCRIPT, FULL_WIDTH, OTHER_FORM = 24, 25, 26, 27, 28
_STYLE_ACCENTS = {"super": MODIFIER, "sub": SUBSCRIPT, "wide": FULL_WIDTH}

# Letters that begin a variant of their own, behind each base letter.
HEADS = {"a": "ⱥɑ", "b": "ƀɓ", "c": "ȼƈ", "d": "ɖɗ", "e": "əɛ", "f": "ƒ", "g": "ǥɣ", "h": "ƕⱨ", "i": "ıɩ", "j": "ɉɟ",
         "k": "ƙⱪ", "l": "ƚɬ", "m": "ɱ", "n": "ɲŋ", "o": "ɔɵ", "p": "ᵽƥ", "q": "ɋĸ", "r": "ʀɍ", "s": "ʂʃ", "t": "ŧƭ",
         "u": "ʉʊ", "v": "ʋʌ", "w": "ⱳ", "x": "ꭓ", "y": "ƴȝ", "z": "þʔ"}

_ACCENT_COUNT = 32


def identity_name(identity):
    return f"{BASE[identity // 4]}.{identity % 4}"


def _case(letter):
    if letter.character.category == "Lt":
        return TITLE
    return UPPER if letter.is_upper else LOWER


def _proper_row(group):
    """The case fields of a group's letters."""
    return [_case(letter) for letter in group]


def _further_row(group):
    """The case fields that letters take when the proper ones are in use."""
    return [TITLE if letter.is_upper else SMALL for letter in group]


class _BaseLetter:
    """Variant 0 of a letter."""

    def __init__(self, members):
        self.members = members
        self.used = set()
        self.rare = []

    def _candidates(self, group):
        """Pairs of case fields and accent number, the best first."""
        first = group[0]
        proper = _proper_row(group)
        further = [_further_row(group)] if len(group) == 1 else []
        marks = tuple(weight for weight in first.marks if weight < FIRST_VARIANT_WEIGHT)
        is_form = marks != first.marks
        accent = ACCENTS.get(marks)
        if first.then:
            if first.style == "super":
                yield proper, MODIFIER
            yield proper, LIGATURE
            yield proper, OTHER_FORM
        elif first.style in _STYLE_ACCENTS:
            if not marks and not is_form:
                yield proper, _STYLE_ACCENTS[first.style]
                for row in further:
                    yield row, _STYLE_ACCENTS[first.style]
        elif further and accent is not None and self._folds_to_a_plain_letter(first):
            yield further[0], accent
        elif further and first.style == "font" and accent is not None:
            for number in (accent, FULL_WIDTH, OTHER_FORM, MODIFIER):
                yield further[0], number
        elif is_form:
            if not marks:
                yield proper, OTHER_FORM
        elif accent is not None and len(first.clusters) == 1:
            yield proper, accent

    def _folds_to_a_plain_letter(self, letter):
        character = letter.character
        plain = [other for other in self.members if other.character.upper == character.upper]
        return letter.style == "other" and character.upper is not None and not character.upper_rest and len(plain) > 1

    def place(self, group, identity):
        for row, accent in self._candidates(group):
            slots = [(case, accent, letter.then) for case, letter in zip(row, group)]
            if not self.used & set(slots):
                self.used |= set(slots)
                for case, letter in zip(row, group):
                    letter.slot = Slot(identity, case, accent)
                return
        self.rare.append(group)


def _number(groups, identity):
    """Gives groups of one variant their accent numbers, in the order in which they come."""
    for number, group in enumerate(groups):
        if number >= 2 * _ACCENT_COUNT:
            raise ValueError(f"no room for {group[0].character.name} in {identity_name(identity)}")
        row = _proper_row(group) if number < _ACCENT_COUNT else _further_row(group)
        if len(set(row)) < len(group):
            raise ValueError(f"two letters of one case with {group[0].character.name}")
        for case, letter in zip(row, group):
            letter.slot = Slot(identity, case, number % _ACCENT_COUNT)


def assign(placement, plain, symbols):
    letters = placement.letters
    codes = {letter.code for letter in letters}
    by_primary = {}
    for letter in letters:
        letter.then = expand(letter, plain, symbols, lambda each: each.code in codes)
        by_primary.setdefault(letter.primary, []).append(letter)
    primary_of = {letter.code: letter.primary for letter in letters}
    starts = [primary_of[ord(name)] for name in BASE] + [0x10000]
    placed_before_a = [primary for primary in by_primary if primary < starts[0]]
    if placed_before_a:
        raise ValueError("a Latin letter before a")
    for number, name in enumerate(BASE):
        members = by_primary[starts[number]]
        base = _BaseLetter(members)
        # Letters of their own claim a slot before compatibility forms do.
        for group in sorted(pair_groups(members), key=lambda group: (group[0].style not in ("", "other"),)):
            base.place(group, number * 4)
        sharers = {1: sorted(base.rare, key=lambda group: group[0].collation_key)}
        heads = [ord(head) for head in HEADS[name]]
        variant = 1
        for primary in sorted(primary for primary in by_primary if starts[number] < primary < starts[number + 1]):
            own = by_primary[primary]
            if any(letter.code in heads for letter in own):
                variant += 1 if sharers[variant] else 0
            sharers.setdefault(variant, []).extend(pair_groups(own))
        for variant, groups in sharers.items():
            _number(groups, number * 4 + variant)
