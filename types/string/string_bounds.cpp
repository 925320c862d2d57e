#include "string_bounds.h"

#include <algorithm>

#include "key_share.h"
#include "kybase.h"
#include "kystrcmp.h"
#include "kytypevl.h"
#include "string_bounds_constant.h"
#include "string_bounds_text.h"
#include "string_numbers.h"

namespace {

using ky::BoundText;
using ky::StringConstant;

constexpr unsigned short kRelationBits = 0x800F;
constexpr unsigned short kModifierBits = 0x7FF0;
constexpr std::size_t kLongestKey = 254;
constexpr const char* kSource = "src/kytypevl";

/// The bytes of a text, at most so many; 0 at its end.
struct ByteReader {
    const char* at;
    std::size_t left = ~std::size_t{0};

    unsigned Next() {
        if (left == 0 || *at == 0) return 0;
        --left;
        return static_cast<unsigned char>(*at++);
    }
};

/// Of one constant in one range. A limit that is missing, or whose text is, is the empty text.
class Estimate {
public:
    Estimate(const KyIdxBounds& bounds, const StringConstant& of, unsigned char flag, ky::LayoutRule rule,
             unsigned short modifierBits)
        : lower(ky::FirstStored(bounds.lower, bounds.lowerLen, flag, rule)),
          upper(ky::FirstStored(bounds.upper, bounds.upperLen, flag, rule)),
          constant(of),
          form(ky::FormOf(flag)),
          modifiers(modifierBits) {}

    float Share(unsigned short op) const {
        const bool bytes = AllIn(KyCodeSetNative);
        const ky::StringNumbers numbers = bytes ? NumbersOfBytes() : NumbersOfKeys();
        const auto unit = static_cast<double>(bytes ? ky::ByteDigits::unit : ky::KeyDigits::unit);
        // As distances from the lower limit, which doubles hold exactly in narrow ranges.
        const auto fromLower = [&](long long number) { return static_cast<double>(number - numbers.lower); };
        const double span = fromLower(numbers.upper);
        const double total = span + unit;
        double kept = CalcRange(op, fromLower(numbers.valueLow), fromLower(numbers.valueHigh), 0, span, unit);
        if (kept == 0) kept = unit * UnseenUnits(op, numbers);
        if ((op & KyCmpEqual) != 0 && constant.IsPattern() && constant.Beginning().bytes == 0 && !(kept >= total)) {
            KYRN_assert("charWildPos != 0 || valueRange >= valueTotalArea", kSource, __LINE__);
        }
        return ky::ShareOf(kept, total);
    }

private:
    BoundText lower;
    BoundText upper;
    const StringConstant& constant;
    unsigned char form;
    unsigned short modifiers;

    bool AllIn(unsigned char codeSet) const {
        const auto fits = [&](const BoundText& s) { return !s.IsThere() || s.Stored().codeSet == codeSet; };
        return constant.First().Stored().codeSet == codeSet && fits(lower) && fits(upper);
    }
    bool AnyIn(unsigned char codeSet) const {
        const auto fits = [&](const BoundText& s) { return s.IsThere() && s.Stored().codeSet == codeSet; };
        return constant.First().Stored().codeSet == codeSet || fits(lower) || fits(upper);
    }
    ky::UpperEnd UpperEnd() const {
        return !upper.IsThere() || upper.Stored().cutShort ? ky::UpperEnd::beginning : ky::UpperEnd::text;
    }

    ky::StringNumbers NumbersOfBytes() const {
        return ky::NumbersOf<ky::ByteDigits>(ByteReader{lower.Text()}, ByteReader{upper.Text()}, UpperEnd(),
                                             ByteReader{constant.First().Text(), constant.Beginning().bytes},
                                             constant.IsPattern());
    }

    ky::StringNumbers NumbersOfKeys() const {
        const bool inDefaultClasses = AnyIn(KyCodeSetOrders);
        const auto keys = [&](const BoundText& text, unsigned limit) {
            return ky::KeyReader(text.View(form, ky::ReadsNeutral(modifiers)), limit, ky::KeyMask(modifiers),
                                 inDefaultClasses);
        };
        return ky::NumbersOf<ky::KeyDigits>(keys(lower, ~0u), keys(upper, ~0u), UpperEnd(),
                                            keys(constant.First(), constant.Beginning().orders), constant.IsPattern());
    }

    /// Texts that differ only behind what the numbers tell: the sides on which there are some nevertheless.
    int UnseenUnits(unsigned short op, const ky::StringNumbers& numbers) const {
        int units = 0;
        if ((op & KyCmpLess) != 0 && numbers.lower == numbers.valueHigh && lower.IsThere()) {
            units += static_cast<int>(CompareWith(lower) < 0);
        }
        if ((op & KyCmpGreater) != 0 && numbers.upper == numbers.valueLow) {
            units += static_cast<int>(!upper.IsThere() || CompareWith(upper) > 0);
        }
        return units;
    }

    /// Order of a limit and the constant over the limit's length, or that of a pattern's beginning.
    int CompareWith(const BoundText& limit) const {
        constexpr std::size_t most = 0xFFFE;
        const ky::StoredText& a = limit.Stored();
        const ky::StoredText& b = constant.First().Stored();
        const bool bytes = a.codeSet == KyCodeSetNative && b.codeSet == KyCodeSetNative;
        const std::size_t beginning = bytes ? constant.Beginning().bytes : constant.Beginning().orders;
        const auto length = static_cast<short>(std::min({limit.Characters(), beginning, most}));
        return KyStrCmp(a.codeSet, a.ReadingLanguage(), limit.Text(), b.codeSet, b.ReadingLanguage(),
                        constant.First().Text(), modifiers | KyCmpExact, length, form, nullptr);
    }
};

}  // namespace

float StringEvalAndBoundCommon(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                               KyIdxBounds* out, unsigned short oldFormat) {
    const auto modifiers = static_cast<unsigned short>(op & kModifierBits);
    op &= kRelationBits;
    if (count == 0) return 0;
    const unsigned char persistent = ky::PersistentFlag(flag);
    const ky::LayoutRule rule = oldFormat != 0 ? ky::LayoutRule::old : ky::LayoutRule::byLastByte;
    const StringConstant constant(value, persistent, count, rule, modifiers);
    const float share = bounds != nullptr ? Estimate(*bounds, constant, persistent, rule, modifiers).Share(op) : 0;
    if (constant.RecordedBytes() > kLongestKey) KYRN_assert("actualLen <= 254", kSource, __LINE__);
    constant.Record(out, op);
    return share;
}

float StringEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                         KyIdxBounds* out) {
    return StringEvalAndBoundCommon(bounds, op, value, flag, count, out, 0);
}

float StringOldEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                            KyIdxBounds* out) {
    return StringEvalAndBoundCommon(bounds, op, value, flag, count, out, 1);
}
