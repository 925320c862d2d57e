#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_program.h"

namespace {

using nlohmann::json;

json List(const char* command) {
    const Result result = Kytm({command, "--json"});
    EXPECT_EQ(result.status, 0) << result.err;
    return json::parse(result.out);
}

TEST(CodeSets, AreListedWithNumberNameAndWidth) {
    const struct {
        int number;
        const char* name;
        int bits;
    } some[] = {
        {0, "bytes", 8}, {1, "ISO-8859-1", 8}, {2, "windows-1252", 8}, {3, "US-ASCII", 8}, {253, "ISO-10646-UCS-2", 16},
    };
    const json list = List("codesets");
    EXPECT_EQ(list.size(), 28U);
    for (const auto& expected : some) {
        const bool found = std::any_of(list.begin(), list.end(), [&](const json& entry) {
            return entry["number"] == expected.number && entry["name"] == expected.name &&
                   entry["bits"] == expected.bits;
        });
        EXPECT_TRUE(found) << expected.number << ' ' << list.dump();
    }
}

TEST(Languages, AreListedWithNumberTagAndName) {
    const struct {
        int number;
        const char* tag;
        const char* name;
    } some[] = {
        {0, "neutral", "Neutral"},
        {2, "de", "German"},
        {3, "fr", "French"},
        {4, "es", "Spanish, traditional"},
    };
    const json list = List("languages");
    for (const auto& expected : some) {
        const bool found = std::any_of(list.begin(), list.end(), [&](const json& entry) {
            return entry["number"] == expected.number && entry["tag"] == expected.tag && entry["name"] == expected.name;
        });
        EXPECT_TRUE(found) << expected.number << ' ' << list.dump();
    }
}

TEST(Languages, TablesSayTheSame) {
    for (const char* command : {"languages", "codesets"}) {
        const json list = List(command);
        const std::vector<std::string> lines = LinesOf(Kytm({command}).out);
        ASSERT_EQ(lines.size(), list.size() + 1) << command;
        for (std::size_t i = 0; i < list.size(); ++i) {
            EXPECT_NE(lines[i + 1].find(std::to_string(list[i]["number"].get<int>())), std::string::npos)
                << lines[i + 1];
            EXPECT_NE(lines[i + 1].find(list[i]["name"].get<std::string>()), std::string::npos) << lines[i + 1];
        }
    }
}

TEST(Languages, NumbersAscend) {
    for (const char* command : {"languages", "codesets"}) {
        const json list = List(command);
        for (std::size_t i = 1; i < list.size(); ++i) EXPECT_LT(list[i - 1]["number"], list[i]["number"]) << command;
    }
}

TEST(Languages, EachIsTakenByNumberTagAndName) {
    for (const json& language : List("languages")) {
        for (const std::string& name : {std::to_string(language["number"].get<int>()),
                                        language["tag"].get<std::string>(), language["name"].get<std::string>()}) {
            const Result result = Kytm({"cmp", "KyString", "a", "b", "--language", name});
            EXPECT_TRUE(result.out.starts_with("<")) << name << ": " << result.out;
            EXPECT_EQ(result.status, 0) << name << ": " << result.err;
        }
    }
}

TEST(CodeSets, EachIsTakenByNumberAndName) {
    for (const json& codeSet : List("codesets")) {
        for (const std::string& name :
             {std::to_string(codeSet["number"].get<int>()), codeSet["name"].get<std::string>()}) {
            const Result result = Kytm({"cmp", "KyString", "b", "a", "--codeset", name});
            EXPECT_EQ(result.status, 0) << name << ": " << result.err;
            EXPECT_TRUE(result.out.starts_with(">")) << name << ": " << result.out;
        }
    }
}

TEST(CodeSets, NamesAreTakenWithoutCaseAndPunctuation) {
    for (const char* name : {"iso-8859-1", "ISO8859-1", "iso_8859_1"}) {
        EXPECT_EQ(Kytm({"cmp", "KyString", "a", "b", "--codeset", name}).status, 0) << name;
    }
    EXPECT_EQ(Kytm({"cmp", "KyString", "a", "b", "--language", "GERMAN"}).status, 0);
}

TEST(Languages, UnknownOnesAreRefusedWithTheNearest) {
    const struct {
        std::vector<std::string> options;
        const char* reason;
    } cases[] = {
        {{"--language", "Germann"}, "unknown language \"Germann\"; the nearest names are German, "},
        {{"--language", "254"}, "unknown language \"254\""},
        {{"--language", "255"}, "unknown language \"255\""},
        {{"--language", "02"}, "unknown language \"02\""},
        {{"--codeset", "ISO-8859-111"}, "unknown code set \"ISO-8859-111\"; the nearest names are ISO-8859-1"},
        {{"--codeset", "255"}, "unknown code set \"255\""},
        {{"--codeset", "200"}, "unknown code set \"200\""},
    };
    for (const auto& c : cases) {
        std::vector<std::string> call = {"cmp", "KyString", "a", "b"};
        call.insert(call.end(), c.options.begin(), c.options.end());
        const Result result = Kytm(call);
        EXPECT_EQ(result.status, 2) << c.reason;
        EXPECT_NE(result.err.find(c.reason), std::string::npos) << result.err;
    }
}

TEST(Languages, OnlyStringsHaveThem) {
    for (const char* option : {"--language=0", "--codeset=1"}) {
        for (const std::vector<std::string>& call : {std::vector<std::string>{"sort", "o_4b", option},
                                                     {"cmp", "o_4b", "1", "2", option},
                                                     {"show", "KyInt64", "1", option}}) {
            const Result result = KytmWith("1\n", call);
            EXPECT_EQ(result.status, 2) << call[0];
            EXPECT_NE(result.err.find("have neither a language nor a code set"), std::string::npos) << result.err;
        }
    }
}

struct SortCase {
    const char* what;
    std::vector<std::string> options;
    std::string input;
    std::string output;
};

TEST(Languages, SortTheirLetters) {
    const SortCase cases[] = {
        {"bytes", {"--codeset", "0"}, "é\nz\na\nZ\n", "Z\na\nz\né\n"},
        {"no language", {}, "z\nöl\nOfen\nÄpfel\nApfel\n", "Apfel\nÄpfel\nOfen\nöl\nz\n"},
        {"German", {"--language", "de"}, "Zoo\nÖl\nOfen\nÄpfel\nApfel\n", "Apfel\nÄpfel\nOfen\nÖl\nZoo\n"},
        {"Swedish", {"--language", "sv"}, "Zoo\nÖl\nÄpfel\nApfel\nÅl\n", "Apfel\nZoo\nÅl\nÄpfel\nÖl\n"},
        {"German, as in telephone books",
         {"--language", "de-phonebook", "--op", "exact,ignore-accent"},
         "Mufti\nMüller\nMueller\nMuster\n",
         "Müller\nMueller\nMufti\nMuster\n"},
        {"accents rank before the next letter", {"--language", "de"}, "Müll\nMulm\nMull\n", "Mull\nMulm\nMüll\n"},
        {"sharp s",
         {"--language", "de", "--codeset", "1", "--op", "exact,ignore-accent"},
         "Mast\nMaßes\nMassen\n",
         "Massen\nMaßes\nMast\n"},
        {"Spanish, traditional",
         {"--language", "es", "--codeset", "1"},
         "luz\nllave\ncuna\nchico\ndado\nola\nñu\nnube\n",
         "cuna\nchico\ndado\nluz\nllave\nnube\nñu\nola\n"},
        {"Spanish, modern",
         {"--language", "es-modern", "--codeset", "1"},
         "luz\nllave\ncuna\nchico\ndado\nola\nñu\nnube\n",
         "chico\ncuna\ndado\nllave\nluz\nnube\nñu\nola\n"},
        {"case and accents ignored, equal lines stay",
         {"--language", "fr", "--op", "exact,ignore-case,ignore-accent"},
         "pêcher\nPECHER\npécher\npeche\n",
         "peche\npêcher\nPECHER\npécher\n"},
        {"first of equal lines",
         {"--language", "fr", "--op", "exact,ignore-case,ignore-accent", "--unique"},
         "pêcher\nPECHER\npécher\npeche\n",
         "peche\npêcher\n"},
        {"lines beyond Latin-1 among others",
         {"--op", "exact,ignore-accent"},
         "œuvre\nouïe\nogre\noeuf\npain\n",
         "oeuf\nœuvre\nogre\nouïe\npain\n"},
        {"the same in one code set",
         {"--op", "exact,ignore-accent", "--codeset", "253"},
         "œuvre\nouïe\nogre\noeuf\npain\n",
         "oeuf\nœuvre\nogre\nouïe\npain\n"},
        {"scripts", {"--codeset", "253"}, "中\nжук\nωμέγα\nzoo\n9\n", "9\nzoo\nωμέγα\nжук\n中\n"},
        {"values instead of lines", {"--codeset", "253", "--print"}, "中\né\n", "é\n中\n"},
        {"values of 8 bits instead of lines", {"--codeset", "1", "--print"}, "ö\né\n", "é\nö\n"},
        {"values of bytes instead of lines", {"--codeset", "0", "--print"}, "\xFF\né\n", "é\n\xFF\n"},
        {"nulls come first", {"--codeset", "253"}, "b\n{NULL}\n", "{NULL}\nb\n"},
        {"nothing", {"--codeset", "253"}, "", ""},
        {"one empty line", {"--codeset", "253"}, "\n", "\n"},
        {"no line end at the end", {"--codeset", "253"}, "é\nb", "b\né\n"},
        {"line ends with returns", {"--codeset", "253"}, "é\r\nb\r\n", "b\r\né\r\n"},
    };
    for (const SortCase& c : cases) {
        std::vector<std::string> call = {"sort", "KyString"};
        call.insert(call.end(), c.options.begin(), c.options.end());
        const Result result = KytmWith(c.input, call);
        EXPECT_EQ(result.status, 0) << c.what << ": " << result.err;
        EXPECT_EQ(result.out, c.output) << c.what;
        EXPECT_EQ(result.err, "") << c.what;
    }
}

TEST(Languages, MatchTheirLetters) {
    const auto lines = [](const std::string& input, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "match");
        return KytmWith(input, arguments).out;
    };
    // In traditional Spanish ch is one letter.
    EXPECT_EQ(lines("chico\npico\n", {"?ico", "--language", "es"}), "chico\npico\n");
    EXPECT_EQ(lines("chico\npico\n", {"?ico", "--language", "es-modern"}), "pico\n");
    EXPECT_EQ(lines("Straße\nStrasse\n", {"STRASSE", "--language", "de", "--op=0x60"}), "Straße\nStrasse\n");
    EXPECT_EQ(lines("ЖУК\nжук\n", {"ж?к", "--op=ignore-case", "--codeset=253"}), "ЖУК\nжук\n");
}

