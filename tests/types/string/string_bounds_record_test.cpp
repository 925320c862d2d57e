#include <gtest/gtest.h>

#include <new>

#include "../numeric/limit_blocks.h"
#include "kybase.h"
#include "kytypes.h"
#include "stored_strings.h"
#include "string_bounds.h"
#include "string_texts.h"
#include "support/hex.h"

// What EvalAndBound of strings records, and the assertions that it raises.

namespace {

using Flags = std::initializer_list<unsigned char>;
using Words = std::initializer_list<unsigned short>;

struct Recorded {
    std::string lower = "none";
    std::string upper = "none";
    std::vector<std::size_t> blocks;
    friend bool operator==(const Recorded&, const Recorded&) = default;
};

void PrintTo(const Recorded& r, std::ostream* out) {
    *out << "lower " << r.lower << " upper " << r.upper << " in " << r.blocks.size() << " blocks";
}

std::string HexOf(const std::string& bytes) { return Hex(bytes.data(), bytes.size()); }

/// Lower, upper: what is expected, empty for none.
Recorded Limits(const std::string& lower, const std::string& upper) {
    Recorded r;
    for (const auto& [limit, place] : {std::pair(&lower, &r.lower), std::pair(&upper, &r.upper)}) {
        if (limit->empty()) continue;
        *place = HexOf(*limit);
        r.blocks.push_back(limit->size());
    }
    return r;
}

Recorded Record(const KyTypeTab& row, const std::string& constant, unsigned op, unsigned char form = 1,
                unsigned count = 1) {
    Guarded value(constant);
    OwnedBounds out;
    limit_blocks::TakeSizes();
    auto word = static_cast<unsigned short>(op);
    EXPECT_EQ(row.EvalAndBound(nullptr, word, value.Data(), form, count, &out.record), 0.0F);
    Recorded r;
    r.blocks = limit_blocks::TakeSizes();
    std::size_t block = 0;
    const auto take = [&](const void* limit, unsigned char length, std::string& hex) {
        if (limit == nullptr) {
            EXPECT_EQ(length, 0);
            return;
        }
        const std::size_t size = block < r.blocks.size() ? r.blocks[block++] : 0;
        EXPECT_EQ(length, static_cast<unsigned char>(size));
        hex = Hex(limit, size);
    };
    take(out.record.lower, out.record.lowerLen, r.lower);
    take(out.record.upper, out.record.upperLen, r.upper);
    EXPECT_EQ(block, r.blocks.size());
    return r;
}

std::string Latin(const std::string& text) { return ::Record(1, 7, text); }

/// A 16-bit text with the low byte first.
std::string Units(const std::string& ascii, unsigned char form) {
    std::string bytes;
    for (const char c : ascii) bytes += form == 2 ? std::string({'\0', c}) : std::string({c, '\0'});
    return bytes;
}

TEST(StringBoundsRecord, RecordsOfKnownBytes) {
    EXPECT_EQ(Record(KyStringTab, Latin("abc"), KyCmpEqual).lower, "07 00 01 07 61 62 63 00 FF");
    EXPECT_EQ(Record(KyStringTab, ::Record(1, 7, "abc*e", 2), KyCmpEqual, 2).lower, "00 07 01 07 61 62 63 00 FF");
    EXPECT_EQ(Record(KyStringTab, ::Record(253, 0, Units("ab?", 2), 2), KyCmpEqual, 2).lower,
              "00 08 FD 00 00 61 00 62 00 FF");
    EXPECT_EQ(Record(KyStringTab, ::Record(253, 0, Units("ab?", 1), 1), KyCmpEqual, 1).lower,
              "08 00 FD 00 61 00 62 00 00 FF");
    EXPECT_EQ(Record(KyOldStringTab, OldArray({"abc"}), KyCmpEqual).lower, "04 00 61 62 63 00");
    EXPECT_EQ(Record(KyOldStringTab, OldArray({"abc?"}, 2), KyCmpEqual, 2).lower, "00 04 61 62 63 00");
}

TEST(StringBoundsRecord, CopiesOfLiteralsWhereTheRelationClosesASide) {
    for (const unsigned char form : Flags{1, 2, 0x81, 0x82}) {
        const unsigned char order = form & 15;
        const std::string constants[] = {::Record(1, 7, "abc", order),  ::Record(253, 3, Units("abc", order), order),
                                         ::Record(1, 7, "", order),     ::Record(1, 254, "", order),
                                         ::Record(1, 254, "a*", order), ::Record(1, 7, std::string("a\0*", 3), order)};
        for (const std::string& constant : constants) {
            for (unsigned relation = 0; relation < 8; ++relation) {
                for (const unsigned other : {0x0u, 0x8u, 0x20u, 0x200u, 0x8000u, 0x7FF0u}) {
                    const std::string none;
                    EXPECT_EQ(Record(KyStringTab, constant, relation | other, form),
                              Limits((relation & 2) != 0 ? none : constant, (relation & 4) != 0 ? none : constant));
                }
            }
        }
    }
}

TEST(StringBoundsRecord, OfAPatternWhatItBeginsWithAsLowerLimit) {
    constexpr struct {
        const char* pattern;
        const char* beginning;
    } cases[] = {{"abc*", "abc"}, {"ab?c*", "ab"},  {"a\\*b", "a"},
                 {"ab\\c", "ab"}, {"abc\\", "abc"}, {"a\xDF*", "a\xDF"}};
    for (const auto& each : cases) {
        for (unsigned relation = 0; relation < 8; ++relation) {
            const std::string limit = (relation & 2) != 0 ? std::string() : Latin(each.beginning);
            EXPECT_EQ(Record(KyStringTab, Latin(each.pattern), relation), Limits(limit, ""));
            EXPECT_EQ(Record(KyStringTab, Latin(each.pattern), relation | 0x0060), Limits(limit, ""));
            for (const unsigned exact : {0x10u, 0x100u, 0x110u}) {
                const std::string whole = Latin(each.pattern);
                EXPECT_EQ(Record(KyStringTab, whole, relation | exact),
                          Limits((relation & 2) != 0 ? "" : whole, (relation & 4) != 0 ? "" : whole));
            }
        }
    }
    for (const char* pattern : {"*", "?", "*abc", "\\*abc", "\\"}) {
        for (unsigned relation = 0; relation < 8; ++relation) {
            EXPECT_EQ(Record(KyStringTab, Latin(pattern), relation), Recorded());
        }
    }
}

TEST(StringBoundsRecord, TheOldLayoutKnowsNoEscapes) {
    const std::string path = OldArray({"c:\\x"});
    EXPECT_EQ(Record(KyOldStringTab, path, KyCmpEqual), Limits(path, path));
    EXPECT_EQ(Record(KyOldStringTab, OldArray({"c:\\x*"}), KyCmpEqual), Limits(path, ""));
    // Plain bytes in the current one may meet characters, for which there are escapes.
    EXPECT_EQ(Record(KyStringTab, ::Record(0, 0, "c:\\x"), KyCmpEqual), Limits(::Record(0, 0, "c:"), ""));
}

/// Other wildcard characters for as long as this lives.
class OtherWildcards {
public:
    OtherWildcards(unsigned short asterisk, unsigned short question)
        : previousAsterisk(KyString::GetAsterisk()), previousQuestion(KyString::GetQuestion()) {
        Set(asterisk, question);
    }
    OtherWildcards(const OtherWildcards&) = delete;
    OtherWildcards& operator=(const OtherWildcards&) = delete;
    ~OtherWildcards() { Set(previousAsterisk, previousQuestion); }

private:
    unsigned short previousAsterisk;
    unsigned short previousQuestion;

