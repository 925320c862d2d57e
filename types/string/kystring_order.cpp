/// Compare of arrays of strings.

#include <atomic>

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

/// What nearly all comparisons of stored strings are of: one complete record each, 8-bit texts of one label, compared
/// without wildcards. Null: something else.
struct PlainRecords {
    const ky::KeyTable* table = nullptr;
    const char* textA = nullptr;
    const char* textB = nullptr;
};

/// The bytes behind the content of a record that was not damaged.
constexpr unsigned short kRecordEnd = 0xFF00;

inline PlainRecords FindPlainRecords(unsigned char flag, unsigned len1, const void* a, unsigned len2, const void* b) {
    const unsigned char form = ky::FormOf(flag);
    const auto isShort = [](unsigned len) { return len - 1 < ky::kEmptyRecord; };
    if (form == KyFormMemory || a == nullptr || b == nullptr || isShort(len1) || isShort(len2)) return {};
    const unsigned lengthA = ky::ReadLength(a, form);
    const unsigned lengthB = ky::ReadLength(b, form);
    // No length given is one beyond all.
    if (lengthA + ky::kLengthField - 1 > len1 - 1 || lengthB + ky::kLengthField - 1 > len2 - 1) return {};
    if (lengthA <= ky::kRecordHead || lengthB <= ky::kRecordHead) return {};
    const unsigned char* recordA = ky::Advance(a, 0);
    const unsigned char* recordB = ky::Advance(b, 0);
    const bool sameLabel = ky::LoadAs<unsigned short>(recordA + 2) == ky::LoadAs<unsigned short>(recordB + 2);
    const bool sound = ky::LoadAs<unsigned short>(recordA + lengthA) == kRecordEnd &&
                       ky::LoadAs<unsigned short>(recordB + lengthB) == kRecordEnd;
    const unsigned char codeSet = recordA[2];
    const unsigned char language = recordA[3];
    if (!sameLabel || !sound || codeSet == KyCodeSetNative) return {};
    if (codeSet >= ky::kTableCodeSets || language >= ky::kTableLanguages) return {};
    // Empty texts are absent ones.
    if (recordA[ky::kRecordHead] == 0 || recordB[ky::kRecordHead] == 0) return {};
    return {ky::keyTables[codeSet][language].load(std::memory_order_acquire),
            reinterpret_cast<const char*>(recordA + ky::kRecordHead),
            reinterpret_cast<const char*>(recordB + ky::kRecordHead)};
}

}  // namespace

int StringCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                  int& err) {
    const bool plain = !ky::AllowsWildcards(op) && !ky::ReadsNeutral(op) && count == 1;
    if (plain) [[likely]] {
        const PlainRecords records = FindPlainRecords(flag, len1, a, len2, b);
        if (records.table != nullptr) [[likely]] {
            err = 0;
            return Sign(ky::CompareByTable(*records.table, records.textA, records.textB, ky::KeyMask(op)));
        }
    }
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, ky::LayoutRule::byLastByte);
}

int StringOldCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                     unsigned count, int& err) {
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, ky::LayoutRule::old);
}
