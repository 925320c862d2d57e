// Real tables: the Unicode Character Database, whose queries SQLite answers too, and a German word list in an index of
// its language, where each answer is that of KyStrCmp over all words. What EvalAndBound estimates of both is set
// against what is found, and its mean error printed.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "batch.h"
#include "kynull.h"
#include "kystring.h"
#include "peers/sqlite.h"
#include "peers/word_lists.h"
#include "run.h"
#include "scratch_store.h"
#include "support/fewer_cases.h"
#include "support/languages.h"
#include "types.h"

namespace {

using engine::AccessPath;
using engine::ObjectNumber;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;

/// How far estimated shares are from true ones, by what was estimated.
class ShareErrors {
public:
    void Add(const std::string& what, double estimated, double found) {
        auto& [sum, count] = errors[what];
        sum += std::abs(estimated - found);
        ++count;
    }
    ~ShareErrors() {
        for (const auto& [what, error] : errors)
            std::cout << "mean error of the estimated share, " << what << ": " << 100 * error.first / error.second
                      << " % of the objects (" << error.second << " queries)\n";
    }

private:
    std::map<std::string, std::pair<double, int>> errors;
};

struct Answer {
    AccessPath::Kind kind;
    double share;
    std::size_t entries = 0;  ///< read of the index, where one is scanned
    std::vector<ObjectNumber> numbers;
};

Answer Ask(const Store& store, const PreparedQuery& query) {
    const Snapshot snapshot(store);
    const AccessPath path = query.Plan(snapshot);
    Answer answer{.kind = path.kind, .share = path.share, .numbers = {}};
    const engine::RunResult result = query.Run(snapshot, path, [&answer](const engine::Object& object) {
        answer.numbers.push_back(object.number);
        return true;
    });
    if (path.kind == AccessPath::Kind::oneIndex) answer.entries = result.entries.front();
    return answer;
}

// --- the Unicode Character Database ---

struct Character {
    unsigned code = 0;
    std::string name;
    std::string category;
    int combining = 0;
    std::optional<int> decimal;
};

std::vector<Character> ReadCharacters() {
    std::ifstream in("/usr/share/unicode/UnicodeData.txt");
    std::vector<Character> characters;
    for (std::string line; std::getline(in, line);) {
        std::vector<std::string> fields;
        std::istringstream rest(line);
        for (std::string field; std::getline(rest, field, ';');) fields.push_back(field);
        Character character;
        character.code = static_cast<unsigned>(std::stoul(fields.at(0), nullptr, 16));
        character.name = fields.at(1);
        character.category = fields.at(2);
        character.combining = std::stoi(fields.at(3));
        if (!fields.at(6).empty()) character.decimal = std::stoi(fields[6]);
        characters.push_back(std::move(character));
    }
    return characters;
}

std::string ScanByType(const engine::Attribute& attribute, std::string_view text, void* value) {
    KyString copy(std::string(text).c_str());
    engine::Types().ScanFromKyString(attribute.type, value, copy, nullptr, 1);
    return "";
}

class Characters : public ::testing::TestWithParam<unsigned char> {};

TEST_P(Characters, AreFoundAsSqliteFindsThem) {
    const std::vector<Character> characters = ReadCharacters();
    ASSERT_GT(characters.size(), 30000U);
    const ScratchFolder folder;
    Store::Create(folder.File("characters"),
                  engine::Schema::Parse("class Character { code o_u4b index\n name KyString index\n"
                                        "category KyString index\n combining int index\n decimal KyNull_int index }"),
                  GetParam());
    Store store(folder.File("characters"), engine::Access::write);
    peer::Sqlite theirs(":memory:");
    theirs.Run("create table character (number integer primary key, code, name, category, combining, decimal); begin");
    {
        peer::SqliteStatement insert(theirs, "insert into character values (null, ?, ?, ?, ?, ?)");
        engine::Batch batch(store, 0);
        for (Character character : characters) {
            KyString name(character.name.c_str());
            KyString category(character.category.c_str());
            KyNull_int decimal;
            if (character.decimal) decimal = KyNull_int(*character.decimal);
            void* const values[] = {&character.code, &name, &category, &character.combining, &decimal};
            batch.Add(values);
            insert.Bind(0, std::int64_t{character.code});
            insert.Bind(1, std::string_view(character.name));
            insert.Bind(2, std::string_view(character.category));
            insert.Bind(3, std::int64_t{character.combining});
            if (character.decimal) {
                insert.Bind(4, std::int64_t{*character.decimal});
            } else {
                insert.BindNull(4);
            }
            insert.Step();
        }
        batch.Commit();
    }
    theirs.Run("commit");

    struct {
        const char* ours;
        const char* theirs;  ///< null: the same
    } const conditions[] = {
        {"code >= 1024 and code < 1280", nullptr},
        {"code > 100000", nullptr},
        {"code <> 65", nullptr},
        {"code = 65 or code = 97 or code = 1114111", nullptr},
        {"category = \"Lu\"", "category = 'Lu'"},
        {"category <> \"Lo\"", "category <> 'Lo'"},
        {"category >= \"Pc\" and category <= \"Ps\"", "category between 'Pc' and 'Ps'"},
        {"category = \"Z?\"", "category glob 'Z?'"},
        {"category = \"N*\" and decimal = 7", "category glob 'N*' and decimal = 7"},
        {"name = \"LATIN SMALL LETTER A\"", "name = 'LATIN SMALL LETTER A'"},
        {"name = \"LATIN*\"", "name glob 'LATIN*'"},
        {"name = \"LATIN*\" and code < 1000", "name glob 'LATIN*' and code < 1000"},
        {"name = \"*SNOWMAN*\"", "name glob '*SNOWMAN*'"},
        {"name = \"GREEK ????? LETTER*\"", "name glob 'GREEK ????? LETTER*'"},
        {"name <> \"CJK*\" and code > 60000", "name not glob 'CJK*' and code > 60000"},
        {"name = \"latin small letter a\" nocase", "lower(name) = 'latin small letter a'"},
        {"combining > 200", nullptr},
        {"combining = 230 and category = \"Mn\"", "combining = 230 and category = 'Mn'"},
        {"combining >= 1 and combining <= 9 or decimal = 0", nullptr},
        {"decimal = \"{NULL}\"", "decimal is null"},
        {"decimal <> \"{NULL}\"", "decimal is not null"},
        {"decimal >= 8", nullptr},
        {"decimal < 1", "ifnull(decimal, -1) < 1"},
        {"(category = \"Nd\" or category = \"No\") and (code < 3000 or decimal = 9)",
         "(category = 'Nd' or category = 'No') and (code < 3000 or decimal = 9)"},
    };
    ShareErrors errors;
    for (const auto& condition : conditions) {
        const std::string where = std::string(" where ") + condition.ours;
        const PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), "Character" + where), ScanByType);
        Answer ours = Ask(store, query);
        peer::SqliteStatement statement(theirs, std::string("select number from character where ") +
                                                    (condition.theirs != nullptr ? condition.theirs : condition.ours) +
                                                    " order by number");
        std::vector<ObjectNumber> expected;
        while (statement.Step()) expected.push_back(static_cast<ObjectNumber>(statement.Integer(0)));
        std::ranges::sort(ours.numbers);
        EXPECT_EQ(ours.numbers, expected) << condition.ours;
        if (ours.kind == AccessPath::Kind::oneIndex && ours.entries != 0)
            errors.Add("characters", ours.share,
                       static_cast<double>(ours.entries) / static_cast<double>(characters.size()));

        // The same in an order, the first of them.
        const std::string ordered = " order by category desc, combining, code limit 20";
        const PreparedQuery first(store, engine::ParseQuery(store.GetSchema(), "Character" + where + ordered),
                                  ScanByType);
        peer::SqliteStatement firstOfTheirs(
            theirs, std::string("select number from character where ") +
                        (condition.theirs != nullptr ? condition.theirs : condition.ours) + ordered);
        expected.clear();
        while (firstOfTheirs.Step()) expected.push_back(static_cast<ObjectNumber>(firstOfTheirs.Integer(0)));
        EXPECT_EQ(Ask(store, first).numbers, expected) << condition.ours << ordered;
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, Characters, ::testing::Values(KyFormNative, KyFormReversed));