    static void Set(unsigned short asterisk, unsigned short question) {
        KyString::SetAsterisk(KyChar(asterisk, 254, 0));
        KyString::SetQuestion(KyChar(question, 254, 0));
    }
};

TEST(StringBoundsRecord, WildcardsAreTheOnesThatAreSet) {
    const unsigned short percent = KyStringIterator("%", 1, 0, 1).GetNextOrder(0);
    const unsigned short underline = KyStringIterator("_", 1, 0, 1).GetNextOrder(0);
    const OtherWildcards others(percent, underline);
    ASSERT_EQ(KyString::GetAsterisk(), percent);
    ASSERT_EQ(KyString::GetQuestion(), underline);
    EXPECT_EQ(Record(KyStringTab, Latin("ab*c%d"), KyCmpEqual), Limits(Latin("ab*c"), ""));
    EXPECT_EQ(Record(KyStringTab, Latin("ab?c_d"), KyCmpEqual), Limits(Latin("ab?c"), ""));
    // Among plain bytes it is the asterisk, among characters what is set; either can be meant.
    EXPECT_EQ(Record(KyStringTab, ::Record(0, 0, "ab*c%d"), KyCmpEqual), Limits(::Record(0, 0, "ab"), ""));
    EXPECT_EQ(Record(KyStringTab, ::Record(0, 0, "ab%c*d"), KyCmpEqual), Limits(::Record(0, 0, "ab"), ""));
    EXPECT_EQ(Record(KyStringTab, ::Record(0, 0, "ab?c_d"), KyCmpEqual), Limits(::Record(0, 0, "ab"), ""));
    EXPECT_EQ(Record(KyStringTab, ::Record(0, 0, "ab_c?d"), KyCmpEqual), Limits(::Record(0, 0, "ab"), ""));
    EXPECT_EQ(Record(KyOldStringTab, OldArray({"ab%c*d"}), KyCmpEqual), Limits(OldArray({"ab%c"}), ""));
}

TEST(StringBoundsRecord, AMarkedTextIsTheBeginningOfOthers) {
    const std::string orders("\x0C\x60\x10\x60", 4);
    const std::string marked = ::Record(254, 0x81, orders);
    EXPECT_EQ(Record(KyStringTab, marked, KyCmpEqual), Limits(marked, ""));
    EXPECT_EQ(Record(KyStringTab, marked, KyCmpEqual | KyCmpExact), Limits(marked, marked));
    const std::string unmarked = ::Record(254, 1, orders);
    EXPECT_EQ(Record(KyStringTab, unmarked, KyCmpEqual), Limits(unmarked, unmarked));
    const std::string null = ::Record(254, 254, "");
    EXPECT_EQ(Record(KyStringTab, null, KyCmpEqual), Limits(null, null));
}

TEST(StringBoundsRecord, AnArrayIsRecordedWhole) {
    const std::string three = Latin("abc") + ::Record(253, 0, Units("de", 1)) + Latin("");
    EXPECT_EQ(Record(KyStringTab, three, KyCmpEqual, 1, 3), Limits(three, three));
    EXPECT_EQ(Record(KyStringTab, three, KyCmpEqual, 1, 1), Limits(Latin("abc"), Latin("abc")));
    const std::string old = OldArray({"abc", "", "de"});
    EXPECT_EQ(Record(KyOldStringTab, old, KyCmpEqual, 1, 3), Limits(old, old));
}

TEST(StringBoundsRecord, BehindAPatternInAnArrayTheLowestValuesFollow) {
    const std::string null = ::Record(1, 254, "");
    EXPECT_EQ(Record(KyStringTab, Latin("abc") + Latin("de*") + Latin("f"), KyCmpEqual, 1, 3),
              Limits(Latin("abc") + Latin("de") + null, ""));
    EXPECT_EQ(Record(KyStringTab, Latin("abc") + Latin("*e") + Latin("f"), KyCmpGreater, 1, 3),
              Limits(Latin("abc") + null + null, ""));
    EXPECT_EQ(Record(KyStringTab, Latin("a?") + Latin("b*"), KyCmpEqual, 1, 2), Limits(Latin("a") + null, ""));
    EXPECT_EQ(Record(KyStringTab, Latin("?a") + Latin("b"), KyCmpEqual, 1, 2), Recorded());
    EXPECT_EQ(Record(KyStringTab, Latin("abc") + Latin("de*"), KyCmpLess, 1, 2), Recorded());
    for (const unsigned char form : Flags{1, 2}) {
        EXPECT_EQ(Record(KyOldStringTab, OldArray({"abc", "de*", "f"}, form), KyCmpEqual, form, 3),
                  Limits(OldArray({"abc", "de", ""}, form), ""));
        EXPECT_EQ(Record(KyOldStringTab, OldArray({"abc", "*", "f"}, form), KyCmpEqual, form, 3),
                  Limits(OldArray({"abc", "", ""}, form), ""));
    }
}

TEST(StringBoundsRecord, TheFirstRecordTellsTheLayoutOfAll) {
    std::string damaged = Latin("de*");
    damaged.back() = 0;
    EXPECT_EQ(Record(KyStringTab, Latin("abc") + damaged + Latin("f"), KyCmpEqual, 1, 3),
              Limits(Latin("abc") + Latin("de") + ::Record(1, 254, ""), ""));
}

TEST(StringBoundsRecord, ALimitThatIsSetStays) {
    Guarded first(Latin("m"));
    Guarded second(Latin("p"));
    Guarded pattern(Latin("z*"));
    OwnedBounds out;
    unsigned short op = KyCmpGreater | KyCmpEqual;
    StringEvalAndBound(nullptr, op, first.Data(), 1, 1, &out.record);
    const void* const lower = out.record.lower;
    op = KyCmpEqual;
    StringEvalAndBound(nullptr, op, second.Data(), 1, 1, &out.record);
    const void* const upper = out.record.upper;
    op = KyCmpEqual;
    StringEvalAndBound(nullptr, op, pattern.Data(), 1, 1, &out.record);
    EXPECT_EQ(out.record.lower, lower);
    EXPECT_EQ(out.record.upper, upper);
    EXPECT_EQ(Hex(lower, out.record.lowerLen), HexOf(Latin("m")));
    EXPECT_EQ(Hex(upper, out.record.upperLen), HexOf(Latin("p")));
}

TEST(StringBoundsRecord, TheRangeMayBeTheRecord) {
    GuardedRange range(Latin("a"), "");
    Guarded value(Latin("m"));
    unsigned short op = KyCmpLess;
    const float apart = StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, nullptr);
    EXPECT_EQ(StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, &range.bounds), apart);
    EXPECT_EQ(Hex(range.bounds.upper, range.bounds.upperLen), HexOf(Latin("m")));
    mmKyfree(range.bounds.upper);
}

