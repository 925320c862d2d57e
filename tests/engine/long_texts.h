#ifndef LONG_TEXTS_H
#define LONG_TEXTS_H

/// Texts that are about as long as index keys, of several languages and types, and whether they are in one order.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "index_order.h"
#include "kyistring.h"
#include "kystring.h"
#include "types.h"
#include "value.h"

struct Family {
    const char* name;
    const char* language;                 ///< null: none, and the narrow texts are plain bytes
    bool hasNarrow;                       ///< beside the wide texts
    bool hasExpansions;                   ///< characters of several orders
    std::vector<std::u16string> alike;    ///< what long texts are written with
    std::vector<std::u16string> letters;  ///< and what follows
    char type = KySTRING_T;

    bool IsDictionary() const { return type != KySTRING_T; }
};

struct Case {
    Family family;
    unsigned char form;
    engine::Folding folding;
};

std::vector<Case> AllCases();

template <class Keep>
std::vector<Case> CasesThat(const Keep& keep) {
    std::vector<Case> cases = AllCases();
    std::erase_if(cases, [&](const Case& of) { return !keep(of); });
    return cases;
}

bool IsUnfolded(const Case& of);
bool HasBothWidths(const Case& of);

/// As a query writes them.
std::string Modifiers(const engine::Folding& folding);
std::string NameOf(const ::testing::TestParamInfo<Case>& info);
void PrintTo(const Case& of, std::ostream* out);

/// `change(text)` of the object that a value of a string type is.
template <class Change>
auto WithText(char type, const engine::Value& value, const Change& change) {
    if (type == KyISTRING_T) return change(*static_cast<KyIString*>(value.Get()));
    if (type == KyCASEISTRING_T) return change(*static_cast<KyCaseIString*>(value.Get()));
    return change(*static_cast<KyString*>(value.Get()));
}

/// A value with a text, whose units are characters of the default 8-bit code set unless it is wide.
engine::Value Made(const std::u16string& text, const Family& family, bool isWide);

inline int Sign(int number) { return (number > 0) - (number < 0); }

/// Texts of one family as they are stored, with their keys.
class Texts {
public:
    Texts(const Case& aCase, unsigned seed) : of(aCase), random(seed) {
        attribute.name = "text";
        attribute.type = of.family.type;
        attribute.index = of.folding;
    }

    void Add(const engine::Value& value) {
        stored.push_back(value.Store(of.form));
        std::vector<unsigned char> scratch;
        const engine::Bytes key = engine::IndexKey(attribute, of.form, stored.back(), scratch);
        keys.emplace_back(key.begin(), key.end());
    }

    engine::Value Next() {
        if (Below(12) == 0) {
            engine::Value none(of.family.type);
            if (Below(2) == 0 && !of.family.IsDictionary()) engine::Types().SetNullPtrGet(KySTRING_T)(none.Get());
            return none;
        }
        const std::u16string text = Text();
        const bool isWide = HasBothWidths(of) ? Below(2) == 0 : !of.family.hasNarrow;
        return Made(text, of.family, isWide);
    }

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    int Compare(std::size_t a, std::size_t b) {
        // Compare refuses long ones.
        if (of.family.IsDictionary()) {
            const auto text = [&](std::size_t i) { return reinterpret_cast<const char*>(stored[i].data()) + 3; };
            constexpr unsigned char inDiskForm = 0x40;
            const auto compare = of.family.type == KyISTRING_T ? kyistrcmp : kycaseistrcmp;
            return Sign(compare(text(a), text(b), 0, inDiskForm, inDiskForm));
        }
        int err = 0;
        const auto op = static_cast<unsigned short>(KyCmpExact | (of.folding.ignoreCase ? KyCmpIgnoreCase : 0) |
                                                    (of.folding.ignoreAccent ? KyCmpIgnoreAccent : 0));
        return Sign(engine::Types().Cmp(KySTRING_T, static_cast<unsigned>(stored[a].size()), stored[a].data(),
                                        static_cast<unsigned>(stored[b].size()), stored[b].data(), op, 1, of.form,
                                        err));
    }
    int CompareKeys(std::size_t a, std::size_t b) const {
        return Sign(engine::CompareAsIndexed(attribute, of.form, keys[a], keys[b]));
    }

    const Case& of;
    engine::Attribute attribute;
    std::vector<std::vector<unsigned char>> stored;
    std::vector<std::vector<unsigned char>> keys;

private:
    std::mt19937 random;

    const std::u16string& OneOf(const std::vector<std::u16string>& letters) {
        return letters[Below(static_cast<unsigned>(letters.size()))];
    }

    /// Alike for about as long as keys are, or were; written in one way or in several.
    std::u16string Text() {
        constexpr unsigned lengths[] = {0, 20, 36, 76, 76, 76, 116, 120, 150, 236, 244};
        const std::size_t length = lengths[Below(std::size(lengths))] + Below(9);
        const std::u16string& one = OneOf(of.family.alike);
        const unsigned others = Below(3);
        std::u16string text;
        while (text.size() < length) text += others != 0 && Below(40) < others * others ? OneOf(of.family.alike) : one;
        for (unsigned more = Below(5); more > 0; --more) text += OneOf(of.family.letters);
        if (Below(3) == 0) text.append(Below(150), u'a');
        return text;
    }
};

/// Whether a comparison of all pairs is that of some ranks.
template <class Compare>
::testing::AssertionResult IsOneOrder(std::size_t count, const Compare& compare) {
    std::vector<std::size_t> sorted(count);
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    std::ranges::stable_sort(sorted, [&](std::size_t a, std::size_t b) { return compare(a, b) < 0; });
    std::vector<int> ranks(count, 0);
    for (std::size_t i = 1; i < count; ++i) ranks[i] = ranks[i - 1] + (compare(sorted[i - 1], sorted[i]) != 0 ? 1 : 0);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t k = 0; k < count; ++k)
            if (compare(sorted[i], sorted[k]) != Sign(ranks[i] - ranks[k]))
                return ::testing::AssertionFailure() << "ranks " << ranks[i] << " and " << ranks[k] << " compare as "
                                                     << compare(sorted[i], sorted[k]);
    return ::testing::AssertionSuccess();
}

#endif
