// The program that makes the tables, run as the build runs it, on small folders of data.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using testing::HasSubstr;

/// The least that tables can be made from: the codes that need a record, one 8-bit set, the neutral language.
constexpr const char* kCharacters =
    "0001..0040 symbol 0   # * is 41, ? is 62\n"
    "0041 letter 32 a.0 upper 0 lower=0061\n"
    "0042 letter 32 b.0 upper 0 lower=0062\n"
    "0043..0060 symbol 100\n"
    "0061 letter 32 a.0 lower 0 upper=0041\n"
    "0062 letter 32 b.0 lower 0 upper=0042\n"
    "\n"
    "0063..00DE symbol 200\n"
    "00DF letter 32 s.0 lower 24 upper=0041 upper+=0042 then=0062\n"
    "00E0..01FF symbol 400\n"
    "FFF9..FFFD symbol 1000\n";
constexpr const char* kCodeSet = "codeset 2 two\n80 00DF\n";
constexpr const char* kNeutral = "language 0 neutral Neutral\n";

struct Outcome {
    int exitCode;
    std::string text;
};

class Generator : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "ky_tables_XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        Write("characters/base.txt", kCharacters);
        Write("codesets/02-two.txt", kCodeSet);
        Write("languages/neutral.txt", kNeutral);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    void Write(const std::string& file, const std::string& text) const {
        const std::filesystem::path path = folder / "data" / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }
    std::string Made(const std::string& file) const {
        std::ifstream in(folder / "out" / file);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    Outcome Run() const { return RunWith(folder.string() + "/data " + folder.string() + "/out"); }

    static Outcome RunWith(const std::string& arguments) {
        std::FILE* pipe = popen((KY_TABLE_GENERATOR " " + arguments + " 2>&1").c_str(), "r");
        std::string text;
        std::array<char, 4096> part;
        while (std::fgets(part.data(), static_cast<int>(part.size()), pipe) != nullptr) text += part.data();
        const int status = pclose(pipe);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
    }

    std::filesystem::path folder;
};

TEST_F(Generator, TellsTheChecksum) {
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.exitCode, 0) << outcome.text;
    ASSERT_THAT(outcome.text, testing::StartsWith("checksum 0x"));
    const std::string checksum = outcome.text.substr(9, outcome.text.find('\n') - 9);
    EXPECT_THAT(Made("table_checksum.cpp"), HasSubstr("static_assert(KyTableChecksum == " + checksum));
}

TEST_F(Generator, ChecksumFollowsTheTablesAndNotTheText) {
    const std::string before = Run().text;
    Write("characters/base.txt", std::string("# said otherwise\n") + kCharacters);
    Write("codesets/02-two.txt", "codeset 2 two # the same\n80   00DF\n");
    EXPECT_EQ(Run().text, before);

    Write("codesets/02-two.txt", "codeset 2 two\n81 00DF\n");
    const std::string otherByte = Run().text;
    EXPECT_NE(otherByte, before);
    Write("codesets/02-two.txt", kCodeSet);
    Write("languages/xx.txt", "language 9 xx Some\n");
    const std::string otherLanguages = Run().text;
    EXPECT_NE(otherLanguages, before);
    Write("languages/xx.txt", "language 9 xx Some\nab letter 32 a.1 lower 0\n");
    EXPECT_NE(Run().text, otherLanguages);
    Write("languages/xx.txt", "language 9 xx Some\n");
    Write("characters/more.txt", "0391 letter 33 0.0 upper 0\n");
    EXPECT_NE(Run().text, otherLanguages);
}

TEST_F(Generator, NeedsTwoArguments) {
    EXPECT_EQ(RunWith("").exitCode, 2);
    EXPECT_EQ(RunWith("a b c").exitCode, 2);
}

TEST_F(Generator, NeedsItsFolders) {
    const Outcome outcome = RunWith(folder.string() + "/none " + folder.string() + "/out");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.text, HasSubstr("none/characters: has no data files"));
}

TEST_F(Generator, NeedsAPlaceToWrite) {
    Write("../out", "a file, not a folder");
    EXPECT_EQ(Run().exitCode, 1);
}

TEST_F(Generator, MissesRecordsOfSmallAndOfSpecialCodes) {
    const struct {
        const char* without;
        const char* missing;
    } cases[] = {
        {"0041 letter", "U+0041 is missing"}, {"00E0..01FF", "U+00E0 is missing"}, {"FFF9..FFFD", "U+FFF9 is missing"}};
    for (const auto& [without, missing] : cases) {
        std::string text = kCharacters;
        text.insert(text.find(without), "# ");
        Write("characters/base.txt", text);
        const Outcome outcome = Run();
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.text, HasSubstr(missing));
    }
}