TEST(StringBoundsRecord, WithoutMemoryALimitStaysMissing) {
    for (const char* text : {"abc", "abc*"}) {
        Guarded value(Latin(text));
        for (const std::size_t left : {std::size_t{0}, std::size_t{1}}) {
            OwnedBounds out;
            unsigned short op = KyCmpEqual;
            limit_blocks::Refuse(left);
            StringEvalAndBound(nullptr, op, value.Data(), 1, 1, &out.record);
            limit_blocks::Refuse(limit_blocks::kNever);
            EXPECT_EQ(out.record.lower != nullptr, left == 1);
            EXPECT_EQ(out.record.upper, nullptr);
            EXPECT_EQ(out.record.upperLen, 0);
        }
        OwnedBounds out;
        unsigned short op = KyCmpEqual;
        limit_blocks::Refuse(0, true);
        EXPECT_THROW(StringEvalAndBound(nullptr, op, value.Data(), 1, 1, &out.record), std::bad_alloc);
        limit_blocks::Refuse(limit_blocks::kNever);
        EXPECT_EQ(out.record.lower, nullptr);
    }
    EXPECT_EQ(limit_blocks::Live(), 0U);
}

TEST(StringBoundsRecord, AConstantThatCannotBeReadForWantOfMemoryMayBeAnything) {
    Guarded value(::Record(253, 0, Units(std::string(200, 'y') + "*", 1)));
    GuardedRange range(Latin("a"), Latin("b"));
    OwnedBounds out;
    unsigned short op = KyCmpEqual;
    limit_blocks::Refuse(0);
    EXPECT_EQ(StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, &out.record), 1.0F);
    limit_blocks::Refuse(limit_blocks::kNever);
    EXPECT_EQ(out.record.lower, nullptr);
    EXPECT_EQ(out.record.upper, nullptr);
}

