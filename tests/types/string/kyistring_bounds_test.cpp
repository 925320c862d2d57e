#include "kyistring_bounds.h"

#include <gtest/gtest.h>

#include "../numeric/limit_blocks.h"
#include "dictionary_values.h"
#include "kywildcard.h"
#include "stored_strings.h"
#include "string_records.h"
#include "support/hex.h"

// EvalAndBound of the dictionary strings, by numbers written down here.

namespace {

constexpr unsigned char kDisk = 0x40;
constexpr unsigned char kPlain = 0x01;
constexpr unsigned char kKey = 0x80;

std::string Array(unsigned char marker, const std::vector<std::string>& texts, unsigned char form = 1) {
    std::string bytes(3, '\0');
    for (const std::string& text : texts) bytes.append(text.c_str(), text.size() + 1);
    bytes[0] = static_cast<char>(marker);
    ky::WriteLength(bytes.data() + 1, static_cast<unsigned>(bytes.size() - 3), form);
    return bytes;
}
std::string Disk(const std::string& text) { return Array(kDisk, {text}); }

struct Result {
    float share;
    unsigned short op;
    friend bool operator==(const Result&, const Result&) = default;
};

void PrintTo(const Result& r, std::ostream* out) { *out << r.share << " op " << r.op; }

template <class Self>
Result Evaluate(const std::string& lower, const std::string& upper, const std::string& constant, unsigned op,
                unsigned char form = 1) {
    GuardedRange range(lower, upper);
    Guarded value(constant);
    auto word = static_cast<unsigned short>(op);
    const float share = RowOf<Self>().EvalAndBound(&range.bounds, word, value.Data(), form, 1, nullptr);
    return {share, word};
}

template <class Self>
float Share(const std::string& lower, const std::string& upper, const std::string& constant, unsigned op) {
    return Evaluate<Self>(Disk(lower), Disk(upper), Disk(constant), op).share;
}

template <class Self>
class DictionaryBounds : public DictionaryStringTest<Self> {};
TYPED_TEST_SUITE(DictionaryBounds, DictionaryStrings);

TYPED_TEST(DictionaryBounds, NumbersAreTheFirstFourKeys) {
    // A is 54, B 5B, C 5E in both.
    const double total = 0x5E000000 - 0x54000000 + 1;
    const auto share = [&](double kept) { return static_cast<float>(kept / total); };
    const double low = 0x5B000000 - 0x54000000 + 1;
    const double high = 0x5BFFFFFF - 0x54000000 + 1;
    EXPECT_EQ(Share<TypeParam>("A", "C", "B", KyCmpLess), share(low));
    EXPECT_EQ(Share<TypeParam>("A", "C", "B", KyCmpGreater), share(total - high));
    EXPECT_EQ(Share<TypeParam>("A", "C", "B", KyCmpEqual), share(high - low));
    EXPECT_EQ(Share<TypeParam>("A", "C", "B", KyCmpLess | KyCmpGreater), share(low + total - high));
    EXPECT_EQ(Share<TypeParam>("A", "C", "B", KyCmpLess | KyCmpGreater | KyCmpEqual), 1.0F);
    EXPECT_EQ(Share<TypeParam>("A", "C", "BBBBB", KyCmpLess), share(0x5B5B5B5B - 0x54000000 + 1));
    // C0 is A with an accent, which no key has; 8C is O and E.
    EXPECT_EQ(Share<TypeParam>("A", "C", "B\xC0", KyCmpLess), Share<TypeParam>("A", "C", "BA", KyCmpLess));
    EXPECT_EQ(Share<TypeParam>("A", "Z", "\x8C", KyCmpLess), Share<TypeParam>("A", "Z", "OE", KyCmpLess));
    EXPECT_EQ(Share<TypeParam>("A", "Z", "BBB\x8C", KyCmpLess), Share<TypeParam>("A", "Z", "BBBO", KyCmpLess));
    const bool alike = Share<TypeParam>("A", "C", "b", KyCmpLess) == Share<TypeParam>("A", "C", "B", KyCmpLess);
    EXPECT_EQ(alike, isCaseAlike<TypeParam>);
}

TYPED_TEST(DictionaryBounds, Kept_AConstantOfFourKeysEqualsNothing) {
    EXPECT_EQ(Share<TypeParam>("A", "C", "BBBB", KyCmpEqual), 0.0F);
    EXPECT_GT(Share<TypeParam>("A", "C", "BBB", KyCmpEqual), 0.0F);
    EXPECT_EQ(Share<TypeParam>("A", "C", "BBBB*", KyCmpEqual), 0.0F);
}

TYPED_TEST(DictionaryBounds, OutsideTheRangeItIsNothingOrAll) {
    EXPECT_EQ(Share<TypeParam>("B", "C", "A", KyCmpLess), 0.0F);
    EXPECT_EQ(Share<TypeParam>("B", "C", "A", KyCmpEqual), 0.0F);
    EXPECT_EQ(Share<TypeParam>("B", "C", "A", KyCmpGreater), 1.0F);
    EXPECT_EQ(Share<TypeParam>("B", "C", "D", KyCmpLess), 1.0F);
    EXPECT_EQ(Share<TypeParam>("B", "C", "D", KyCmpEqual), 0.0F);
    EXPECT_EQ(Share<TypeParam>("B", "C", "D", KyCmpGreater), 0.0F);
    // Below the lowest number of all.
    EXPECT_EQ(Share<TypeParam>("", "C", "", KyCmpEqual), 1.0F);
    EXPECT_EQ(Share<TypeParam>("A", "C", "", KyCmpLess), 0.0F);
}

TYPED_TEST(DictionaryBounds, MissingLimitsAreTheFirstAndTheLastNumber) {
    const float half = Evaluate<TypeParam>("", "", Array(kKey, {"\x80"}), KyCmpLess).share;
    EXPECT_EQ(half, static_cast<float>((0x80000000 + 1.0) / 0x100000000));
    EXPECT_EQ(Evaluate<TypeParam>("", Disk("C"), Disk("B"), KyCmpLess).share,
              Share<TypeParam>("", "C", "B", KyCmpLess));
    // Limits of which not even the header is there.
    EXPECT_EQ(Evaluate<TypeParam>("\x40", "\x40\x02", Array(kKey, {"\x80"}), KyCmpLess).share, half);
    Guarded value(Disk("B"));
    unsigned short op = KyCmpLess | 0x7FF0;
    EXPECT_EQ(RowOf<TypeParam>().EvalAndBound(nullptr, op, value.Data(), 1, 1, nullptr), 0.0F);
    EXPECT_EQ(op, KyCmpLess);
}

TYPED_TEST(DictionaryBounds, MarkersTellTextsFromKeysAndPages) {
    // 8C of the disk page is 88 in the program's.
    const auto share = [](const std::string& lower, const std::string& upper, const std::string& constant) {
        return Evaluate<TypeParam>(lower, upper, constant, KyCmpLess).share;
    };
    const float expected = share(Disk("A"), Disk("Z"), Disk("\x8C"));
    EXPECT_EQ(share(Disk("A"), Disk("Z"), Array(kPlain, {"\x88"})), expected);
    EXPECT_EQ(share(Array(kPlain, {"A"}), Array(kPlain, {"Z"}), Disk("\x8C")), expected);
    EXPECT_EQ(share(Array(kKey, {"\x54"}), Array(0xC0, {"\xB7"}), Array(kKey, {"\x90\x69"})), expected);
    EXPECT_NE(share(Disk("A"), Disk("Z"), Array(kPlain, {"\x8C"})), expected);
}

TYPED_TEST(DictionaryBounds, FormsAgree) {
    for (const unsigned op : {1u, 2u, 4u, 6u}) {
        EXPECT_EQ(
            Evaluate<TypeParam>(Array(kDisk, {"Add"}, 2), Array(kDisk, {"Mob"}, 2), Array(kDisk, {"Ding"}, 2), op, 2),
            Evaluate<TypeParam>(Disk("Add"), Disk("Mob"), Disk("Ding"), op));
    }
}

TYPED_TEST(DictionaryBounds, PatternsSetABitOfTheWord) {
    for (const char* pattern : {"B*", "B?", "B\\*", "B*C*"}) {
        for (const unsigned modifiers : {0u, 0x10u, 0x100u, 0x7FF0u, 0x8000u}) {
            const Result r = Evaluate<TypeParam>(Disk("A"), Disk("C"), Disk(pattern), KyCmpEqual | modifiers);
            EXPECT_EQ(r, (Result{Share<TypeParam>("A", "C", "B", KyCmpEqual),
                                 static_cast<unsigned short>(KyCmpEqual | 8 | (modifiers & 0x8000))}));
        }
    }
    EXPECT_EQ(Evaluate<TypeParam>(Disk("A"), Disk("C"), Disk("B"), KyCmpEqual | 0x7FF0).op, KyCmpEqual);
    // In a key a backslash is 43, and 5C is a letter.
    EXPECT_EQ(Evaluate<TypeParam>(Disk("A"), Disk("C"), Array(kKey, {"\x5B\x43"}), KyCmpEqual).op, KyCmpEqual | 8);
    EXPECT_EQ(Evaluate<TypeParam>(Disk("A"), Disk("C"), Array(kKey, {"\x5B\x5C"}), KyCmpEqual).op, KyCmpEqual);
}

TYPED_TEST(DictionaryBounds, AWildcardAtTheBeginningKeepsAllAndRecordsNothing) {
    for (const char* pattern : {"*", "?B", "\\B", "*B"}) {
        for (unsigned relation = 0; relation < 8; ++relation) {
            EXPECT_EQ(Evaluate<TypeParam>(Disk("A"), Disk("C"), Disk(pattern), relation | 0x60),
                      (Result{1, static_cast<unsigned short>(relation | 8)}));
            EXPECT_EQ(Evaluate<TypeParam>("", "", Disk(pattern), relation).share, 1.0F);
            Guarded value(Disk(pattern));
            OwnedBounds out;
            auto op = static_cast<unsigned short>(relation);
            EXPECT_EQ(RowOf<TypeParam>().EvalAndBound(nullptr, op, value.Data(), 1, 1, &out.record), 0.0F);
            EXPECT_EQ(op, relation | 8);
            EXPECT_EQ(out.record.lower, nullptr);
            EXPECT_EQ(out.record.upper, nullptr);
        }
    }
}

TYPED_TEST(DictionaryBounds, Kept_OfCrossedLimitsAWildcardKeepsAllWhereCasesAreAlike) {
    EXPECT_EQ(Share<TypeParam>("C", "A", "*", KyCmpEqual), isCaseAlike<TypeParam> ? 1.0F : 0.0F);
    // No keys at all: one number above the upper limit.
    const auto none = [](const char* text, unsigned op) {
        return Evaluate<TypeParam>(Array(kKey, {"\x50\x50\x50\x51"}), Array(kKey, {"\x50\x50\x50\x50"}), Disk(text), op)
            .share;
    };
    for (const unsigned op : {1u, 2u, 4u}) EXPECT_EQ(none("A", op), 0.0F);
    EXPECT_EQ(none("*", KyCmpEqual), isCaseAlike<TypeParam> ? 1.0F : 0.0F);
}

TYPED_TEST(DictionaryBounds, TheWholeConstantIsRecorded) {
    const std::string constants[] = {Disk("abc"),
                                     Disk(""),
                                     Disk("ab*c"),
                                     Array(kDisk, {"abc", "", "d*"}),
                                     Array(kPlain, {"x"}),
                                     Array(kKey, {"\x54"}),
                                     Array(kDisk, {"abc", "d"}, 2)};
    for (const std::string& constant : constants) {
        const unsigned char form = &constant == &constants[6] ? 2 : 1;
        for (unsigned relation = 0; relation < 8; ++relation) {
            Guarded value(constant);
            OwnedBounds out;
            limit_blocks::TakeSizes();
            auto op = static_cast<unsigned short>(relation | 0x10);
            RowOf<TypeParam>().EvalAndBound(nullptr, op, value.Data(), form, 3, &out.record);
            const bool hasLower = (relation & 2) == 0;
            const bool hasUpper = (relation & 4) == 0;
            EXPECT_EQ(limit_blocks::TakeSizes(), std::vector<std::size_t>(hasLower + hasUpper, constant.size()));
            const std::string hex = Hex(constant.data(), constant.size());
            EXPECT_EQ(LimitHex(out.record.lower, constant.size()), hasLower ? hex : "none");
            EXPECT_EQ(LimitHex(out.record.upper, constant.size()), hasUpper ? hex : "none");
            EXPECT_EQ(out.record.lowerLen, hasLower ? constant.size() : 0);
        }
    }
}

TYPED_TEST(DictionaryBounds, CutLimitsAreReadAsFarAsTheyGo) {
    const std::string lower = Disk(
        "\x8C"
        "BCDEF");
    const std::string upper = Disk(
        "\x9C"
        "XYZ");
    const float whole = Evaluate<TypeParam>(lower, upper, Disk("Q"), KyCmpLess).share;
    for (std::size_t i = 1; i <= lower.size(); ++i) {
        for (std::size_t j = 1; j <= upper.size(); ++j) {
            const float share = Evaluate<TypeParam>(lower.substr(0, i), upper.substr(0, j), Disk("Q"), KyCmpLess).share;
            EXPECT_GE(share, 0.0F);
            EXPECT_LE(share, 1.0F);
            EXPECT_TRUE(i < 6 || j < 6 || share == whole);
        }
    }
}

TYPED_TEST(DictionaryBounds, Law_NoMatchIsLostByALimitWithoutAWildcard) {
    std::uint64_t state = 9;
    const auto any = [&](unsigned limit) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<unsigned>(state >> 40) % limit;
    };
    const std::string characters = "aAbBzZ\x8C\xC0\xDF\xA3*?";
    const auto make = [&] {
        std::string text;
        for (unsigned n = any(6); n != 0; --n) text += characters[any(static_cast<unsigned>(characters.size()))];
        return text;
    };
    const KyTypeTab& row = RowOf<TypeParam>();
    for (int round = 0; round < 20000; ++round) {
        const std::string pattern = make();
        std::string value = Disk(pattern);
        std::string text = Disk(make());
        const auto compare = [&](void* with, std::size_t length) {
            int err = 0;
            return row.Compare(1, static_cast<unsigned>(text.size()), text.data(), static_cast<unsigned>(length), with,
                               0, 1, err);
        };
        const int order = compare(value.data(), value.size());
        unsigned short op = order < 0 ? KyCmpLess : order > 0 ? KyCmpGreater : KyCmpEqual;
        OwnedBounds out;
        const float share = row.EvalAndBound(nullptr, op, value.data(), 1, 1, &out.record);
        EXPECT_EQ(share, 0.0F);
        const int position = istrwc(const_cast<char*>(pattern.c_str()), kDisk);
        EXPECT_EQ((op & 8) != 0, position >= 0);
        if (position == 0) continue;
        // An index is descended with the text before the wildcard alone.
        EXPECT_TRUE(out.record.lower == nullptr || compare(out.record.lower, out.record.lowerLen) >= 0) << pattern;
        EXPECT_TRUE(out.record.upper == nullptr || compare(out.record.upper, out.record.upperLen) <= 0) << pattern;
    }
}

TYPED_TEST(DictionaryBounds, Law_SharesOfMadeRangesLieBetweenNothingAndAll) {
    std::uint64_t state = 11;
    const auto make = [&] {
        std::string text;
        state = state * 6364136223846793005U + 1442695040888963407U;
        for (std::uint64_t n = state >> 60; n != 0; --n) {
            state = state * 6364136223846793005U + 1442695040888963407U;
            text += static_cast<char>(1 + (state >> 40) % 255);
        }
        return Array(static_cast<unsigned char>(state >> 33), {text});
    };
    for (int round = 0; round < 20000; ++round) {
        std::string texts[] = {make(), make(), make()};
        KyIdxBounds bounds{texts[0].data(), texts[1].data(), static_cast<unsigned char>(texts[0].size()),
                           static_cast<unsigned char>(texts[1].size())};
        for (unsigned short relation = 0; relation < 8; ++relation) {
            unsigned short op = relation;
            const float share = RowOf<TypeParam>().EvalAndBound(&bounds, op, texts[2].data(), 1, 1, nullptr);
            EXPECT_TRUE(share >= 0 && share <= 1) << share;
        }
    }
}

}  // namespace