TEST(CodeSets, LineThatIsNotInThemIsReported) {
    const struct {
        std::string line;
        std::vector<std::string> options;
        const char* reason;
    } cases[] = {
        {"50 €",
         {"--codeset", "1"},
         "\"50 €\" does not scan as KyString: € (U+20AC) is not in the code set ISO-8859-1"},
        {"é", {"--codeset", "3"}, "é (U+00E9) is not in the code set US-ASCII"},
        {"😀", {"--codeset", "253"}, "😀 (U+1F600) is beyond the 16-bit characters"},
        {"a\xE9", {"--language", "de"}, "\"a\\xE9\" does not scan as KyString: broken UTF-8 at byte 2"},
        {"a\xE9", {}, "broken UTF-8 at byte 2"},
        {std::string("\0", 1), {"--codeset", "253"}, "it holds a zero byte"},
        {std::string(32766, 'x'), {"--codeset", "253"}, "it is longer than 32765 characters of 16 bits"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> call = {"sort", "KyString"};
        call.insert(call.end(), c.options.begin(), c.options.end());
        const Result result = KytmWith("b\n" + c.line + "\na\n", call);
        EXPECT_EQ(result.status, 1) << c.reason;
        EXPECT_EQ(result.out, "a\nb\n") << c.reason;
        EXPECT_TRUE(result.err.starts_with("kytm: standard input, line 2: ")) << result.err;
        EXPECT_NE(result.err.find(c.reason), std::string::npos) << result.err;
        EXPECT_LT(result.err.size(), 300U) << c.reason;
    }
}

TEST(CodeSets, LongestLinesAreSorted) {
    std::string accents;
    for (int i = 0; i < 65531; ++i) accents += "é";
    const std::string wide(32765, 'x');
    EXPECT_TRUE(KytmWith("f\n" + accents + "\n", {"sort", "KyString", "--codeset", "1"}).out == accents + "\nf\n");
    EXPECT_TRUE(KytmWith("y\n" + wide + "\n", {"sort", "KyString", "--codeset", "253", "--print"}).out ==
                wide + "\ny\n");
}

TEST(CodeSets, ShowWithOneTakesUtf8) {
    const Result result = Kytm({"show", "KyString", "größe", "--codeset", "253", "--language", "de", "--json"});
    ASSERT_EQ(result.status, 0) << result.err;
    const json block = json::parse(result.out)[0];
    EXPECT_EQ(block["stored"][0]["bytes"], "0E 00 FD 02 67 00 72 00 F6 00 DF 00 65 00 00 FF");
    EXPECT_EQ(block["stored"][1]["bytes"], "00 0E FD 02 00 67 00 72 00 F6 00 DF 00 65 00 FF");
    EXPECT_EQ(block["texts"][0]["text"], "größe");
    EXPECT_EQ(block["texts"][0]["comesBack"], true);
    EXPECT_EQ(Kytm({"show", "KyString", "\xE9", "--codeset", "1"}).status, 1);
}

TEST(CodeSets, ShowWithoutOneTakesWhatFits) {
    const struct {
        const char* text;
        const char* stored;
    } cases[] = {
        {"é", "05 00 01 00 E9 00 FF"},
        {"\xE9", "05 00 01 00 E9 00 FF"},
        {"€", "06 00 FD 00 AC 20 00 FF"},
    };
    for (const auto& c : cases) {
        const Result result = Kytm({"show", "KyString", c.text, "--json"});
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(json::parse(result.out)[0]["stored"][0]["bytes"], c.stored) << c.text;
        EXPECT_EQ(json::parse(result.out)[0]["texts"][0]["comesBack"], true) << c.text;
    }
}

TEST(CodeSets, CompareTakesUtf8) {
    const auto order = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"cmp", "KyString"});
        return Kytm(arguments).out.substr(0, 1);
    };
    EXPECT_EQ(order({"é", "É", "--op", "exact,ignore-case"}), "=");
    EXPECT_EQ(order({"é", "e", "--op", "exact,ignore-accent", "--codeset", "253"}), "=");
    EXPECT_EQ(order({"chico", "cuna", "--language", "es"}), ">");
    EXPECT_EQ(order({"chico", "cuna", "--language", "es-modern"}), "<");
    EXPECT_EQ(order({"été", "e*", "--op", "ignore-accent"}), "=");
    EXPECT_EQ(order({"œuf", "oeuf", "--op", "exact,ignore-accent"}), "=");
}

}  // namespace
