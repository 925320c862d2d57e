"""Spaces, symbols, decimal digits and ideographs."""

import unicode_data

PRIVATE_AND_SURROGATES = (range(0xD800, 0xE000), range(0xE000, 0xF900))
_IDEOGRAPHS = (range(0x4E00, 0xA000), range(0x3400, 0x4DC0))
_FORMS = 10


def _weights(elements, level):
    return [element[level] for element in elements if element[level]]


def _collation_key(code, keys):
    elements = keys[code]
    return _weights(elements, 0), _weights(elements, 1), _weights(elements, 2), code


def spaces(characters, keys):
    """Codes in collation order."""
    codes = [code for code, character in characters.items() if character.is_space]
    return sorted(codes, key=lambda code: _collation_key(code, keys))


def symbols(characters, keys):
    """Codes in collation order: controls, format characters, marks, then what the collation ranks; no ranges."""
    ranks = {"Cc": 0, "Cf": 1}

    def key(code):
        primaries, secondaries, tertiaries, _ = _collation_key(code, keys) if code in keys else ([], [], [], 0)
        if primaries:
            group = 4
        elif secondaries:
            group = 3
        else:
            group = ranks.get(characters[code].category, 2)
        return group, primaries, secondaries, tertiaries, code

    codes = [code for code, character in characters.items()
             if character.category not in ("Nd", "Cs", "Co") and not character.is_letter and not character.is_space]
    return sorted(codes, key=key)


def digits(characters):
    """(code, class, form, value): ASCII is form 0 of the first class, every further set the next form in code order."""
    codes = sorted(code for code, character in characters.items() if character.category == "Nd")
    result = []
    for position, code in enumerate(codes):  # every set is ten codes in a row
        set_number, value = divmod(position, 10)
        result.append((code, 16 + set_number // _FORMS, set_number % _FORMS, value))
    return result


def ideographs(characters):
    """(range of codes, first number), in collation order: what repeats an ideograph, the unified ideographs, those that
    were unified later, extension A, compatibility ideographs that are no canonical equivalent of a character here."""
    han = [code for code in characters if unicode_data.han_ideograph(characters[code])
           and not unicode_data.is_singleton(characters, code)]
    named = [code for code in han if not any(code in block for block in _IDEOGRAPHS)]
    repetition = [code for code in named if characters[code].category == "Lm"]
    unified = [code for code in named if code not in repetition and not characters[code].mapping]
    compatibility = [code for code in named if code not in repetition and characters[code].mapping]
    ranges = [range(code, code + 1) for code in repetition]
    ranges.append(_IDEOGRAPHS[0])
    ranges += [range(code, code + 1) for code in unified]
    ranges.append(_IDEOGRAPHS[1])
    ranges += [range(code, code + 1) for code in compatibility]
    number = 0
    result = []
    for codes in ranges:
        result.append((codes, number))
        number += len(codes)
    return result