// --- German words ---

constexpr unsigned char kLatin1 = 1;
const unsigned char kGerman = LanguageOf("de")->Code();

KyString Labelled(const std::string& latin1) {
    KyString text(latin1.c_str());
    text.SetCodeSetCode(kLatin1);
    text.LanguageSet(kGerman);
    return text;
}

std::vector<KyString> ReadWords() {
    const auto& list = *std::ranges::find(peer::kWordLists, std::string("de"), &peer::WordList::tag);
    std::vector<KyString> words;
    for (const std::u16string& word : peer::ReadWords(list)) {
        constexpr char16_t latin1Limit = 0x100;
        if (!std::ranges::all_of(word, [](char16_t c) { return c < latin1Limit; })) continue;
        std::string text;
        for (const char16_t c : word) text += static_cast<char>(c);
        words.push_back(Labelled(text));
    }
    return words;
}

/// What the language says of a word, a constant and a compare-operator word.
bool Fulfils(const KyString& word, const KyString& constant, unsigned short op) {
    const int order = KyStrCmp(word.CodeSetGet(), word.LanguageGet(), word.StrGet(), constant.CodeSetGet(),
                               constant.LanguageGet(), constant.StrGet(), op, -1, KyFormNative, nullptr);
    return ((op & KyCmpEqual) != 0 && order == 0) || ((op & KyCmpLess) != 0 && order < 0) ||
           ((op & KyCmpGreater) != 0 && order > 0);
}

