#include "kyistring_bounds.h"

#include <algorithm>
#include <type_traits>

#include "dictionary_records.h"
#include "kytypevl.h"

namespace {

constexpr unsigned short kRelationBits = 0x800F;
constexpr unsigned short kIsPattern = 0x0008;
constexpr long long kLastNumber = 0xFFFFFFFF;

/// The first four keys of a text as digits of a number.
class FirstKeys {
public:
    FirstKeys(const ky::ByteKeys& keys, const char* text, std::size_t length) {
        for (std::size_t i = 0; i < length && missing != 0; ++i) {
            const unsigned both = keys.keys[static_cast<unsigned char>(text[i])];
            Add(both & 0xFF);
            if (ky::ByteKeys::HasSecond(both)) Add(both >> 8);
        }
    }

    /// Of the text, and of the last one that begins like it.
    long long Low() const { return number << 8 * missing; }
    long long High() const { return Low() | (kLastNumber >> 8 * (4 - missing)); }

private:
    long long number = 0;
    unsigned missing = 4;

    void Add(unsigned key) {
        if (missing == 0) return;
        number = number << 8 | key;
        --missing;
    }
};

struct Interval {
    long long lower;
    long long upper;

    long long Total() const { return upper + 1 - lower; }
    /// Numbers outside are as good as those next to the limits.
    long long Nearest(long long number) const {
        if (number < lower) return lower - 1;
        return std::min(number, upper + 1);
    }
};

/// A wildcard or escape, in a key those whose keys these are.
bool Stops(char c, unsigned char mode) {
    const char escape = (mode & ky::kModeKey) != 0 ? 0x43 : '\\';
    return c == '*' || c == '?' || c == escape;
}

float ShareOf(long long kept, long long total) {
    if (total == 0) return 0;
    return static_cast<float>(std::clamp(static_cast<double>(kept) / static_cast<double>(total), 0.0, 1.0));
}

template <class Order>
struct Dictionary {
    using Walk = ky::DictionaryWalk<ky::StringOf<Order>>;

    static long long NumberOf(const void* limit, unsigned char length, unsigned char form, long long missing) {
        if (limit == nullptr) return missing;
        const Walk walk(limit, length, form);
        if (length != 0 && length < ky::kDictionaryHead) return missing;
        const ky::DictionaryText& s = walk.Current();
        return FirstKeys(ky::ByteKeysOf<Order>(s.mode), s.text, s.Length()).Low();
    }

    static Interval Of(const KyIdxBounds& bounds, unsigned char form) {
        return {NumberOf(bounds.lower, bounds.lowerLen, form, 0),
                NumberOf(bounds.upper, bounds.upperLen, form, kLastNumber)};
    }

    static float EvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag,
                              KyIdxBounds* out) {
        op &= kRelationBits;
        const unsigned char form = (flag & KyFormMask) == KyFormReversed ? KyFormReversed : KyFormNative;
        const Walk walk(value, 0, form);
        const ky::DictionaryText& s = walk.Current();
        const std::size_t length = s.Length();
        std::size_t literals = 0;
        while (literals < length && !Stops(s.text[literals], s.mode)) ++literals;
        if (literals != length) op |= kIsPattern;
        const bool keepsAll = literals == 0 && length != 0;

        float share = 0;
        if (bounds != nullptr && keepsAll && Order::alike) {
            share = 1;
        } else if (bounds != nullptr) {
            const Interval range = Of(*bounds, form);
            const long long total = range.Total();
            if (keepsAll) {
                // KEPT: of crossed limits everything is nothing, but all of them where cases are alike.
                share = total > 0 ? 1.0F : 0.0F;
            } else {
                share = ShareOf(Kept(op, range, FirstKeys(ky::ByteKeysOf<Order>(s.mode), s.text, literals)), total);
            }
        }
        if (!keepsAll) {
            SetBoundaries(out, value, op, static_cast<unsigned>(ky::kDictionaryHead + ky::StoredTexts(value, form)));
        }
        return share;
    }

    // KEPT: a constant of four keys and more is no wider than its number, equality keeps nothing of it.
    static long long Kept(unsigned short op, const Interval& range, const FirstKeys& constant) {
        const long long low = range.Nearest(constant.Low()) - range.lower + 1;
        const long long high = range.Nearest(constant.High()) - range.lower + 1;
        long long kept = 0;
        if ((op & KyCmpLess) != 0) kept += low;
        if ((op & KyCmpGreater) != 0) kept += range.Total() - high;
        if ((op & KyCmpEqual) != 0) kept += high - low;
        return kept;
    }
};

}  // namespace

float KyIStringEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned,
                            KyIdxBounds* out) {
    return Dictionary<ky::CaseApart>::EvalAndBound(bounds, op, value, flag, out);
}

float KyCaseIStringEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned,
                                KyIdxBounds* out) {
    return Dictionary<ky::CaseAlike>::EvalAndBound(bounds, op, value, flag, out);
}