struct Refusal {
    const char* file;
    const char* text;
    const char* message;  ///< from the line number on

    friend void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.file << ": " << refusal.text; }
};

class GeneratorRefuses : public Generator, public testing::WithParamInterface<Refusal> {};

TEST_P(GeneratorRefuses, WithFileAndLine) {
    const auto& [file, text, message] = GetParam();
    Write(file, text);
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.text, HasSubstr(std::string(file) + ":" + message));
}

constexpr const char* kMore = "characters/more.txt";
constexpr const char* kTwo = "codesets/02-two.txt";
constexpr const char* kThree = "codesets/03-three.txt";
constexpr const char* kLanguage = "languages/xx.txt";

INSTANTIATE_TEST_SUITE_P(
    Characters, GeneratorRefuses,
    testing::Values(Refusal{kMore, "# none\n", " says nothing"},  //
                    Refusal{kMore, "\n1000 glyph 1\n", "2: \"glyph\" is not a kind of character"},
                    Refusal{kMore, "1000\n", "1: the kind is missing"},
                    Refusal{kMore, "100 symbol 1\n", "1: \"100\" is not a character code"},
                    Refusal{kMore, "0000 symbol 1\n", "1: \"0000\" is not a character code"},
                    Refusal{kMore, "12X4 symbol 1\n", "1: \"12X4\" is not a character code"},
                    Refusal{kMore, "1000 symbol -1\n", "1: \"-1\" is not a number from 0 to 65535"},
                    Refusal{kMore, "1000 symbol 2000 3\n", "1: \"3\" is not known"},
                    Refusal{kMore, "1000 symbol 2000 color=1\n", "1: \"color=1\" is not known"},
                    Refusal{kMore, "0041 symbol 2000\n", "1: U+0041 is described a second time; the first is "},
                    Refusal{kMore, "1000 symbol 15920\n", "1: number 15920 is outside the orders of its kind"},
                    Refusal{kMore, "1000 space 0\n", "1: number 0 is outside"},
                    Refusal{kMore, "1000 space 80\n", "1: number 80 is outside"},
                    Refusal{kMore, "1000 han 32752\n", "1: number 32752 is outside"},
                    Refusal{kMore, "1000..1001 space 79\n", "1: the range goes beyond the orders of its kind"},
                    Refusal{kMore, "1000..1001 digit 16 0 1\n", "1: a range of codes needs a kind whose numbers go on"},
                    Refusal{kMore, "1000..1001 symbol 2000 upper=0041\n", "1: \"upper=0041\" is not expected here"},
                    Refusal{kMore, "1001..1000 symbol 2000\n", "1: the range 1001..1000 has less than two codes"},
                    Refusal{kMore, "1000 digit 20 0 1\n", "1: \"20\" is not a number from 0 to 19"},
                    Refusal{kMore, "1000 digit 15 0 1\n", "1: digits have the classes 16 to 19"},
                    Refusal{kMore, "1000 digit 16 10 1\n", "1: \"10\" is not a number from 0 to 9"},
                    Refusal{kMore, "1000 digit 16 0 10\n", "1: \"10\" is not a number from 0 to 9"},
                    Refusal{kMore, "1000 letter 31 0.0 upper 0\n", "1: letters have the classes 32 to 119"},
                    Refusal{kMore, "1000 letter 20 0.0 upper 0\n", "1: letters have the classes 32 to 119"},
                    Refusal{kMore, "1000 letter 128 0.0 upper 0\n", "1: \"128\" is not a number from 0 to 119"},
                    Refusal{kMore, "1000 letter 32 3.0 upper 0\n", "1: \"3\" is not a letter from a to z"},
                    Refusal{kMore, "1000 letter 45 32.0 upper 0\n", "1: \"32\" is not a number from 0 to 31"},
                    Refusal{kMore, "1000 letter 45 1 upper 0\n", "1: \"1\" is not a letter and its variant"},
                    Refusal{kMore, "1000 letter 45 1.4 upper 0\n", "1: \"4\" is not a number from 0 to 3"},
                    Refusal{kMore, "1000 letter 45 1.0 big 0\n", "1: \"big\" is not a case"},
                    Refusal{kMore, "1000 letter 45 1.0 upper 32\n", "1: \"32\" is not a number from 0 to 31"}));

