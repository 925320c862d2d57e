"""Orders of the letters of every script but Latin and Hangul.

An identity is a first-level weight. What tells its letters apart, marks and styles, becomes the accent number, the same
one in every letter of a class; case and what has the same folded case become the case field.
"""

from classes import IDENTITIES
from letter import LOWER, SMALL, TITLE, UPPER, Slot, pair_groups

ACCENTS = 32

# Styles in ascending order; styles that no class can afford to number apart have one name.
_STYLES = ["", "other", "isolated", "final", "initial", "medial", "raised", "wide", "narrow"]
_SAME_STYLE = {"font": "other", "super": "raised", "sub": "raised", "vertical": "other", "noBreak": "other"}
_KANA_CASES = {0x0E: UPPER, 0x11: TITLE, 0x12: TITLE, 0x0D: LOWER, 0x0F: SMALL, 0x10: SMALL}


def plain_characters(letters):
    """Where an expansion finds its further letters: (first-level weight, marks) -> letters, the plainest first."""
    result = {}
    for letter in sorted(letters, key=lambda each: ([e[2] for e in each.elements], each.code)):
        if len(letter.clusters) == 1:
            result.setdefault((letter.primary, letter.marks), []).append(letter)
    return result


def expand(letter, plain, symbols, same_class):
    """Codes that stand for the clusters after the first; empty when they cannot be said in the letter's own class."""
    result = []
    for cluster in letter.clusters[1:]:
        upper = letter.is_upper if letter.character.category != "Lt" else cluster.is_upper
        found = [each for each in plain.get((cluster.primary, cluster.marks), plain.get((cluster.primary, ()), []))
                 if same_class(each)]
        fitting = [each for each in found if each.is_upper == upper] or found
        code = fitting[0].code if fitting else symbols.get(cluster.primary)
        if code is None:
            return ()
        result.append(code)
    return tuple(result)


def legend(accents, mark_names):
    """What each accent number means: the marks by their names, the style, and which of several such forms it is."""
    for number, (marks, style, again) in enumerate(accents):
        words = [mark_names.get(mark, "variant") for mark in marks] + ([style] if style else [])
        yield f"accent {number}: {', '.join(words) or 'none'}{f' ({again + 1})' if again else ''}"


def _case(letter, cased, kana):
    if kana:
        return _KANA_CASES.get(letter.tertiary, UPPER)
    if not cased or letter.character.category == "Lu":
        return UPPER
    if letter.character.category == "Lt":
        return TITLE
    return UPPER if letter.is_upper else LOWER


def _has_fold_of(letter, members):
    """Whether another letter of the identity, unmarked alike, has the same upper case."""
    return any(other.character.upper == letter.character.upper and other is not letter
               for other in members if letter.character.upper is not None)


class _Taken:
    """Slots of one identity that are in use. `Place` finds a group the first form and row that is free."""

    def __init__(self, cased, kana):
        self.cased = cased
        self.kana = kana
        self.used = set()

    def rows(self, group):
        case = [_case(letter, self.cased, self.kana) for letter in group]
        yield case
        if len(group) == 1 and _style(group[0], self.kana) in ("other", "raised"):
            if self.cased:
                yield [TITLE if case[0] == UPPER else SMALL]
            else:
                yield from ([TITLE], [LOWER], [SMALL])

    def place(self, group, forms):
        for form in forms:
            for row in self.rows(group):
                slots = [(case, form, letter.then) for case, letter in zip(row, group)]
                if len(set(slots)) == len(slots) and not self.used & set(slots):
                    self.used |= set(slots)
                    return list(zip(group, row)), form
        raise ValueError(f"no room for {group[0].character.name}")


def _style(letter, kana):
    if kana and letter.style != "narrow":
        return ""
    if letter.style == "final" and not letter.character.tag:
        return "other"
    return _SAME_STYLE.get(letter.style, letter.style)


def _forms(group, members, kana):
    first = group[0]
    style = _style(first, kana)
    is_fold = first.style == "font" or first.is_upper or _has_fold_of(first, members)
    if len(group) == 1 and style == "other" and is_fold and not first.then:
        yield first.marks, "", 0
    for again in range(ACCENTS * 4):
        yield first.marks, style, again


def assign(placement, plain, symbols):
    """Gives every letter of a placement its slot and expansion; returns the forms in the order of accent numbers."""
    letters = placement.letters
    cased = any(letter.character.category in ("Lu", "Ll") for letter in letters)
    kana = placement.script == "Kana"
    codes = {letter.code: placement.identity(letter) // IDENTITIES for letter in letters}
    identities = {}
    for letter in letters:
        home = placement.identity(letter) // IDENTITIES
        letter.then = expand(letter, plain, symbols, lambda each: codes.get(each.code) == home)
        identities.setdefault(placement.identity(letter), []).append(letter)
    placed = []
    for identity, members in identities.items():
        taken = _Taken(cased, kana)
        groups = pair_groups(members)
        # Plain letters first, so that no other form takes their place.
        for group in sorted(groups, key=lambda group: _style(group[0], kana) != ""):
            slots, form = taken.place(group, _forms(group, members, kana))
            placed += [(letter, identity, case, form) for letter, case in slots]
    forms = sorted({form for _, _, _, form in placed}, key=lambda form: (form[0], _STYLES.index(form[1]), form[2]))
    if forms[0] != ((), "", 0) or len(forms) > ACCENTS:
        raise ValueError(f"{placement.script}: {len(forms)} forms: {forms}")
    for letter, identity, case, form in placed:
        letter.slot = Slot(identity, case, forms.index(form))
    return forms
