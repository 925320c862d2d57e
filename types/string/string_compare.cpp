#include "string_compare.h"

#include "common_text.h"
#include "text_keys.h"

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

// --- texts that are read alike: equal characters are equal keys ---

/// Where readers have to begin so that they read what stands at `at` right. The texts are equal before.
template <class Text>
std::size_t ReadableFrom(const Text& text, const char* a, const char* b, std::size_t at) {
    const unsigned marksAt = text.Marks(a + at) | text.Marks(b + at);
    if ((marksAt & KeyPage::kLeansBack) == 0) return at;
    // What nothing before it joins begins something new, too, unless it needs its neighbour's class.
    bool needed = (marksAt & KeyPage::kNeedsIterator) != 0;
    std::size_t place = at;
    unsigned marks = KeyPage::kLeansBack;
    while (place != 0 && (marks & KeyPage::kLeansBack) != 0) {
        place -= Text::width;
        marks = text.Marks(a + place);
        needed = needed || (marks & KeyPage::kJoinsNext) != 0;
    }
    return needed ? place : at;
}

/// A character that is one order, read at its place.
template <class Text>
bool RanksAlone(const Text& text, const char* p) {
    const unsigned marks = text.Marks(p);
    if ((marks & KeyPage::kNeedsIterator) != 0) return false;
    return (marks & KeyPage::kJoinsNext) == 0 || (text.Marks(p + Text::width) & KeyPage::kLeansBack) == 0;
}

/// The result where the first characters that differ are marked.
template <class Text>
[[gnu::noinline]] int Decide(const Text& text, const char* a, const char* b, std::size_t at, unsigned mask) {
    const std::size_t start = ReadableFrom(text, a, b, at);
    if (start == at && RanksAlone(text, a + at) && RanksAlone(text, b + at)) {
        const unsigned keyA = text.Key(a + at) & mask & ~KeyPage::kMarked;
        const unsigned keyB = text.Key(b + at) & mask & ~KeyPage::kMarked;
        if (keyA != keyB) return Difference(keyA, keyB);
    }
    return CompareReaders({text.View(a + start), ~0u, mask, false}, {text.View(b + start), ~0u, mask, false});
}

/// Bytes that are equal under the mask from here on, where the texts have different characters that are. There may be
/// more.
std::size_t Alike(const NarrowText& text, const char* a, const char* b, unsigned mask) {
    return CommonRanks(text.table->ranks[KeyTable::MaskNumber(mask)], a, b);
}

/// The next few, one by one.
template <class Text>
std::size_t NextAlike(const Text& text, const char* a, const char* b, unsigned mask) {
    constexpr std::size_t few = 16 * Text::width;
    for (std::size_t at = Text::width;; at += Text::width) {
        const unsigned keyA = text.Key(a + at);
        const unsigned keyB = text.Key(b + at);
        const bool stops = keyA == 0 || KeyPage::IsMarked(keyA | keyB) || ((keyA ^ keyB) & mask) != 0;
        if (stops || at == few) return at + CommonText<Text::width>(a + at, b + at);
    }
}

std::size_t Alike(const WideText& text, const char* a, const char* b, unsigned mask) {
    const unsigned char* ranks = text.pages.FirstPage().ranks[KeyTable::MaskNumber(mask)];
    const std::size_t common = CommonWideRanks(ranks, a, b, text.format == 2);
    if (common == 0) return NextAlike(text, a, b, mask);
    const bool stops = CharacterStops<WideText::width>(a + common, b + common);
    return stops ? common : common + CommonText<WideText::width>(a + common, b + common);
}

std::size_t Alike(const OrderText& text, const char* a, const char* b, unsigned mask) {
    return NextAlike(text, a, b, mask);
}

/// The result for texts that are equal before `at`; `alike`: at this place, too, where their codes differ.
template <class Text>
[[gnu::noinline]] int CompareFrom(const Text& text, const char* a, const char* b, std::size_t at, bool alike,
                                  unsigned mask) {
    for (;; alike = true) {
        at += alike ? Alike(text, a + at, b + at, mask) : CommonText<Text::width>(a + at, b + at);
        const unsigned keyA = text.Key(a + at);
        const unsigned keyB = text.Key(b + at);
        if constexpr (Text::hasMarks) {
            if (KeyPage::IsMarked(keyA | keyB)) return Decide(text, a, b, at, mask);
        }
        if (((keyA ^ keyB) & mask) != 0) return Difference(keyA & mask, keyB & mask);
        if (keyA == 0) return 0;
    }
}

/// The same from the beginning on: straight through for the short texts, and those that soon differ, which most are.
template <class Text>
[[gnu::always_inline]] inline int CompareAlike(const Text& text, const char* a, const char* b, unsigned mask) {
    constexpr std::size_t head = kHeadBytes<Text::width>;
    if (EitherCrossesPage(a, b, head)) [[unlikely]]
        return CompareFrom(text, a, b, 0, false, mask);
    const std::size_t at = CommonHead<Text::width>(a, b);
    if (at == head) return CompareFrom(text, a, b, at, false, mask);
    const unsigned keyA = text.KeyIfReady(a + at);
    const unsigned keyB = text.KeyIfReady(b + at);
    if (KeyPage::IsMarked(keyA | keyB)) return Decide(text, a, b, at, mask);
    if (((keyA ^ keyB) & mask) != 0) return Difference(keyA & mask, keyB & mask);
    return keyA == 0 ? 0 : CompareFrom(text, a, b, at, true, mask);
}

// --- texts that are read each in its own way ---

template <class TextA, class TextB>
int ComparePairs(const TextA& textA, const TextB& textB, TextView a, TextView b, unsigned limit, unsigned mask) {
    unsigned beforeA = 0;
    unsigned beforeB = 0;
    for (; limit != 0; --limit, a.text += TextA::width, b.text += TextB::width) {
        const unsigned keyA = textA.Key(a.text);
        const unsigned keyB = textB.Key(b.text);
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
    return CompareAlike(NarrowText{&table}, a, b, mask);
}

int CompareByPages(KeyPages pages, const char* a, const char* b, unsigned char format, unsigned mask) {
    return CompareAlike(WideText{pages, format}, a, b, mask);
}

int CompareKeys(TextView a, TextView b, unsigned limit, unsigned mask) {
    static constexpr char nothing[2] = {};
    if (a.text == nullptr) a.text = nothing;
    if (b.text == nullptr) b.text = nothing;
    const bool whole = limit == CompareLimit(-1);
    if (ReadsDefaultClasses(a.codeSet, b.codeSet)) {
        if (whole && a.codeSet == b.codeSet && a.format == b.format) {
            return CompareFrom(OrderText{a.format}, a.text, b.text, 0, false, mask);
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