INSTANTIATE_TEST_SUITE_P(
    BetweenCharacters, GeneratorRefuses,
    testing::Values(
        Refusal{kMore, "1000 symbol 2000 upper=1001\n", "1: U+1001 has no line of its own"},
        Refusal{kMore, "1000 symbol 2000 lower=1001\n", "1: U+1001 has no line of its own"},
        Refusal{kMore, "1000 symbol 2000 upper+=0041\n", "1: upper+ stands without upper"},
        Refusal{kMore, "1000 symbol 2000 upper=0041 upper+=1001\n", "1: U+1001 has no line of its own"},
        Refusal{kMore, "1000 symbol 2000 upper=0041 upper+=00DF\n", "1: U+00DF behind upper has an expansion itself"},
        Refusal{kMore, "1000 symbol 2000 upper=0041 upper+=0041,,0041\n", "1: nothing before or behind a comma"},
        Refusal{kMore, "1000 letter 32 c.0 upper 0 then=1001\n", "1: U+1001 has no line of its own"},
        Refusal{kMore, "1000 letter 32 c.0 upper 0 then=00DF\n", "1: a part of the expansion has an expansion itself"},
        Refusal{kMore, "1000 letter 45 1.0 upper 0 then=0061\n", "1: a part of the expansion has class 32, not 45"},
        Refusal{kMore, "1000 symbol 2000 then=1001\n1001 letter 45 1.0 upper 0\n",
                "1: a part of the expansion has class 45, not 32"},
        Refusal{kMore, "1000 symbol 2000 then=1001\n1001 digit 17 0 1\n",
                "1: a part of the expansion has class 17, not 16"},
        Refusal{kMore, "1000 letter 32 c.0 upper 0 then=1001\n1001 as 0061\n", "1: U+1001 has no order itself"},
        Refusal{kMore, "1000 symbol 200\n", "1: U+1000 has the place of U+0063 in the order"},
        Refusal{kMore, "1000 letter 32 a.0 lower 0\n", "1: U+1000 has the place of U+0061 in the order"},
        Refusal{kMore, "1000 letter 32 s.0 lower 24 then=0062\n", "1: U+1000 has the place of U+00DF in the order"},
        Refusal{kMore, "1000 as 1001\n", "1: U+1001 has no line of its own"},
        Refusal{kMore, "1000 as 1001\n1001 as 0041\n", "1: U+1001 only stands for another character"},
        Refusal{kMore, "1000 as 0041 then=0061\n", "1: an equivalent has no expansion of its own"},
        Refusal{kMore, "FF0A as 002A\n", "1: U+FF0A has the order of the wildcard U+002A"},
        Refusal{kMore, "FF1F as 003F\n", "1: U+FF1F has the order of the wildcard U+003F"},
        Refusal{kMore, "FF3C as 005C\n", "1: U+FF3C has the order of the wildcard U+005C"},
        Refusal{kMore, "FF0A symbol 2000 then=002A\n", "1: U+FF0A has the order of the wildcard U+002A"},
        Refusal{kMore, "AC00..AC01 syllables\n", "1: U+1100 has no line of its own"},
        Refusal{kMore, "ABFF..AC01 syllables\n", "1: syllables have the codes AC00 to D7A3"},
        Refusal{kMore, "AC00 syllables\n1100 letter 41 0.0 upper 0\n", "1: U+1161 has no line of its own"},
        Refusal{kMore, "AC00 syllables\n1100 letter 41 0.0 upper 0\n1161 letter 45 0.0 upper 0\n",
                "1: a part of the expansion has class 45, not 41"}));

INSTANTIATE_TEST_SUITE_P(
    CodeSets, GeneratorRefuses,
    testing::Values(Refusal{kTwo, "set 2 two\n", "1: a code set begins with \"codeset NUMBER NAME\""},
                    Refusal{kTwo, "codeset 2\n", "1: the name is missing"},
                    Refusal{kTwo, "codeset 225 two\n", "1: \"225\" is not a number from 0 to 224"},
                    Refusal{kTwo, "codeset 0 two\n", "1: number 0 is another set's"},
                    Refusal{kTwo, "codeset 1 two\n", "1: number 1 is another set's"},
                    Refusal{kThree, "codeset 2 three\n", "1: number 2 is another set's"},
                    Refusal{kTwo, "codeset 2 two\n7F 0041\n", "2: \"7F\" is not a byte from 80 to FF"},
                    Refusal{kTwo, "codeset 2 two\n080 0041\n", "2: \"080\" is not a byte from 80 to FF"},
                    Refusal{kTwo, "codeset 2 two\n80\n", "2: the character is missing"},
                    Refusal{kTwo, "codeset 2 two\n80 00DF 1\n", "2: \"1\" is not expected here"},
                    Refusal{kTwo, "codeset 2 two\n80 00DF\n80 00DE\n", "3: the byte has a character already"},
                    Refusal{kTwo, "codeset 2 two\n80 00DF\n81 00DF\n", "3: U+00DF has a byte already"},
                    Refusal{kTwo, "codeset 2 two\n80 0041\n", "2: U+0041 has a byte already"},
                    Refusal{kTwo, "codeset 2 two\n80 1000\n", "1: U+1000 has no line of its own"}));

