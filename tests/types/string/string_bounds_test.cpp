#include "string_bounds.h"

#include <gtest/gtest.h>

#include "../numeric/limit_blocks.h"
#include "kybase.h"
#include "kytypes.h"
#include "kytypmgr.h"
#include "stored_strings.h"
#include "string_texts.h"

// The share of a range that EvalAndBound of strings returns and the operator word, by numbers written down here.

namespace {

using Flags = std::initializer_list<unsigned char>;
using Words = std::initializer_list<unsigned short>;

constexpr unsigned short kEqual = 1;
constexpr unsigned short kLess = 2;
constexpr unsigned short kGreater = 4;
constexpr unsigned short kNotEqual = 6;

/// The share; expects the word without modifiers.
float Share(const KyTypeTab& row, const std::string& lower, const std::string& upper, const std::string& constant,
            unsigned short op, unsigned char form = 1, unsigned count = 1) {
    GuardedRange range(lower, upper);
    Guarded value(constant);
    unsigned short word = op;
    const float share = row.EvalAndBound(&range.bounds, word, value.Data(), form, count, nullptr);
    EXPECT_EQ(word, op & 0x800F);
    return share;
}

/// Of texts in code set 0 in the old layout.
float OldShare(const std::string& lower, const std::string& upper, const std::string& constant, unsigned short op) {
    return Share(KyOldStringTab, OldArray({lower}), OldArray({upper}), OldArray({constant}), op);
}

/// Of texts in ISO 8859-1.
float Share(const std::string& lower, const std::string& upper, const std::string& constant, unsigned short op) {
    return Share(KyStringTab, Record(1, 0, lower), Record(1, 0, upper), Record(1, 0, constant), op);
}

TEST(StringBounds, TheWordComesBackWithoutModifiers) {
    Guarded value(Record(1, 0, "abc"));
    for (unsigned op = 0; op < 0x10000; op += 3) {
        auto word = static_cast<unsigned short>(op);
        EXPECT_EQ(StringEvalAndBound(nullptr, word, value.Data(), 1, 1, nullptr), 0.0F);
        EXPECT_EQ(word, op & 0x800F);
    }
}

TEST(StringBounds, PlainBytesAreFourDigitsOfSevenBits) {
    // a, b, c are 97, 98, 99; a key is 128 wide.
    const float width = 2 * 2097152 + 128;
    EXPECT_EQ(OldShare("a", "c", "b", kLess), 2097152 / width);
    EXPECT_EQ(OldShare("a", "c", "b", kGreater), 2097152 / width);
    EXPECT_EQ(OldShare("a", "c", "b", kEqual), 128 / width);
    EXPECT_EQ(OldShare("a", "c", "b", kLess | kEqual), (2097152 + 128) / width);
    EXPECT_EQ(OldShare("a", "c", "b", kNotEqual), 2 * 2097152 / width);
    EXPECT_EQ(OldShare("a", "c", "bcde", kLess), (2097152 + 99 * 16384 + 100 * 128 + 101) / width);
    EXPECT_EQ(OldShare("a", "c", "bcdefghi", kLess), (2097152 + 99 * 16384 + 100 * 128 + 101) / width);
    EXPECT_EQ(OldShare("a", "c", "b*", kEqual), (2097151 + 128) / width);
    EXPECT_EQ(OldShare("a", "c", "b*", kGreater), 1 / width);
    EXPECT_EQ(OldShare("a", "c", "bc?d", kEqual), (16383 + 128) / width);
}

TEST(StringBounds, Kept_BytesFrom7FOnAreOneDigit) {
    for (const char* high : {"\x7F", "\x80", "\xC3", "\xFF"}) {
        EXPECT_EQ(OldShare("a", "\xFE", high, kLess), 30 * 2097152.0F / (30 * 2097152 + 128)) << high;
    }
    EXPECT_GT(OldShare("a", "\xFF\xFF", "\x80z", kLess), OldShare("a", "\xFF\xFF",
                                                                  "\x90"
                                                                  "a",
                                                                  kLess));
}

TEST(StringBounds, AConstantBesideTheRangeKeepsNothingOrAll) {
    for (const auto share :
         {OldShare,
          static_cast<float (*)(const std::string&, const std::string&, const std::string&, unsigned short)>(Share)}) {
        for (const char* below : {"", "a", "bb", "*", "a*"}) {
            const bool all = std::string(below) == "*";
            EXPECT_EQ(share("bc", "bz", below, kLess), 0.0F) << below;
            EXPECT_EQ(share("bc", "bz", below, kGreater), all ? 0.0F : 1.0F) << below;
            EXPECT_EQ(share("bc", "bz", below, kEqual), all ? 1.0F : 0.0F) << below;
        }
        for (const char* above : {"c", "ca*", "z", "c*"}) {
            EXPECT_EQ(share("bc", "bz", above, kLess), 1.0F) << above;
            EXPECT_EQ(share("bc", "bz", above, kGreater), 0.0F) << above;
            EXPECT_EQ(share("bc", "bz", above, kEqual), 0.0F) << above;
        }
    }
}

TEST(StringBounds, WhatTheLimitsHaveInCommonIsSkipped) {
    const std::string common = "/a/long/beginning/that/all/keys/share/";
    for (const unsigned short op : Words{kLess, kGreater, kEqual, kNotEqual}) {
        EXPECT_EQ(OldShare(common + "a", common + "x", common + "k", op), OldShare("a", "x", "k", op));
        EXPECT_EQ(Share(common + "a", common + "x", common + "k", op), Share("a", "x", "k", op));
        EXPECT_EQ(Share(common + "a", common + "x", common + "k*", op), Share("a", "x", "k*", op));
    }
    // A constant without it lies outside; a pattern that is shorter than it covers the range.
    EXPECT_EQ(Share(common + "a", common + "x", "/a/longer", kLess), 1.0F);
    EXPECT_EQ(Share(common + "a", common + "x", "/a/long", kLess), 0.0F);
    EXPECT_EQ(Share(common + "a", common + "x", "/a/long", kEqual), 0.0F);
    EXPECT_EQ(Share(common + "a", common + "x", "/a/long*", kEqual), 1.0F);
    EXPECT_EQ(Share(common + "a", common + "x", "/a/long*", kNotEqual), 0.0F);
    EXPECT_EQ(Share(common + "a", common + "x", "/a/longer*", kEqual), 0.0F);
}

TEST(StringBounds, LettersAreDigitsOfIdentityCaseAndAccent) {
    // In a digit a Latin letter is four identities, of 128 each, behind the one before it; capitals precede.
    const double key = 1048576.0;
    const double letter = 512.0 * key * key;
    const double small = 64.0 * key * key;
    const auto share = [&](double kept) { return static_cast<float>(kept / (2 * letter + key)); };
    EXPECT_EQ(Share("a", "c", "b", kLess), share(letter));
    EXPECT_EQ(Share("a", "c", "B", kLess), share(letter - small));
    EXPECT_EQ(Share("a", "c", "b", kEqual), share(key));
    EXPECT_EQ(Share("a", "c", "\xE1", kLess), share(key * key));  // a with acute
    EXPECT_EQ(Share("A", "C", "a", kLess), share(small));
    EXPECT_EQ(Share("A", "C", "a", kLess | KyCmpIgnoreCase), 0.0F);
    EXPECT_EQ(Share("A", "C", "a", kEqual | KyCmpIgnoreCase), share(key));
    // Positions count one after the other: "Az" precedes "aB".
    EXPECT_LT(Share("A", "C", "Az", kLess), Share("A", "C", "aB", kLess));
}

TEST(StringBounds, ScriptsFollowEachOther) {
    const auto share = [](const std::u16string& constant) {
        const auto record = [](std::u16string_view text) {
            return Record(KyCodeSetUnicode, 0,
                          std::string_view(reinterpret_cast<const char*>(text.data()), text.size() * 2));
        };
        return Share(KyStringTab, record(u"0"), record(u"\u9FA5"), record(constant), kLess);
    };
    const char16_t* ascending[] = {u"0",      u"9",      u"A",      u"z",      u"\u0391", u"\u0430",
                                   u"\u05D0", u"\u0E01", u"\u30A2", u"\u1200", u"\u4E00"};
    for (std::size_t i = 1; i < std::size(ascending); ++i) {
        EXPECT_LT(share(ascending[i - 1]), share(ascending[i])) << i;
    }
    // Letters of scripts that share a digit are not told apart.
    EXPECT_EQ(share(u"\u1200a"), share(u"\u13A0"));
}

TEST(StringBounds, RepresentationsOfOneTextAgree) {
    const auto narrow = [](const char* text, unsigned char codeSet) { return Record(codeSet, 0, text); };
    const auto wide = [](std::u16string text, unsigned char form) {
        if (form == 2) {
            for (char16_t& unit : text) unit = static_cast<char16_t>(unit << 8 | unit >> 8);
        }
        return Record(KyCodeSetUnicode, 0, {reinterpret_cast<const char*>(text.data()), text.size() * 2}, form);
    };
    for (const unsigned short op : Words{kEqual, kLess, kGreater, kNotEqual}) {
        const float share =
            Share(KyStringTab, narrow("b\xE4rchen", 1), narrow("z\xFCrich", 1), narrow("m\xF6we", 1), op);
        EXPECT_EQ(Share(KyStringTab, narrow("b\xE4rchen", 2), narrow("z\xFCrich", 2), narrow("m\xF6we", 2), op), share);
        for (const unsigned char form : Flags{1, 2}) {
            EXPECT_EQ(Share(KyStringTab, wide(u"b\u00E4rchen", form), wide(u"z\u00FCrich", form),
                            wide(u"m\u00F6we", form), op, form),
                      share);
        }
        // Each limit is read through its own code set.
        EXPECT_EQ(Share(KyStringTab, wide(u"b\u00E4rchen", 1), narrow("z\xFCrich", 2), narrow("m\xF6we", 1), op),
                  share);
        // Plain bytes among others are of the native code set.
        EXPECT_EQ(Share(KyStringTab, narrow("b\xE4rchen", 0), narrow("z\xFCrich", 0), narrow("m\xF6we", 1), op), share);
        // Flag bit 0x80, and forms that are none: as they are.
        EXPECT_EQ(Share(KyStringTab, narrow("b\xE4rchen", 1), narrow("z\xFCrich", 1), narrow("m\xF6we", 1), op, 0x81),
                  share);
        EXPECT_EQ(Share(KyStringTab, narrow("b\xE4rchen", 1), narrow("z\xFCrich", 1), narrow("m\xF6we", 1), op, 8),
                  share);
    }
}

TEST(StringBounds, TheCurrentRowKnowsTheOldLayoutByItsLastByte) {
    const float share = OldShare("a", "c", "bcde", kLess);
    EXPECT_EQ(Share(KyStringTab, OldArray({"a"}), OldArray({"c"}), OldArray({"bcde"}), kLess), share);
    EXPECT_EQ(Share(KyStringTab, Record(0, 0, "a"), OldArray({"c"}), OldArray({"bcde"}), kLess), share);
}

TEST(StringBounds, TheOldRowReadsTheOldLayoutUnlessTheFlagSaysOtherwise) {
    const float share = OldShare("a", "c", "bcde", kLess);
    EXPECT_EQ(Share(KyOldStringTab, Record(0, 0, "a"), Record(0, 0, "c"), Record(0, 0, "bcde"), kLess, 0x81), share);
    EXPECT_EQ(Share(KyOldStringTab, OldArray({"a"}, 2), OldArray({"c"}, 2), OldArray({"bcde"}, 2), kLess, 2), share);
    EXPECT_EQ(Share(KyOldStringTab, OldArray({"a", "x"}), OldArray({"c", "y"}), OldArray({"bcde", "?"}), kLess, 1, 2),
              share);
    // A last byte that is no terminator is a text's.
    const std::string unended = OldArray({"bcde"}).substr(0, 6);
    std::string constant = unended;
    constant[0] = 4;
    EXPECT_EQ(Share(KyOldStringTab, OldArray({"a"}), OldArray({"c"}), constant, kLess), share);
}

TEST(StringBounds, MissingLimitsAreTheEmptyTextAndTheLastOne) {
    const std::string b = Record(1, 0, "b");
    EXPECT_EQ(Share(KyStringTab, "", b, Record(1, 0, "a"), kGreater),
              Share(KyStringTab, Record(1, 0, ""), b, Record(1, 0, "a"), kGreater));
    const double last = 1152921504606846975.0;  // sixty bits
    const double digit = (0x14840 - 0x14640) * 1099511627776.0;
    EXPECT_EQ(Share(KyStringTab, Record(1, 0, "a"), "", b, kLess),
              static_cast<float>(digit / (last - 0x14640 * 1099511627776.0 + 1048576)));
    EXPECT_EQ(Share(KyStringTab, "", "", Record(1, 0, "*"), kEqual), 1.0F);
    EXPECT_EQ(Share(KyStringTab, "", "", Record(1, 0, ""), kLess), 0.0F);
    EXPECT_EQ(Share(KyStringTab, "", "", Record(1, 0, ""), kGreater), 1.0F);
    const auto old = [](const char* text, unsigned short op) {
        return Share(KyOldStringTab, "", "", OldArray({text}), op);
    };
    EXPECT_EQ(old("@", kLess), 64 * 2097152.0F / (268435455.0F + 128));
    // Nothing tells how much there is behind the last number.
    EXPECT_EQ(old("\xFF\xFF\xFF\xFF", kGreater), 128 / (268435455.0F + 128));
}

TEST(StringBounds, NullIsEmpty) {
    const std::string a = Record(1, 0, "a");
    const std::string c = Record(1, 0, "c");
    const std::string null = Record(1, 254, "");
    EXPECT_EQ(Share(KyStringTab, a, c, null, kLess), 0.0F);
    EXPECT_EQ(Share(KyStringTab, a, c, null, kGreater), 1.0F);
    EXPECT_EQ(Share(KyStringTab, a, c, Record(254, 0, ""), kGreater), 1.0F);
    // Whatever text it holds, and that is no pattern.
    EXPECT_EQ(Share(KyStringTab, a, c, Record(1, 254, "b*"), kEqual), 0.0F);
    EXPECT_EQ(Share(KyStringTab, null, c, Record(1, 0, "b"), kLess),
              Share(KyStringTab, Record(1, 0, ""), c, Record(1, 0, "b"), kLess));
    // What lies between null and empty is told by comparison alone.
    EXPECT_EQ(Share(KyStringTab, null, Record(1, 0, ""), Record(1, 0, ""), kLess | KyCmpExact), 1.0F);
    EXPECT_EQ(Share(KyStringTab, null, Record(1, 0, ""), null, kLess | KyCmpExact), 0.0F);
}

TEST(StringBounds, TextsThatTheNumbersDoNotTellApartAreCompared) {
    // Three letters are all that a number holds; the limits have none in common.
    const float unit = Share("abcdef", "bcdefg", "abcdef", kEqual);
    EXPECT_GT(unit, 0.0F);
    EXPECT_EQ(Share("abcdef", "bcdefg", "abcdez", kLess), unit);
    EXPECT_EQ(Share("abcdef", "bcdefg", "abcdea", kLess), 0.0F);
    EXPECT_EQ(Share("abcdef", "bcdefg", "abcdef", kLess), 0.0F);
    EXPECT_EQ(Share("abcdef", "bcdefg", "bcdefa", kGreater), unit);
    EXPECT_EQ(Share("abcdef", "bcdefg", "bcdefz", kGreater), 0.0F);
    // Both sides of a range that is one number: all of it, not twice.
    EXPECT_EQ(Share("\xE1"
                    "bcdef",
                    "\xE1"
                    "bcdeh",
                    "\xE1"
                    "bcdeg",
                    kNotEqual),
              1.0F);
    // Over the limit's length: what only continues the limit is not confirmed.
    EXPECT_EQ(Share("abc", "bcdefg", "abcd", kLess), 0.0F);
    // With the caller's modifiers.
    EXPECT_EQ(Share("abcdE", "bcdefg", "abcde", kLess), unit);
    EXPECT_EQ(Share("abcdE", "bcdefg", "abcde", kLess | KyCmpIgnoreCase), 0.0F);
    // A pattern is less or greater as its beginning is.
    EXPECT_EQ(Share("abcdef", "bcdefg", "abcdez*", kLess), unit);
    EXPECT_EQ(Share("abcdef", "bcdefg", "abcde*", kLess), 0.0F);
    EXPECT_EQ(Share("abcdef", "bcdefg", "bcdef*", kGreater), 0.0F);
    EXPECT_EQ(Share("abcdef", "bcdefg", "bcdea*", kGreater), unit);
    EXPECT_EQ(OldShare("abcdef", "bcdefg", "abcdez", kLess), OldShare("abcdef", "bcdefg", "abcdef", kEqual));
}

TEST(StringBounds, CrossedLimitsKeepNothing) {
    for (const unsigned short op : Words{kEqual, kLess, kGreater, kNotEqual}) {
        for (const char* constant : {"a", "b", "c", "*", "b*"}) {
            EXPECT_EQ(Share("c", "a", constant, op), 0.0F) << constant << op;
            EXPECT_EQ(OldShare("c", "a", constant, op), 0.0F) << constant << op;
        }
    }
    EXPECT_EQ(Share("b", "b", "b", kEqual), 1.0F);
    EXPECT_EQ(Share("b", "b", "b", kNotEqual), 0.0F);
}

TEST(StringBounds, PatternsAreReadUnlessTheOperatorIsExact) {
    for (const unsigned short exact : Words{KyCmpExact, KyCmpStringExact}) {
        EXPECT_EQ(Share("a", "c", "b*", static_cast<unsigned short>(kEqual | exact)), Share("a", "c", "b", kEqual));
    }
    EXPECT_EQ(Share("a", "c", "b*", kEqual), Share("a", "c", "b?", kEqual));
    EXPECT_EQ(Share("a", "c", "b*", kEqual), Share("a", "c", "b\\*", kEqual));
    EXPECT_GT(Share("a", "c", "b*", kEqual), 1000 * Share("a", "c", "b", kEqual));
    // In the old layout nothing is an escape.
    EXPECT_EQ(OldShare("a", "c", "b\\x", kLess), OldShare("a", "c", "b\\x", kLess | KyCmpExact));
    EXPECT_EQ(OldShare("a", "c", "b\\x", kEqual), OldShare("a", "c", "b", kEqual));
}

TEST(StringBounds, MarkedTextsAreBeginnings) {
    // Orders of a and b, small: 0x4000 | 2 << 12 | letter << 2.
    const std::string a("\x0C\x60", 2);
    const std::string b("\x10\x60", 2);
    const std::string c("\x14\x60", 2);
    const auto share = [&](unsigned char language, unsigned op) {
        return Share(KyStringTab, Record(254, 1, a), Record(254, 1, c), Record(254, language, b),
                     static_cast<unsigned short>(op));
    };
    EXPECT_EQ(share(1, kLess), share(0x81, kLess));
    EXPECT_EQ(share(1, kEqual), Share("a", "c", "b", kEqual));
    EXPECT_EQ(share(0x81, kEqual), Share("a", "c", "b*", kEqual));
    EXPECT_EQ(share(0x80, kEqual), share(0x81, kEqual));
    EXPECT_EQ(share(0x81, kEqual | KyCmpExact), share(1, kEqual));
    EXPECT_EQ(share(254, kGreater), 1.0F);
}

TEST(StringBounds, CutLimitsCountWithWhatIsThere) {
    const std::string lower = Record(1, 0, "bcdefghij");
    const std::string upper = Record(1, 0, "xyzabcdef");
    for (const unsigned short op : Words{kEqual, kLess, kGreater, kNotEqual}) {
        for (const char* constant : {"a", "bcde", "m*", "xyzab", "z"}) {
            const std::string value = Record(1, 0, constant);
            const float whole = Share(KyStringTab, lower, upper, value, op);
            for (std::size_t i = 1; i <= lower.size(); ++i) {
                for (std::size_t j = 1; j <= upper.size(); ++j) {
                    const float share = Share(KyStringTab, lower.substr(0, i), upper.substr(0, j), value, op);
                    EXPECT_GE(share, 0.0F);
                    EXPECT_LE(share, 1.0F);
                    if (i >= 4 + 6 && j >= 4 + 6) {
                        EXPECT_EQ(share, whole) << i << " " << j;
                    }
                    if (i < 4 && j < 4) {
                        EXPECT_EQ(share, Share(KyStringTab, "", "", value, op));
                    }
                }
            }
        }
    }
    // The lower one is where its part ends, the upper one behind all that begin with its part.
    const auto cut = [&](std::size_t i, std::size_t j) {
        return Share(KyStringTab, lower.substr(0, i), upper.substr(0, j), Record(1, 0, "x"), kGreater);
    };
    EXPECT_EQ(cut(4, 13), Share("", "xyzabcdef", "x", kGreater));
    EXPECT_GT(cut(13, 5), Share("bcdefghij", "xyza", "x", kGreater));
}

TEST(StringBounds, HalfAUnitAtACutIsNoCharacter) {
    const std::string lower = Record(253, 0, std::string_view("a\0b\0c\0", 6));
    const std::string upper = Record(253, 0, std::string_view("x\0y\0z\0", 6));
    const std::string value = Record(253, 0, std::string_view("m\0", 2));
    for (std::size_t size = 4; size < 10; size += 2) {
        EXPECT_EQ(Share(KyStringTab, lower.substr(0, size), upper, value, kLess),
                  Share(KyStringTab, lower.substr(0, size + 1), upper, value, kLess));
        EXPECT_EQ(Share(KyStringTab, lower, upper.substr(0, size), value, kLess),
                  Share(KyStringTab, lower, upper.substr(0, size + 1), value, kLess));
    }
}

TEST(StringBounds, ALimitWithoutALengthIsAsLongAsItsRecordSays) {
    const std::string longer(250, 'x');  // the record has 256 bytes
    GuardedRange range(Record(1, 0, "a"), Record(1, 0, longer));
    ASSERT_EQ(range.bounds.upperLen, 0);
    range.bounds.lowerLen = 0;
    Guarded value(Record(1, 0, "m"));
    unsigned short op = kLess;
    EXPECT_EQ(StringEvalAndBound(&range.bounds, op, value.Data(), 1, 1, nullptr), Share("a", "xxx", "m", kLess));
}

TEST(StringBounds, RecordsWithLengthsThatHoldNoTextAreEmpty) {
    for (const unsigned char form : Flags{1, 2, 0x81, 0x82}) {
        for (unsigned length = 0; length < 6; ++length) {
            for (const unsigned char fill : Flags{0x00, 0x61, 0xFF}) {
                std::string bytes(length + 2, static_cast<char>(fill));
                ky::WriteLength(bytes.data(), length, form & 15);
                for (const unsigned short op : Words{kEqual, kLess, kGreater}) {
                    for (const KyTypeTab* row : {&KyStringTab, &KyOldStringTab}) {
                        const float share = Share(*row, bytes, bytes, bytes, op, form);
                        EXPECT_GE(share, 0.0F);
                        EXPECT_LE(share, 1.0F);
                    }
                }
            }
        }
    }
}

TEST(StringBounds, NoStringsAreNoConstant) {
    GuardedRange range(Record(1, 0, "a"), Record(1, 0, "c"));
    Guarded nothing("");
    OwnedBounds out;
    unsigned short op = kEqual | KyCmpExact;
    EXPECT_EQ(StringEvalAndBound(&range.bounds, op, nothing.Data(), 1, 0, &out.record), 0.0F);
    EXPECT_EQ(op, kEqual);
    EXPECT_EQ(out.record.lower, nullptr);
    EXPECT_EQ(out.record.upper, nullptr);
}

TEST(StringBounds, TheManagersCallTheirRows) {
    KyTypeMgr current(5);
    GuardedRange range(Record(1, 0, "a"), Record(1, 0, "c"));
    Guarded value(Record(1, 0, "b"));
    unsigned short op = kLess | KyCmpExact;
    EXPECT_EQ(current.EvalAndBound(KySTRING_T, &range.bounds, op, value.Data(), 1, 1, nullptr, nullptr),
              Share("a", "c", "b", kLess));
    EXPECT_EQ(op, kLess);
}

}  // namespace
