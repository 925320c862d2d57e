#include <gtest/gtest.h>

#include <algorithm>

#include "../numeric/limit_blocks.h"
#include "compare_texts.h"
#include "key_reader.h"
#include "kystrcmp.h"
#include "kytypes.h"
#include "oracle/slow_string_bounds.h"
#include "stored_strings.h"
#include "string_bounds.h"
#include "string_numbers.h"
#include "support/fewer_cases.h"

// Laws of index bounds over made texts in every code set, several languages and every kind of operator word.

namespace {

using texts::Below;
using texts::Codes;
using texts::Random;

constexpr unsigned char kCodeSets[] = {0, 1, 2, 5, 7, 8, 9, 253, 254};
constexpr unsigned char kLanguages[] = {0, 1, 5, 9, 14, 20, 25};
constexpr unsigned short kModifiers[] = {0,     0x10,  0x100, 0x110, 0x20,  0x40,   0x60,   0x200,  0x260,
                                         0x230, 0x320, 0x80,  0x90,  0x800, 0x1000, 0x1060, 0x1210, 0x180};

/// A text with its label, as a record and with a terminator.
struct Labelled {
    unsigned char codeSet;
    unsigned char language;
    std::string terminated;

    slow::Text View() const { return {codeSet, language, terminated.c_str()}; }
    std::string Stored(unsigned char format) const {
        return Record(codeSet, language, terminated.substr(0, terminated.size() - ky::CharWidth(codeSet)), format);
    }
};

int Compare(const Labelled& a, const Labelled& b, unsigned short op, unsigned char format) {
    return KyStrCmp(a.codeSet, a.language, a.terminated.c_str(), b.codeSet, b.language, b.terminated.c_str(), op, -1,
                    format, nullptr);
}

/// Texts that have much in common, most of them under one label.
class Maker {
public:
    Maker(unsigned seed, unsigned char textFormat) : random(seed), format(textFormat) {
        for (const unsigned char codeSet : kCodeSets) alphabets.push_back(texts::AlphabetOf(codeSet));
        Relabel();
    }

    void Relabel() {
        set = Below(random, std::size(kCodeSets));
        language = kLanguages[Below(random, std::size(kLanguages))];
        if (kCodeSets[set] == KyCodeSetOrders) language = 1;
        base = texts::RandomCodes(random, alphabets[set], Below(random, 6));
    }
    Labelled Make() {
        if (Below(random, 40) == 0) return {kCodeSets[set], 254, std::string(2, '\0')};
        if (Below(random, 12) == 0) {
            const std::size_t kept = set;
            set = Below(random, std::size(kCodeSets));
            const Labelled other = Encode(texts::RandomCodes(random, alphabets[set], Below(random, 5)));
            set = kept;
            return other;
        }
        Codes codes = texts::Variation(random, kCodeSets[set], alphabets[set], base);
        if (codes.size() > 60) codes.resize(60);
        return Encode(codes);
    }
    std::size_t Any(std::size_t limit) { return Below(random, limit); }

private:
    Random random;
    unsigned char format;
    std::vector<Codes> alphabets;
    std::size_t set = 0;
    unsigned char language = 0;
    Codes base;