INSTANTIATE_TEST_SUITE_P(
    Languages, GeneratorRefuses,
    testing::Values(
        Refusal{kLanguage, "tongue 2 xx Some\n", "1: a language begins with \"language NUMBER TAG NAME\""},
        Refusal{kLanguage, "language 254 xx Some\n", "1: \"254\" is not a number from 0 to 253"},
        Refusal{kLanguage, "language 2 xx\n", "1: the name is missing"},
        Refusal{kLanguage, "language 0 xx Some\n", "1: number or tag is the one of \"neutral\""},
        Refusal{kLanguage, "language 2 neutral Some\n", "1: number or tag is the one of \"neutral\""},
        Refusal{"languages/neutral.txt", "language 0 neutral Neutral\na letter 32 a.1 lower 0\n",
                "1: the neutral language has no differences"},
        Refusal{kLanguage, "language 2 xx Some\nas yy\n", "1: there is no language \"yy\""},
        Refusal{kLanguage, "language 2 xx Some\nas xx\n", "1: \"xx\" has another language's order itself"},
        Refusal{kLanguage, "language 2 xx Some\nas neutral\na letter 32 a.1 lower 0\n",
                "3: the order is another language's"},
        Refusal{kLanguage, "language 2 xx Some\nabaab letter 32 a.1 lower 0\n",
                "2: more than 4 characters never count as one"},
        Refusal{kLanguage, "language 2 xx Some\n\xFF letter 32 a.1 lower 0\n",
                "2: \"\xFF\" is not UTF-8 text of 16-bit characters"},
        Refusal{kLanguage, "language 2 xx Some\n\xF0\x9F\x98\x80 letter 32 a.1 lower 0\n",
                "2: \"\xF0\x9F\x98\x80\" is not UTF-8 text of 16-bit characters"},
        Refusal{kLanguage, "language 2 xx Some\n\xC3 letter 32 a.1 lower 0\n", "2: \"\xC3\" is not UTF-8 text"},
        Refusal{kLanguage, "language 2 xx Some\na symbol 5\n", "2: \"symbol\" is not \"letter\""},
        Refusal{kLanguage, "language 2 xx Some\n! letter 32 a.1 lower 0\n", "2: only letters differ between languages"},
        Refusal{kLanguage, "language 2 xx Some\n\xE1\x80\x80 letter 32 a.1 lower 0\n",
                "2: U+1000 has no line of its own"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 if=a\n", "2: \"if=a\" is not known"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 then=a b\n", "2: \"b\" is not expected here"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0\nab letter 32 a.2 lower 0\n",
                "3: the characters have a line already"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 then=ba\n",
                "2: the expansion names characters that do not count as one"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 then=a\na letter 32 a.2 lower 0 then=b\n",
                "2: a part of the expansion has an expansion itself"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 then=*\n",
                "2: the expansion has the order of the wildcard U+002A"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0 then=a,\\\n",
                "2: the expansion has the order of the wildcard U+005C"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 b.0 lower 0\n",
                "2: the place in the order is the one of U+0062"},
        Refusal{kLanguage, "language 2 xx Some\nab letter 32 a.1 lower 0\nba letter 32 a.1 lower 0\n",
                "3: the place in the order is another line's"}));

TEST_F(Generator, EquivalentsFollowInEveryLanguage) {
    Write(kMore, "1000 as 0061\n");
    Write(kLanguage, "language 2 xx Some\n\xE1\x80\x80 letter 32 a.1 lower 0\n");
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.text, HasSubstr("xx.txt:2: the character follows U+0061 in every language"));
}

TEST_F(Generator, ALanguageMayMoveALetterIntoAPlaceThatAnotherLeaves) {
    Write(kLanguage,
          "language 2 xx Some\na letter 32 b.0 lower 0\nb letter 32 a.0 lower 0\nab letter 32 c.0 lower 0\n");
    EXPECT_EQ(Run().exitCode, 0);
}

}  // namespace
