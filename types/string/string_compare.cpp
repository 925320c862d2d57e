#include "string_compare.h"

#include "common_text.h"

namespace ky {
namespace {

int Difference(unsigned keyA, unsigned keyB) { return static_cast<int>(keyA - keyB); }

int CompareReaders(KeyReader a, KeyReader b) {
    for (;;) {
        const unsigned keyA = a.Next();
        const unsigned keyB = b.Next();
        if (keyA != keyB) return Difference(keyA, keyB);
        if (a.Order() == 0) return 0;
    }
}

// --- how the characters of a text are looked up ---

struct NarrowText {
    static constexpr unsigned width = 1;
    const KeyTable* table;

    static unsigned Code(const char* p) { return static_cast<unsigned char>(*p); }
    const KeyPage& PageOf(unsigned) const { return *table; }
};

struct WideText {
    static constexpr unsigned width = 2;
    KeyPages pages;
    unsigned char format;

    unsigned Code(const char* p) const { return ReadUnit(p, format); }
    const KeyPage& PageOf(unsigned code) const { return pages.PageOf(static_cast<unsigned short>(code)); }
};

template <class Text>
unsigned KeyAt(const Text& text, const char* p) {
    const unsigned code = text.Code(p);
    return text.PageOf(code).keys[code & 0xFF];
}

template <class Text>
bool LeansBack(const Text& text, const char* p) {
    const unsigned code = text.Code(p);
    return (text.PageOf(code).marks[code & 0xFF] & KeyPage::kLeansBack) != 0;
}

/// Whole order texts hold their orders as they stand.
struct OrderText {
    static constexpr unsigned width = 2;
    unsigned char format;
};

unsigned KeyAt(const OrderText& text, const char* p) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(p);
    const unsigned high = text.format == 2 ? 0 : 1;
    const auto order = static_cast<unsigned short>(bytes[1 - high] | bytes[high] << 8);
    return OrderKey(order, DefaultClass(order));
}

// --- texts that are read alike: equal characters are equal keys ---

/// Where readers have to begin so that they read what stands at `a` right: the characters before it are those of both
/// texts, as far as they matter.
template <class Text>
std::size_t StepBack(const Text& text, const char* start, const char* a, const char* b) {
    if (a == start || !(LeansBack(text, a) || LeansBack(text, b))) return 0;
    const char* place = a;
    do place -= Text::width;
    while (place != start && LeansBack(text, place));
    return static_cast<std::size_t>(a - place);
}

/// How far the texts are equal under the mask where their first characters, of two codes, are. It may be further.
std::size_t CommonUnder(unsigned mask, const NarrowText& text, const char* a, const char* b) {
    return CommonRanksFrom(text.table->ranks[KeyTable::MaskNumber(mask)], a, b, 1);
}

template <class Text>
std::size_t CommonOneByOne(unsigned mask, const Text& text, const char* a, const char* b) {
    constexpr std::size_t aWhile = 16 * Text::width;
    for (std::size_t at = Text::width;; at += Text::width) {
        const unsigned keyA = KeyAt(text, a + at);
        const unsigned keyB = KeyAt(text, b + at);
        const bool stops = keyA == 0 || KeyPage::IsMarked(keyA | keyB) || ((keyA ^ keyB) & mask) != 0;
        if (stops || at == aWhile) return at;
    }
}

std::size_t CommonUnder(unsigned mask, const WideText& text, const char* a, const char* b) {
    const unsigned char* ranks = text.pages.FirstPage().ranks[KeyTable::MaskNumber(mask)];
    const std::size_t common = CommonWideRanksFrom(ranks, a, b, WideText::width, text.format == 2);
    return common != WideText::width ? common : CommonOneByOne(mask, text, a, b);
}

std::size_t CommonUnder(unsigned mask, const OrderText& text, const char* a, const char* b) {
    return CommonOneByOne(mask, text, a, b);
}

/// `decide(start, a, b)` gives the result where a character at the end of the equal beginnings does not rank alone.
template <class Text, class Decide>
[[gnu::always_inline]] inline int CompareAlike(const Text& text, const char* a, const char* b, unsigned mask,
                                               const Decide& decide) {
    const char* start = a;
    for (;;) {
        const std::size_t common = CommonText<Text::width>(a, b);
        a += common;
        b += common;
        const unsigned keyA = KeyAt(text, a);
        const unsigned keyB = KeyAt(text, b);
        if (KeyPage::IsMarked(keyA | keyB)) return decide(start, a, b);
        if (((keyA ^ keyB) & mask) != 0) return Difference(keyA & mask, keyB & mask);
        if (keyA == 0) return 0;
        const std::size_t alike = CommonUnder(mask, text, a, b);
        a += alike;
        b += alike;
    }
}

template <class Text>
[[gnu::noinline]] int DecideByReaders(const Text& text, const char* start, TextView a, TextView b, unsigned mask) {
    const std::size_t back = StepBack(text, start, a.text, b.text);
    a.text -= back;
    b.text -= back;
    return CompareReaders({a, ~0u, mask, false}, {b, ~0u, mask, false});
}

// --- texts that are read each in its own way ---

template <class TextA, class TextB>
int ComparePairs(const TextA& textA, const TextB& textB, TextView a, TextView b, unsigned limit, unsigned mask) {
    unsigned beforeA = 0;
    unsigned beforeB = 0;
    for (; limit != 0; --limit, a.text += TextA::width, b.text += TextB::width) {
        const unsigned keyA = KeyAt(textA, a.text);
        const unsigned keyB = KeyAt(textB, b.text);
        if (KeyPage::IsMarked(keyA | keyB)) {
            return CompareReaders({a, limit, mask, false, beforeA}, {b, limit, mask, false, beforeB});
        }
        if (((keyA ^ keyB) & mask) != 0) return Difference(keyA & mask, keyB & mask);
        if (keyA == 0) return 0;
        beforeA = keyA;
        beforeB = keyB;
    }
    return 0;
}

/// Calls `with` with how the text's characters are looked up, if they can be.
template <class With>
void LookUp(const TextView& view, const With& with) {
    if (KeyPages::AreKept(view.codeSet, view.language)) {
        with(WideText{KeyPages(view.language), view.format});
    } else if (const KeyTable* table = KeyTableOf(view.codeSet, view.language)) {
        with(NarrowText{table});
    }
}

}  // namespace

