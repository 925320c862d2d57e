/// Compare of arrays of strings.

#include <atomic>
#include <bit>
#include <cstdint>

#include "common_text.h"
#include "compare_rules.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "string_compare.h"
#include "string_pair.h"
#include "string_records.h"

namespace {

using ky::StoredText;

constexpr int Sign(int number) { return ky::Order(number, 0); }

/// Two texts of which one or both are absent. A null one is first where texts are compared exactly.
int CompareAbsent(const StoredText& a, const StoredText& b, bool aIsAbsent, bool bIsAbsent, unsigned short op) {
    if (aIsAbsent != bIsAbsent) return aIsAbsent ? -1 : 1;
    return ky::AllowsWildcards(op) ? 0 : ky::Order(b.IsNull(), a.IsNull());
}

int CompareTexts(const StoredText& a, const StoredText& b, unsigned short op, unsigned char form, int& err) {
    if (a.IsMarked()) {
        err = KyErrFirstMarked;
    } else if (b.IsMarked()) {
        err = KyErrSecondMarked;
    }
    const bool aIsAbsent = a.IsAbsent();
    const bool bIsAbsent = b.IsAbsent();
    if (aIsAbsent || bIsAbsent) return CompareAbsent(a, b, aIsAbsent, bIsAbsent, op);
    if (const std::optional<int> result = ky::CompareInPlace(a, b, op, form)) return Sign(*result);
    ky::StringPair pair(a, b, op, form);
    if (!pair.HasTexts()) {
        err = KyErrNotSupported;
        return 0;
    }
    return Sign(ky::ComparePair(pair, op, err));
}

int StringCompareCommon(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                        unsigned count, int& err, ky::LayoutRule rule) {
    ky::StringWalk walkA(a, len1, flag, rule);
    ky::StringWalk walkB(b, len2, flag, rule);
    return ky::CompareArrays(walkA, walkB, count, err, [&](int& pairErr) {
        return CompareTexts(walkA.Current(), walkB.Current(), op, ky::FormOf(flag), pairErr);
    });
}

/// The slot for everything else. Has the slot's arguments, so that the way to it is a jump.
[[gnu::noinline]] int CompareByWalk(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b,
                                    unsigned short op, unsigned count, int& err) {
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, ky::LayoutRule::byLastByte);
}

// --- what nearly all comparisons of stored strings are: one complete record each, under one label ---

/// A whole record in the current layout that was not damaged; `length` is what its length field says. `len` 0: it is
/// there.
template <unsigned char form>
[[gnu::always_inline]] inline bool IsSound(const void* record, unsigned len, unsigned& length) {
    constexpr unsigned least = ky::kEmptyRecord - 1;
    if (record == nullptr || len - 1 < least) return false;
    const auto field = ky::LoadAs<unsigned short>(record);
    length = form == KyFormReversed ? ky::ByteSwap(field) : field;
    return length - ky::kRecordHead < len - least &&
           ky::LoadAs<unsigned short>(ky::Advance(record, length)) == ky::kRecordEnd;
}

[[gnu::always_inline]] inline unsigned short LabelOf(const void* record) {
    return ky::LoadAs<unsigned short>(ky::Advance(record, ky::kLengthField));
}

const char* TextOf(const void* record) { return static_cast<const char*>(record) + ky::kRecordHead; }

/// What the following answer when the first characters of the texts do not decide.
constexpr int kUndecided = 2;

[[gnu::always_inline]] inline int OrderOfKeys(unsigned keyA, unsigned keyB, unsigned mask) {
    if (ky::KeyPage::IsMarked(keyA | keyB)) return kUndecided;
    if (((keyA ^ keyB) & mask) == 0) return keyA == 0 ? 0 : kUndecided;
    return (keyA & mask) < (keyB & mask) ? -1 : 1;
}

[[gnu::always_inline]] inline int CompareHeads(const ky::KeyTable& table, const char* a, const char* b, unsigned mask) {
    constexpr std::size_t head = ky::kHeadBytes<1>;
    if (ky::EitherCrossesPage(a, b, head)) [[unlikely]]
        return kUndecided;
    const std::size_t at = ky::CommonHead<1>(a, b);
    return at != head ? OrderOfKeys(table.KeyOf(a[at]), table.KeyOf(b[at]), mask) : kUndecided;
}

[[gnu::noinline]] int CompareNarrow(const ky::KeyTable& table, const void* a, const void* b, unsigned mask) {
    return Sign(ky::CompareByTable(table, TextOf(a), TextOf(b), mask));
}

/// How Unicode texts are compared: in one register.
struct Manner {
    unsigned short op;
    unsigned char form;
    unsigned char language;
};

/// The whole texts of sound records.
[[gnu::noinline]] int CompareWhole(const char* a, std::size_t bytesA, const char* b, std::size_t bytesB, Manner manner,
                                   int& err) {
    const auto text = [&](const char* p, std::size_t bytes) {
        return StoredText{
            .text = p, .bytes = bytes, .length = bytes, .codeSet = KyCodeSetUnicode, .language = manner.language};
    };
    return CompareTexts(text(a, bytesA), text(b, bytesB), manner.op, manner.form, err = 0);
}

