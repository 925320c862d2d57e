#include <gtest/gtest.h>

#include "run_program.h"

namespace {

struct Case {
    const char* type;
    const char* format;  ///< null: the type's own
    std::vector<std::string> scanned;
    std::vector<std::string> refused;
};

const Case kCases[] = {
    {"o_2b",
     nullptr,
     {"0", "-0", "+7", "007", " 5", "5 ", "32767", "-32768"},
     {"", " ", "x", "12abc", "12 13", "1.5", "-", "+", "--1", "+-1", "0x10", "32768", "-32769", "65535",
      "99999999999999999999", "7,"}},
    {"o_u2b", nullptr, {"0", "-0", "65535"}, {"-1", "65536", "18446744073709551616"}},
    {"o_2b", "%x", {"ffff", "0xFFFF", "7f", "-1"}, {"g", "10000", "0x", "-8001"}},
    {"o_2b", "%o", {"17", "177777"}, {"8", "200000"}},
    {"o_u2b", "%d", {"65535", "-1", "1"}, {"65536", "-32769"}},
    {"o_4b", nullptr, {"2147483647", "-2147483648"}, {"2147483648", "-2147483649"}},
    {"o_4b", "%i", {"0x10", "010", "10"}, {"08", "0xg"}},
    {"o_4b", "%d kg", {"12 kg", "12kg", "-3  kg"}, {"12", "12 k", "12 kg more"}},
    {"o_u4b", nullptr, {"4294967295"}, {"4294967296", "-1"}},
    {"BlockId", nullptr, {"#0", "#4294967295"}, {"7", "#", "#-1", "##7"}},
    {"o_8b",
     nullptr,
     {"9223372036854775807", "-9223372036854775808"},
     {"9223372036854775808", "-9223372036854775809", "99999999999999999999999"}},
    {"o_u8b", nullptr, {"18446744073709551615"}, {"18446744073709551616", "-1"}},
    {"o_char", nullptr, {"A", " ", "0", "%", "0x00", "0xff"}, {"", "AB", "0X41", "0x", "0x100", "0xg", "\xC3\xA9"}},
    {"o_char", "%d", {"65", "-128", "127", "0x41"}, {"128", "-129", "A"}},
    {"o_u1b", "%d", {"0", "255"}, {"256"}},
    {"o_double",
     nullptr,
     {"0", "-0.0", "1.", ".5", "1e3", "1E+3", "-1e-400", "1e999", " 2", "2 ", "NaN", "nan", "Infinity", "-infinity",
      "0.1000000000000000055511151231257827"},
     {"", ".", "e5", "1e", "1e+", "0x10", "1,5", "1 2", "inf", "+Infinity", "-NaN", "nan(1)", "x"}},
    {"o_float", nullptr, {"0.1", "NaN ", "1e40"}, {"0.1f", "abc"}},
    {"o_double", "%f", {"1.5", "-2", "1e2"}, {"", "abc", "1.5.2"}},
    {"KyInt64",
     nullptr,
     {"0", "-1", "007", "5 ", "9223372036854775807", "-9223372036854775808"},
     {"", " 5", "+5", "12abc", "abc", "9223372036854775808", "99999999999999999999"}},
    {"KyInt64", "%x", {"ff", "0xFF", "-1"}, {"g", "10000000000000000"}},
    {"KyInt64", "%i", {"010", "08"}, {"0x10"}},
    // Every text is a truth value: what is not true is false.
    {"KyBoolean", nullptr, {"TRUE", "t", "1", "True", "no", "", "{NULL}"}, {"{NULL} and more"}},
    {"KyObjId",
     nullptr,
     {"(0-12#3)", "1-2#3", " ( 1 - 2 # 3 ) ", "(0-0#7)", "01-002#0", "(65535-4294967295#4294967295)", "{NULL}"},
     {"", "hello", "1-2", "1x2y3", "-1-2#3", "1-2#3 4", "(65536-1#0)", "(0-4294967296#0)", "(1-2#4294967296)",
      "{NULL} and more"}},
    {"KyObjId", "%hu/%lu/%lu", {"1/2/3"}, {"1/2", "1-2-3"}},
    {"KyObjId", "%L %B", {"1 2"}, {"12", "1,2"}},
    {"KyClassId", nullptr, {"(8v9)", "0v0", "(65535v65535)"}, {"8", "8 9", "(65536v0)", "v"}},
    {"KyRef", nullptr, {"(2:1-5#7, 8)", "2:1-5#7,8"}, {"(1-5#7, 8)", "(2:1-5#7)", "(2:1-5#7, 65536)"}},
    {"KyRef", "(%H-%L#%B,%C)", {"(1-5#7,8)"}, {"(2:1-5#7, 8)"}},
    {"KyString", nullptr, {"", " ", "any text", "{NULL}", "{NUL", "\xE9"}, {"{NULL} and more"}},
};

TEST(Scan, TextsThatAreValuesAndTextsThatAreNot) {
    for (const Case& c : kCases) {
        std::vector<std::string> call = {"show", c.type};
        if (c.format != nullptr) call.push_back(std::string("--format=") + c.format);
        call.emplace_back("--");
        call.emplace_back();
        for (const std::string& text : c.scanned) {
            call.back() = text;
            const Result result = Kytm(call);
            EXPECT_EQ(result.status, 0) << c.type << " \"" << text << "\": " << result.err;
        }
        for (const std::string& text : c.refused) {
            call.back() = text;
            const Result result = Kytm(call);
            EXPECT_EQ(result.status, 1) << c.type << " \"" << text << "\": " << result.out;
        }
    }
}

TEST(Scan, SaysWhyNot) {
    struct {
        const char* type;
        const char* text;
        const char* reason;
    } const cases[] = {
        {"o_2b", "", "no value can be read from it"},
        {"o_2b", "12abc", "it is no number as a whole"},
        {"o_2b", "70000", "the number does not fit in the type"},
        {"o_double", "1.5x", "it is no number as a whole"},
        {"BlockId", "7", "it does not have the form of the format"},
        {"o_char", "AB", "it is not one character"},
        {"KyInt64", "+5", "no value can be read from it"},
        {"KyString", "{NULL} and more", "it goes on behind the text of null values"},
    };
    for (const auto& c : cases) {
        const Result result = Kytm({"show", c.type, "--", c.text});
        EXPECT_EQ(result.status, 1) << c.text;
        EXPECT_NE(result.err.find(c.reason), std::string::npos) << result.err;
    }
}

}  // namespace
