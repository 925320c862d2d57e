"""Reads the written files back and proves what the tables rely on."""

import collections
import glob
import os

import unicode_data

_CASES = {"upper": 0, "title": 1, "lower": 2, "small": 3}
_WILDCARDS = "*?\\"
LAST_ORDER = 65519
LAST_SYMBOL = 15919


class Record:
    def __init__(self, code, kind, order_class, order, then=(), upper=None, lower=None):
        self.code = code
        self.kind = kind
        self.order_class = order_class
        self.order = order
        self.then = then
        self.upper = upper
        self.lower = lower

    @property
    def identity(self):
        return self.order_class, self.order & 0x7F

    @property
    def accent(self):
        return self.order >> 7 & 31


def _parse(fields):
    """Kind, class and order; for the first code of a range."""
    kind = fields[1]
    if kind == "space":
        return 16, int(fields[2])
    if kind == "symbol":
        return 16, 80 + int(fields[2])
    if kind == "digit":
        return int(fields[2]), 16128 + 10 * int(fields[4]) + int(fields[3])
    if kind == "han":
        return 120, 0x8000 + int(fields[2])
    if kind == "letter":
        name, variant = fields[3].split(".")
        number = ord(name) - ord("a") + 3 if name.isalpha() else int(name)
        assert number < 32 and int(variant) < 4 and int(fields[5]) < 32, fields
        return int(fields[2]), 0x4000 | _CASES[fields[4]] << 12 | int(fields[5]) << 7 | number << 2 | int(variant)
    assert kind in ("as", "syllables"), fields
    return None, None


def read_back(folder):
    records, aliases = {}, {}
    for path in sorted(glob.glob(os.path.join(folder, "*.txt"))):
        with open(path, encoding="utf-8") as file:
            for text in file:
                fields = text.split("#")[0].split()
                if not fields:
                    continue
                first, _, last = fields[0].partition("..")
                options = dict(field.split("=") for field in fields if "=" in field)
                order_class, order = _parse(fields)
                for step, code in enumerate(range(int(first, 16), int(last or first, 16) + 1)):
                    assert code not in records and code not in aliases, text
                    if fields[1] == "as":
                        aliases[code] = int(fields[2], 16)
                        continue
                    then = tuple(int(each, 16) for each in options.get("then", "").split(",") if each)
                    mapped = [int(options[name], 16) if name in options else None for name in ("upper", "lower")]
                    order_here = None if order is None else order + step
                    records[code] = Record(code, fields[1], order_class, order_here, then, *mapped)
    return records, aliases


def verify(folder, characters, keys):
    """Raises at the first broken promise; returns lines of a summary."""
    records, aliases = read_back(folder)
    assert set(records) | set(aliases) == set(characters), "every assigned character has exactly one record"
    orders = collections.defaultdict(list)
    for code, record in records.items():
        character = characters[code]
        if record.kind != "syllables":
            assert 0 < record.order <= LAST_ORDER and record.order_class < 128 and record.order_class != 20
            orders[record.order_class, record.order, record.then].append(code)
        for other in record.then:
            assert not records[other].then
            assert records[other].kind != "letter" or records[other].order_class == record.order_class
        expected = ("space" if character.is_space else "digit" if character.category == "Nd" else
                    "han" if unicode_data.han_ideograph(character) else "letter" if character.is_letter else "symbol")
        if record.kind == "syllables":
            expected = "syllables"
        assert record.kind == expected, (hex(code), record.kind, expected)
        if record.kind == "space":
            assert record.order < 80
        elif record.kind == "symbol":
            assert 80 <= record.order <= 80 + LAST_SYMBOL
    for code, target in aliases.items():
        assert unicode_data.canonical_target(characters, code) == target and target in records
    for codes in orders.values():
        assert len(codes) == 1, [f"{code:04X}" for code in codes]
    single = collections.Counter(record.order for record in records.values() if record.order_class == 16)
    assert all(single[records[ord(wildcard)].order] == 1 for wildcard in _WILDCARDS)
    for code, record in records.items():
        lower = records.get(record.lower)
        if record.kind == "letter" and lower is not None and lower.upper == code:
            assert (lower.identity, lower.accent) == (record.identity, record.accent), f"{code:04X} and its lower case"
    kinds = collections.Counter(record.kind for record in records.values())
    counts = ", ".join(f"{kinds[kind]} {kind}" for kind in sorted(kinds))
    return [f"records: {counts}, {len(aliases)} as another", *_first_level(records, keys)]


def _first_level(records, keys):
    """How far the letters of each class keep the first level of the default collation."""
    classes = collections.defaultdict(list)
    for code, record in records.items():
        if record.kind == "letter":
            classes[record.order_class].append(record)
    result = []
    for number in sorted(classes):
        weights = collections.defaultdict(set)
        homes = collections.defaultdict(set)
        for record in classes[number]:
            weight = next((element[0] for element in keys[record.code] if element[0]), 0xFFFF)
            weights[record.order & 0x7F].add(weight)
            homes[weight].add(record.order & 0x7F)
        identities = sorted(weights)
        shared = sum(len(weights[identity]) - 1 for identity in identities)
        split = sum(len(home) - 1 for home in homes.values())
        reversals = sum(max(weights[first]) > min(weights[second]) for first, second in zip(identities, identities[1:]))
        accents = len({record.accent for record in classes[number]})
        result.append(f"class {number}: {len(classes[number])} letters, {len(identities)} identities, "
                      f"{accents} accents; weights that share an identity {shared}, "
                      f"further identities of a weight {split}, reversals {reversals}")
    return result