TEST(Words, AreFoundAsTheirLanguageOrdersThem) {
    const std::vector<KyString> words = ReadWords();
    ASSERT_GT(words.size(), 300000U);
    const ScratchFolder folder;
    Store::Create(folder.File("words"),
                  engine::Schema::Parse("class Word { text KyString index\n folded KyString index nocase noaccent }"),
                  KyFormReversed);
    Store store(folder.File("words"), engine::Access::write);
    std::vector<const KyString*> loaded;
    {
        engine::Batch batch(store, 0);
        for (std::size_t i = 0; i < words.size(); i += kFewerCases) {
            void* const values[] = {const_cast<KyString*>(&words[i]), const_cast<KyString*>(&words[i])};
            batch.Add(values);
            loaded.push_back(&words[i]);
        }
        batch.Commit();
    }
    ShareErrors errors;
    std::mt19937 random(3);
    const char* const given[] = {"stra\xDF*", "\xC4pfel*", "?aus", "*schiffahrt*", "zz", "", "STRASSE", "ma\xDF"};
    for (const char* relation : {"=", "<", ">="}) {
        for (const char* modifier : {"", " exact", " nocase noaccent"}) {
            const std::string attribute = modifier == std::string(" nocase noaccent") ? "folded " : "text ";
            PreparedQuery query(
                store, engine::ParseQuery(store.GetSchema(), "Word where " + attribute + relation + " ?" + modifier),
                {});
            for (std::size_t i = 0; i < 12; ++i) {
                KyString constant = i < std::size(given) ? Labelled(given[i]) : *loaded[random() % loaded.size()];
                const bool isPattern = std::string(constant.StrGet()).find_first_of("*?") != std::string::npos;
                // An order among patterns is that of their beginnings, which KyStrCmp does not tell.
                if (isPattern && relation != std::string("=") && modifier != std::string(" exact")) continue;
                query.Bind(0, &constant);
                Answer ours = Ask(store, query);
                std::ranges::sort(ours.numbers);
                std::vector<ObjectNumber> expected;
                for (std::size_t at = 0; at < loaded.size(); ++at)
                    if (Fulfils(*loaded[at], constant, query.Of().where.comparison.op)) expected.push_back(at + 1);
                EXPECT_TRUE(ours.numbers == expected) << attribute << relation << " " << constant.StrGet() << modifier
                                                      << ": " << ours.numbers.size() << " and " << expected.size();
                if (ours.kind == AccessPath::Kind::oneIndex)
                    errors.Add("words", ours.share,
                               static_cast<double>(ours.entries) / static_cast<double>(loaded.size()));
            }
        }
    }
}

}  // namespace
