"""Which order class a letter belongs to."""

FIXED = {"Latin": 32, "Greek": 33, "Cyrillic": 34, "Georgian": 35, "Armenian": 36, "Hebrew": 37, "Arabic": 38,
         "Devanagari": 39, "Thai": 40, "Hangul": 41, "Kana": 42}
FURTHER = {"Cyrillic": 43, "Arabic": 44}
BASIC_BLOCKS = {"Cyrillic": range(0x0400, 0x0500), "Arabic": range(0x0600, 0x0700)}
FIRST_FREE, LAST_FREE = 45, 119  # classes of the scripts that have no fixed one
IDENTITIES = 128
MODIFIERS = "Modifiers"  # letters of no script

# Letters that share the identity of the letter before them, since their script has a few letters more than identities:
# Arabic letters that no living alphabet has, and a transliteration letter of Mongolian.
SHARING = {0x063B, 0x063C, 0x063D, 0x063E, 0x063F, 0x068E, 0x068F, 0x0690, 0x069B, 0x069C, 0x06A1, 0x06EE, 0x06EF,
           0x06FF, 0x18A7}

_KANA = {0x30FC, 0xFF70, 0xFF9E, 0xFF9F, *range(0x3031, 0x3036)}


def _script(character):
    if character.code in _KANA or character.script in ("Hiragana", "Katakana"):
        return "Kana"
    return character.script if character.script not in ("Common", "Inherited", "Unknown") else None


def scripts_of_letters(letters):
    """Sorts the letters by script; those that no script claims follow the letter that they are a form of."""
    owner = {}
    for letter in letters:
        script = _script(letter.character)
        if script and len(letter.clusters) == 1:
            owner.setdefault(letter.primary, script)
    groups = {}
    for letter in letters:
        script = _script(letter.character) or owner.get(letter.primary, MODIFIERS)
        groups.setdefault(script, []).append(letter)
    return groups


class Placement:
    """The letters of one script and the first of the classes that hold them."""

    def __init__(self, script, letters, first_class, file=None):
        self.script = script
        self.letters = letters
        self.first_class = first_class
        self.file = file or script.lower()
        self.rank = _identities(letters)

    @property
    def class_count(self):
        return -(-(max(self.rank.values()) + 1) // IDENTITIES)

    def identity(self, letter):
        """Among all of the placement's classes."""
        return self.rank[letter.primary]


def _identities(letters):
    """The identity of each first-level weight, in collation order; letters without a weight have the last one."""
    sharing = {letter.primary for letter in letters if letter.code in SHARING}
    result = {}
    number = -1
    for primary in sorted({letter.primary for letter in letters}, key=lambda weight: weight or 0xFFFF):
        number += 0 if primary in sharing else 1
        result[primary] = number
    return result


def place(letters):
    """A list of placements in the order of their classes."""
    groups = scripts_of_letters(letters)
    result = []
    for script, number in FIXED.items():
        members = groups.pop(script)
        if script in FURTHER:
            block = BASIC_BLOCKS[script]
            basic = {letter.primary for letter in members if letter.code in block}
            further = [letter for letter in members if letter.primary not in basic]
            members = [letter for letter in members if letter.primary in basic]
            result.append(Placement(script, further, FURTHER[script], "further_" + script.lower()))
        result.append(Placement(script, members, number))
    modifiers = groups.pop(MODIFIERS)
    # A script stands where the middle one of its letters does, since repetition marks are ranked apart.
    middle = {script: sorted(each.primary for each in group)[len(group) // 2] for script, group in groups.items()}
    ranked = sorted(groups, key=middle.get)
    number = FIRST_FREE
    for script in ranked:
        placement = Placement(script, groups[script], number)
        result.append(placement)
        number += placement.class_count
    result.append(Placement(MODIFIERS, modifiers, number))
    if number > LAST_FREE:
        raise ValueError("too many classes")
    return sorted(result, key=lambda placement: placement.first_class)