/// The same, by the first characters if they decide.
template <unsigned char form>
[[gnu::noinline]] int CompareUnicode(const char* a, std::size_t bytesA, const char* b, std::size_t bytesB,
                                     Manner manner, int& err) {
    constexpr std::size_t head = ky::kHeadBytes<2>;
    const bool halfUnits = ((bytesA | bytesB) & 1) != 0;
    if (halfUnits || ky::EitherCrossesPage(a, b, head)) [[unlikely]]
        return CompareWhole(a, bytesA, b, bytesB, manner, err);
    const std::size_t both = bytesA < bytesB ? bytesA : bytesB;
    const std::uint64_t ends = std::uint64_t{1} << (both < head ? both : head);
    const std::uint64_t stops = ky::StopsIn16<2>(a, b) | ky::StopsIn16<2>(a + 16, b + 16) << 16;
    const auto at = static_cast<std::size_t>(std::countr_zero(stops | ends));
    // Behind a text its record goes on for two bytes, which count as a terminator.
    unsigned unitA = ky::LoadAs<unsigned short>(a + at);
    unsigned unitB = ky::LoadAs<unsigned short>(b + at);
    if (at == both) {
        if (both == bytesA) unitA = 0;
        if (both == bytesB) unitB = 0;
    }
    const auto high = [](unsigned unit) { return form == KyFormReversed ? unit & 0xFF : unit >> 8; };
    const auto low = [](unsigned unit) { return form == KyFormReversed ? unit >> 8 : unit & 0xFF; };
    const ky::KeyPages pages(manner.language);
    const ky::KeyPage* pageA = pages.ReadyPageOf(static_cast<unsigned short>(high(unitA) << 8));
    if (pageA == nullptr) [[unlikely]]
        return CompareWhole(a, bytesA, b, bytesB, manner, err);
    const ky::KeyPage* pageB = pages.ReadyPageOf(static_cast<unsigned short>(high(unitB) << 8));
    if (pageB == nullptr) [[unlikely]]
        return CompareWhole(a, bytesA, b, bytesB, manner, err);
    const int result = OrderOfKeys(pageA->keys[low(unitA)], pageB->keys[low(unitB)], ky::KeyMask(manner.op));
    if (result == kUndecided) [[unlikely]]
        return CompareWhole(a, bytesA, b, bytesB, manner, err);
    err = 0;
    return result;
}

/// Where wildcards are allowed. A text that holds none is compared literally.
[[gnu::noinline]] int CompareUnlessPattern(const ky::KeyTable& table, const char* a, const char* b, std::size_t bytesB,
                                           Manner manner, int& err) {
    if (ky::MayBePattern(table, b, bytesB)) {
        // Back to the records.
        return CompareByWalk(manner.form | ky::kCurrentLayout, 0, const_cast<char*>(a) - ky::kRecordHead, 0,
                             const_cast<char*>(b) - ky::kRecordHead, manner.op, 1, err);
    }
    err = 0;
    return Sign(ky::CompareByTable(table, a, b, ky::KeyMask(manner.op)));
}

/// One pair in a persistent form, each text in its own language.
template <unsigned char form>
[[gnu::noinline]] int CompareOne(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                                 unsigned count, int& err) {
    unsigned lengthA;
    unsigned lengthB;
    if (IsSound<form>(a, len1, lengthA) && IsSound<form>(b, len2, lengthB) && LabelOf(a) == LabelOf(b)) [[likely]] {
        const unsigned codeSet = LabelOf(a) & 0xFF;
        const unsigned language = LabelOf(a) >> 8;
        const bool hasTables = language < ky::kTableLanguages;
        if (codeSet - 1 < ky::kTableCodeSets - 1 && hasTables) {
            const ky::KeyTable* table = ky::keyTables[codeSet][language].load(std::memory_order_acquire);
            if (table != nullptr) [[likely]] {
                const Manner manner{op, form, static_cast<unsigned char>(language)};
                if (ky::AllowsWildcards(op)) {
                    return CompareUnlessPattern(*table, TextOf(a), TextOf(b), lengthB - ky::kRecordHead, manner, err);
                }
                err = 0;
                // Empty texts come out first, as absent ones have to.
                const unsigned mask = ky::KeyMask(op);
                const int result = CompareHeads(*table, TextOf(a), TextOf(b), mask);
                return result != kUndecided ? result : CompareNarrow(*table, a, b, mask);
            }
        } else if (codeSet == KyCodeSetUnicode && hasTables && !ky::AllowsWildcards(op)) {
            return CompareUnicode<form>(TextOf(a), lengthA - ky::kRecordHead, TextOf(b), lengthB - ky::kRecordHead,
                                        {op, form, static_cast<unsigned char>(language)}, err);
        }
    }
    return CompareByWalk(flag, len1, a, len2, b, op, count, err);
}

}  // namespace

int StringCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                  int& err) {
    if (count == 1 && (op & KyCmpNeutralLanguage) == 0) [[likely]] {
        if (ky::FormOf(flag) == KyFormReversed)
            return CompareOne<KyFormReversed>(flag, len1, a, len2, b, op, count, err);
        if (ky::FormOf(flag) == KyFormNative) return CompareOne<KyFormNative>(flag, len1, a, len2, b, op, count, err);
    }
    return CompareByWalk(flag, len1, a, len2, b, op, count, err);
}

int StringOldCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                     unsigned count, int& err) {
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, ky::LayoutRule::old);
}
