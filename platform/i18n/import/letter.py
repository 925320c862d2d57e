"""Letters as the default collation sees them: clusters of a first-level weight and what modifies it."""

# Third-level weights of the default collation.
_UPPER = {0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x1D}
_STYLES = {0x03: "wide", 0x09: "wide", 0x12: "narrow", 0x10: "narrow", 0x14: "super", 0x1D: "super", 0x15: "sub",
           0x17: "initial", 0x18: "medial", 0x19: "final", 0x1A: "isolated",
           0x04: "other", 0x05: "other", 0x06: "other", 0x0A: "other", 0x0B: "other", 0x0C: "other"}

# Second-level weights from here on tell variants of a letter, not marks.
FIRST_VARIANT_WEIGHT = 0x11C


class Cluster:
    """One first-level weight with the second-level weights behind it."""

    def __init__(self, primary, tertiary):
        self.primary = primary
        self.tertiary = tertiary
        self.marks = ()

    @property
    def is_upper(self):
        return self.tertiary in _UPPER


def clusters(elements):
    """Ignorable elements before the first cluster are dropped."""
    result = []
    for primary, secondary, tertiary in elements:
        if primary:
            result.append(Cluster(primary, tertiary))
        elif result and secondary:
            result[-1].marks += (secondary,)
    return result


class Letter:
    """A letter before it has an order."""

    def __init__(self, character, elements):
        self.character = character
        self.code = character.code
        self.elements = elements
        self.clusters = clusters(elements)
        self.primary = self.clusters[0].primary if self.clusters else 0
        self.marks = self.clusters[0].marks if self.clusters else ()
        self.then = ()  # codes of the expansion
        self.slot = None

    @property
    def tertiary(self):
        return self.elements[0][2] if self.elements else 0

    @property
    def style(self):
        """In which way the letter differs from the plain one of its kind, marks aside; empty: in none."""
        tag = self.character.tag
        return _STYLES.get(self.tertiary, "") if tag in ("", "compat") else tag

    @property
    def is_upper(self):
        return self.character.category in ("Lu", "Lt") or (self.character.category == "Lm" and self.tertiary in _UPPER)

    @property
    def collation_key(self):
        return ([e[0] for e in self.elements if e[0]], [e[1] for e in self.elements if e[1]],
                [e[2] for e in self.elements], self.code)


class Slot:
    """Where a letter stands in its class."""

    def __init__(self, identity, case, accent):
        self.identity = identity  # 4 * letter number + variant
        self.case = case
        self.accent = accent


UPPER, TITLE, LOWER, SMALL = range(4)


def pair_groups(letters):
    """Groups of letters that are each other's upper and lower case, in collation order of their first members."""
    by_code = {letter.code: letter for letter in letters}
    leader = {}

    def find(code):
        while leader.get(code, code) != code:
            code = leader[code]
        return code

    for letter in letters:
        for other in (letter.character.upper, letter.character.lower):
            # One-way mappings (a final sigma's upper case) make no pair.
            if other in by_code and letter.code in (by_code[other].character.lower, by_code[other].character.upper):
                leader[find(letter.code)] = find(other)
    groups = {}
    for letter in letters:
        groups.setdefault(find(letter.code), []).append(letter)
    result = [sorted(group, key=lambda each: each.collation_key) for group in groups.values()]
    return sorted(result, key=lambda group: group[0].collation_key)