TEST(StringBoundsRecord, KeysThatNoIndexHoldsRaiseAnAssertion) {
    const OverflowSwitch assertions(0);
    const auto raised = [&](const std::string& constant, unsigned op, unsigned count = 1) {
        const std::size_t before = OverflowSwitch::Raised().size();
        Record(KyStringTab, constant, op, 1, count);
        const auto& all = OverflowSwitch::Raised();
        for (std::size_t i = before; i < all.size(); ++i) EXPECT_EQ(all[i].find("actualLen <= 254|src/kytypevl|"), 0U);
        return all.size() - before;
    };
    const std::string fits(248, 'x');
    EXPECT_EQ(raised(Latin(fits), KyCmpEqual), 0U);
    EXPECT_EQ(raised(Latin(fits + "x"), KyCmpEqual), 1U);
    EXPECT_EQ(raised(Latin(fits + "x"), KyCmpLess | KyCmpGreater), 1U);
    // Of a pattern only its beginning would be a key, and of none that begins with a wildcard.
    EXPECT_EQ(raised(Latin(fits + "*"), KyCmpEqual), 0U);
    EXPECT_EQ(raised(Latin(fits + "x*"), KyCmpEqual), 1U);
    EXPECT_EQ(raised(Latin("*" + fits + fits), KyCmpEqual), 0U);
    EXPECT_EQ(raised(Latin(fits) + Latin("a"), KyCmpEqual, 2), 1U);
}