    Labelled Encode(const Codes& codes) const {
        const unsigned char own = kCodeSets[set] == KyCodeSetOrders && language == 0 ? 1 : language;
        return {kCodeSets[set], own, texts::Encoded(codes, kCodeSets[set], format)};
    }
};

/// The text of a record that was recorded.
Labelled Read(const void* record, unsigned char format) {
    const auto* bytes = static_cast<const unsigned char*>(record);
    const std::size_t content = ky::ReadLength(record, format) - 4;
    return {bytes[2], bytes[3], std::string(reinterpret_cast<const char*>(bytes) + 4, content) + std::string(2, '\0')};
}

/// The comparison of an index search: the same modifiers, nothing is a pattern any more. Where null and empty are alike
/// they stay so.
int Search(const Labelled& text, const Labelled& limit, unsigned short modifiers, unsigned char format) {
    const bool null = text.language == 254 || limit.language == 254;
    const auto op = static_cast<unsigned short>(null ? modifiers : modifiers | KyCmpExact);
    return Compare(text, limit, op, format);
}

void NoMatchIsLost(unsigned seed, unsigned char format, int rounds) {
    Maker maker(seed, format);
    int found = 0;
    for (int round = 0; round < rounds; ++round) {
        if (round % 8 == 0) maker.Relabel();
        const Labelled constant = maker.Make();
        std::vector<Labelled> candidates;
        for (int i = 0; i < 6; ++i) candidates.push_back(maker.Make());
        candidates.push_back(constant);
        Guarded value(constant.Stored(format));
        for (const unsigned short modifiers : kModifiers) {
            for (unsigned short relation = 0; relation < 8; ++relation) {
                OwnedBounds out;
                auto op = static_cast<unsigned short>(relation | modifiers);
                StringEvalAndBound(nullptr, op, value.Data(), format, 1, &out.record);
                ASSERT_EQ(op, relation);
                for (const Labelled& text : candidates) {
                    const int order = Compare(text, constant, modifiers, format);
                    const unsigned is = order < 0 ? KyCmpLess : order > 0 ? KyCmpGreater : KyCmpEqual;
                    if ((relation & is) == 0) continue;
                    ++found;
                    const auto trace = [&] {
                        return testing::Message() << "text " << int{text.codeSet} << "/" << int{text.language} << " "
                                                  << Hex(text.terminated.data(), text.terminated.size()) << " constant "
                                                  << Hex(value.Data(), value.Size()) << " op " << (relation | modifiers)
                                                  << " format " << int{format};
                    };
                    if (out.record.lower != nullptr) {
                        ASSERT_GE(Search(text, Read(out.record.lower, format), modifiers, format), 0) << trace();
                    }
                    if (out.record.upper != nullptr) {
                        ASSERT_LE(Search(text, Read(out.record.upper, format), modifiers, format), 0) << trace();
                    }
                }
            }
        }
    }
    EXPECT_GT(found, rounds);
}

TEST(StringBoundsLaws, ANarrowedBoundLosesNoMatch) { NoMatchIsLost(1, 1, 6000 / kFewerCases); }
TEST(StringBoundsLaws, ANarrowedBoundLosesNoMatchInReversedOrder) { NoMatchIsLost(2, 2, 3000 / kFewerCases); }

TEST(StringBoundsLaws, APlainArrayInTheOldLayoutLosesNoMatch) {
    Random random(3);
    const std::string characters = "aabbAB*?\\\x80\xFF";
    const auto make = [&] {
        std::string text;
        for (std::size_t n = Below(random, 5); n != 0; --n) text += characters[Below(random, characters.size())];
        return text;
    };
    for (int round = 0; round < 20000 / kFewerCases; ++round) {
        const std::string constant = make();
        const std::string text = make();
        Guarded value(OldArray({constant}));
        for (const unsigned short modifiers : std::initializer_list<unsigned short>{0, 0x10, 0x100, 0x60}) {
            const int order = KyStrCmp(0, 0, text.c_str(), 0, 0, constant.c_str(), modifiers, -1, 1, nullptr);
            const unsigned short is = order < 0 ? KyCmpLess : order > 0 ? KyCmpGreater : KyCmpEqual;
            OwnedBounds out;
            auto op = static_cast<unsigned short>(is | modifiers);
            StringOldEvalAndBound(nullptr, op, value.Data(), 1, 1, &out.record);
            const auto limit = [](const void* at) { return static_cast<const char*>(at) + 2; };
            if (out.record.lower != nullptr) {
                EXPECT_GE(kystrcmp(text.c_str(), limit(out.record.lower), 0), 0) << text << " " << constant;
            }
            if (out.record.upper != nullptr) {
                EXPECT_LE(kystrcmp(text.c_str(), limit(out.record.upper), 0), 0) << text << " " << constant;
            }
        }
    }
}

/// What stands before the first wildcard or escape, if the operator allows patterns. Here the wildcards of plain bytes
/// are those of characters.
std::optional<slow::Range::Beginning> Beginning(const Labelled& s, unsigned short modifiers, unsigned char format) {
    if ((modifiers & 0x110) != 0 || s.language == 254) return std::nullopt;
    const bool neutral = (modifiers & 0x200) != 0;
    KyStringIterator it(s.terminated.c_str(), s.codeSet, neutral ? KyLanguageNeutral : s.language, format);
    for (unsigned taken = 0;; ++taken) {
        const auto bytes = static_cast<unsigned>(it.Position() - s.terminated.c_str());
        const unsigned short order = it.GetNextOrder(0);
        if (order == 0) return std::nullopt;
        if (order == KyString::GetAsterisk() || order == KyString::GetQuestion() || order == KyString::GetEscape()) {
            return slow::Range::Beginning{taken, bytes};
        }
    }
}

TEST(StringBoundsLaws, TheShareIsThatOfTheTwin) {
    for (const unsigned char format : std::initializer_list<unsigned char>{1, 2}) {
        Maker maker(format, format);
        int between = 0;
        for (int round = 0; round < 20000 / kFewerCases; ++round) {
            if (round % 8 == 0) maker.Relabel();
            const Labelled constant = maker.Make();
            Labelled limits[] = {maker.Make(), maker.Make()};
            if (maker.Any(4) != 0 && Compare(limits[0], limits[1], KyCmpExact, format) > 0) {
                std::swap(limits[0], limits[1]);
            }
            const bool hasLower = maker.Any(10) != 0;
            const bool hasUpper = maker.Any(10) != 0;
            GuardedRange range(hasLower ? limits[0].Stored(format) : "", hasUpper ? limits[1].Stored(format) : "");
            Guarded value(constant.Stored(format));
            for (const unsigned short modifiers : kModifiers) {
                slow::Range slowRange{.value = constant.View(),
                                      .beginning = Beginning(constant, modifiers, format),
                                      .modifiers = modifiers,
                                      .format = format};
                if (hasLower) slowRange.lower = limits[0].View();
                if (hasUpper) slowRange.upper = limits[1].View();
                slow::StringShare twin(slowRange);
                for (unsigned short relation = 0; relation < 8; ++relation) {
                    auto op = static_cast<unsigned short>(relation | modifiers);
                    const float share = StringEvalAndBound(&range.bounds, op, value.Data(), format, 1, nullptr);
                    ASSERT_GE(share, 0.0F);
                    ASSERT_LE(share, 1.0F);
                    ASSERT_EQ(share, twin.Of(relation))
                        << "constant " << Hex(value.Data(), value.Size()) << " lower "
                        << (hasLower ? Hex(range.bounds.lower, range.bounds.lowerLen) : "none") << " upper "
                        << (hasUpper ? Hex(range.bounds.upper, range.bounds.upperLen) : "none") << " op "
                        << (relation | modifiers) << " format " << int{format};
                    between += share > 0 && share < 1;
                }
            }
        }
        EXPECT_GT(between, 1000 / kFewerCases);
    }
}

/// The number of a text's first keys.
long long NumberOf(const std::vector<unsigned>& keys, ky::Open open) {
    ky::FirstKeys<ky::KeyDigits> first;
    for (std::size_t i = 0; i < std::size(first.keys) && i < keys.size(); ++i) first.keys[i] = keys[i];
    return EvalString(first, ky::Open::low, open);
}

TEST(StringBoundsLaws, NumbersNeverDecreaseAlongTheKeyOrder) {
    Random random(4);
    const auto makeKey = [&] {
        static constexpr unsigned classes[] = {0, 1, 15, 16, 17, 19, 20, 31, 32, 33, 44, 45, 60, 119, 120, 121, 127};
        static constexpr unsigned orders[] = {1,      79,     80,     0x2A,   16127,  16128,  0x3FFF, 0x400C, 0x4010,
                                              0x540C, 0x600C, 0x608C, 0x7FFF, 0x8000, 0x9000, 0xFFEF, 0xFFFE, 0xFFFF};
        const unsigned order = Below(random, 2) == 0 ? orders[Below(random, std::size(orders))]
                                                     : 1 + static_cast<unsigned>(Below(random, 65535));
        const unsigned orderClass = classes[Below(random, std::size(classes))];
        return ky::OrderKey(static_cast<unsigned short>(order), static_cast<unsigned char>(orderClass));
    };
    for (int round = 0; round < 2000000 / kFewerCases; ++round) {
        std::vector<unsigned> a;
        for (std::size_t n = Below(random, 5); n != 0; --n) a.push_back(makeKey());
        std::vector<unsigned> b = a;
        b.resize(Below(random, b.size() + 1));
        for (std::size_t n = Below(random, 3); n != 0; --n) b.push_back(makeKey());
        for (const unsigned mask : {~0u, ~0x60u, ~0x1Fu, ~0x7Fu}) {
            for (auto* keys : {&a, &b}) {
                for (unsigned& key : *keys) key &= mask;
            }
            if (b < a) a.swap(b);
            ASSERT_LE(NumberOf(a, ky::Open::low), NumberOf(b, ky::Open::low));
            ASSERT_LE(NumberOf(a, ky::Open::high), NumberOf(b, ky::Open::high));
            ASSERT_LE(NumberOf(a, ky::Open::low), NumberOf(a, ky::Open::high));
        }
    }
}

TEST(StringBoundsLaws, NumbersOfTextsFollowTheComparer) {
    Maker maker(5, 1);
    for (int round = 0; round < 60000 / kFewerCases; ++round) {
        if (round % 8 == 0) maker.Relabel();
        const Labelled a = maker.Make();
        const Labelled b = maker.Make();
        if (a.codeSet == 0 && b.codeSet == 0) continue;
        for (const unsigned short op : std::initializer_list<unsigned short>{0x100, 0x10, 0x30, 0x50, 0x70, 0x210}) {
            const bool inDefaultClasses = a.codeSet == 254 || b.codeSet == 254;
            const auto number = [&](const Labelled& s) {
                const unsigned char language = ky::ReadsNeutral(op) ? KyLanguageNeutral : s.language;
                ky::KeyReader reader({s.language == 254 ? nullptr : s.terminated.c_str(), s.codeSet, language, 1}, ~0u,
                                     ky::KeyMask(op), inDefaultClasses);
                return NumberOf(std::vector<unsigned>{reader.Next(), reader.Next(), reader.Next()}, ky::Open::low);
            };
            const int order = Compare(a, b, op, 1);
            const long long difference = number(a) - number(b);
            ASSERT_TRUE(order < 0 ? difference <= 0 : order > 0 ? difference >= 0 : difference == 0);
        }
    }
}

TEST(StringBoundsLaws, RangesThatTheConstantPartsAddUp) {
    Maker maker(6, 1);
    for (int round = 0; round < 20000 / kFewerCases; ++round) {
        if (round % 8 == 0) maker.Relabel();
        Labelled s[] = {maker.Make(), maker.Make(), maker.Make()};
        std::sort(std::begin(s), std::end(s),
                  [](const Labelled& a, const Labelled& b) { return Compare(a, b, KyCmpStringExact, 1) < 0; });
        GuardedRange range(s[0].Stored(1), s[2].Stored(1));
        Guarded value(s[1].Stored(1));
        const auto share = [&](unsigned short relation) {
            auto op = static_cast<unsigned short>(relation | KyCmpStringExact);
            return StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, nullptr);
        };
        if (s[0].codeSet != s[1].codeSet || s[1].codeSet != s[2].codeSet || s[0].codeSet == 0) continue;
        EXPECT_GE(share(1) + share(2) + share(4), 0.999F) << round;
        EXPECT_EQ(share(7), 1.0F) << round;
    }
}

}  // namespace
