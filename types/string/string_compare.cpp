#include "string_compare.h"

#include "key_table.h"
#include "plain_reader.h"

namespace ky {
namespace {

constexpr char kEmpty[2] = {};

/// Two texts from places on at which no contraction is under way.
struct Places {
    const TextView& a;
    const TextView& b;
    const char* atA;
    const char* atB;
    unsigned limit;
    unsigned mask;
};

bool AreAlike(const Places& at) {
    return at.a.codeSet == at.b.codeSet && at.a.language == at.b.language && at.limit == CompareLimit(-1);
}

int Difference(unsigned keyA, unsigned keyB) { return static_cast<int>(keyA - keyB); }

int CompareByIterator(const Places& from) {
    KeyReader readerA(from.atA, from.a.codeSet, from.a.language, from.a.format, from.limit, from.mask);
    KeyReader readerB(from.atB, from.b.codeSet, from.b.language, from.b.format, from.limit, from.mask);
    for (;;) {
        const unsigned keyA = readerA.Next();
        const unsigned keyB = readerB.Next();
        if (keyA != keyB) return Difference(keyA, keyB);
        if (readerA.Order() == 0) return 0;
    }
}

/// Characters by which a comparison has to step back from the end of the common beginning, `common` characters long,
/// so that no contraction reaches over the place. `mayJoin(n)` tells of the character n places before it.
template <class MayJoin>
std::size_t StepBack(std::size_t common, MayJoin mayJoin) {
    std::size_t back = 0;
    std::size_t apart = 0;
    while (back != common && apart < KyContraction::Longest - 1) {
        ++back;
        apart = mayJoin(back) ? 0 : apart + 1;
    }
    return back - apart;
}

int CompareByTable(Places at, const KeyTable& tableA, const KeyTable& tableB) {
    if (AreAlike(at)) {
        const char* start = at.atA;
        while (*at.atA == *at.atB) {
            if (*at.atA == 0) return 0;
            ++at.atA;
            ++at.atB;
        }
        const std::size_t back = StepBack(static_cast<std::size_t>(at.atA - start), [&](std::size_t n) {
            return tableA[*(at.atA - n)] == KeyTable::kNeedsIterator;
        });
        at.atA -= back;
        at.atB -= back;
    }
    for (; at.limit != 0; --at.limit, ++at.atA, ++at.atB) {
        // The analyzer does not know that the key of a terminator is 0, which ends the loop.
        const unsigned keyA = tableA[*at.atA];  // NOLINT(clang-analyzer-core.CallAndMessage)
        const unsigned keyB = tableB[*at.atB];
        if (((keyA | keyB) & KeyTable::kNeedsIterator) != 0) return CompareByIterator(at);
        if (((keyA ^ keyB) & at.mask) != 0) return Difference(keyA & at.mask, keyB & at.mask);
        if (keyA == 0) return 0;
    }
    return 0;
}

/// Length in characters of the common beginning; `ended`: the texts are equal.
std::size_t CommonBeginning(const char* a, const char* b, unsigned width, bool& ended) {
    for (std::size_t n = 0;; ++n) {
        const unsigned short codeA = ReadCode(a + n * width, width, 1);
        const bool differ = codeA != ReadCode(b + n * width, width, 1);
        ended = !differ && codeA == 0;
        if (differ || ended) return n;
    }
}

int CompareByRecord(Places at) {
    const PlainReader readerA(at.a.codeSet, at.a.language, at.a.format);
    const PlainReader readerB(at.b.codeSet, at.b.language, at.b.format);
    if (AreAlike(at)) {
        const unsigned width = readerA.Width();
        bool ended;
        std::size_t start = CommonBeginning(at.atA, at.atB, width, ended);
        if (ended) return 0;
        start -= StepBack(start, [&](std::size_t n) { return readerA.MayJoin(at.atA + (start - n) * width); });
        at.atA += start * width;
        at.atB += start * width;
    }
    for (; at.limit != 0; --at.limit, at.atA += readerA.Width(), at.atB += readerB.Width()) {
        unsigned keyA;
        unsigned keyB;
        if (!readerA.KeyAt(at.atA, keyA) || !readerB.KeyAt(at.atB, keyB)) return CompareByIterator(at);
        if (((keyA ^ keyB) & at.mask) != 0) return Difference(keyA & at.mask, keyB & at.mask);
        if (keyA == 0) return 0;
    }
    return 0;
}

}  // namespace

int CompareKeys(const TextView& a, const TextView& b, unsigned limit, unsigned mask) {
    const Places at{a, b, a.text != nullptr ? a.text : kEmpty, b.text != nullptr ? b.text : kEmpty, limit, mask};
    if (const KeyTable* tableA = KeyTableOf(a.codeSet, a.language)) {
        if (const KeyTable* tableB = KeyTableOf(b.codeSet, b.language)) return CompareByTable(at, *tableA, *tableB);
    }
    return CompareByRecord(at);
}

}  // namespace ky