TEST(StringBoundsRecord, OfALongConstantTheWholeIsRecorded) {
    const OverflowSwitch assertions(0);
    const std::string text = Units(std::string(5000, 'y'), 1);
    const std::string expected = ::Record(253, 0, text);
    for (const char* rest : {"", "*"}) {
        Guarded value(::Record(253, 0, text + Units(rest, 1)));
        OwnedBounds out;
        unsigned short op = KyCmpEqual;
        StringEvalAndBound(nullptr, op, value.Data(), 1, 1, &out.record);
        ASSERT_NE(out.record.lower, nullptr);
        EXPECT_TRUE(std::memcmp(out.record.lower, expected.data(), expected.size()) == 0);
        // The length field keeps the low byte.
        EXPECT_EQ(out.record.lowerLen, expected.size() % 256);
        EXPECT_EQ(out.record.upper == nullptr, *rest != 0);
        EXPECT_EQ(limit_blocks::Live(), *rest != 0 ? 1U : 2U);
    }
}

TEST(StringBoundsRecord, AWildcardAtTheBeginningKeepsEverything) {
    const OverflowSwitch assertions(0);
    const std::string limits[] = {Latin("bcd"), Latin("bcx"), Latin("zz"), Latin(""), ::Record(1, 254, ""), ""};
    for (const std::string& lower : limits) {
        for (const std::string& upper : limits) {
            // One that begins with something may keep less.
            for (const char* pattern : {"*", "?b", "\\*", "b*", "bcz*", "zzz*"}) {
                GuardedRange range(lower, upper);
                Guarded value(Latin(pattern));
                unsigned short op = KyCmpEqual;
                StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, nullptr);
            }
        }
    }
    EXPECT_TRUE(OverflowSwitch::Raised().empty());
}

}  // namespace