int CompareByTable(const KeyTable& table, const char* a, const char* b, unsigned mask) {
    return CompareAlike(NarrowText{&table}, a, b, mask, [&](const char* start, const char* atA, const char* atB) {
        return DecideByReaders(NarrowText{&table}, start, {atA, table.codeSet, table.language, 1},
                               {atB, table.codeSet, table.language, 1}, mask);
    });
}

int CompareByPages(KeyPages pages, const char* a, const char* b, unsigned char format, unsigned mask) {
    const WideText text{pages, format};
    return CompareAlike(text, a, b, mask, [&](const char* start, const char* atA, const char* atB) {
        return DecideByReaders(text, start, {atA, KyCodeSetUnicode, pages.Language(), format},
                               {atB, KyCodeSetUnicode, pages.Language(), format}, mask);
    });
}

int CompareKeys(TextView a, TextView b, unsigned limit, unsigned mask) {
    static constexpr char nothing[2] = {};
    if (a.text == nullptr) a.text = nothing;
    if (b.text == nullptr) b.text = nothing;
    const bool whole = limit == CompareLimit(-1);
    if (ReadsDefaultClasses(a.codeSet, b.codeSet)) {
        if (whole && a.codeSet == b.codeSet && a.format == b.format) {
            return CompareAlike(OrderText{a.format}, a.text, b.text, mask, [](auto...) { return 0; });
        }
        return CompareReaders({a, limit, mask, true}, {b, limit, mask, true});
    }
    if (whole && a.codeSet == b.codeSet && a.language == b.language && a.format == b.format) {
        if (KeyPages::AreKept(a.codeSet, a.language)) {
            return CompareByPages(KeyPages(a.language), a.text, b.text, a.format, mask);
        }
        const KeyTable* table = KeyTableOf(a.codeSet, a.language);
        if (table != nullptr) return CompareByTable(*table, a.text, b.text, mask);
    }
    std::optional<int> result;
    LookUp(a, [&](const auto& textA) {
        LookUp(b, [&](const auto& textB) { result = ComparePairs(textA, textB, a, b, limit, mask); });
    });
    return result ? *result : CompareReaders({a, limit, mask, false}, {b, limit, mask, false});
}

}  // namespace ky
