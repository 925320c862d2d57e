// Keys of strings that are longer than keys: never in another order than their texts, and in one order among
// themselves, whatever stands where they are cut and in whichever width it is written. And what follows from it: whole
// indexes, and queries that give what a look at all objects gives.

#include "index_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "batch.h"
#include "error.h"
#include "kychar.h"
#include "kyi18n.h"
#include "kyistring.h"
#include "kystring.h"
#include "maintenance.h"
#include "narrowing.h"
#include "run.h"
#include "scratch_store.h"
#include "support/languages.h"
#include "value.h"

namespace {

using engine::AccessPath;
using engine::Attribute;
using engine::Folding;
using engine::ObjectNumber;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

constexpr unsigned char kLatin1 = 1;

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

std::vector<Family> AllFamilies() {
    // In the default 8-bit code set DE is the sharp s, 88 and 93 are O and E, o and e in one, 8B to 8D accented
    // letters.
    const std::vector<std::u16string> alike = {u"s", u"\xDE", u"ss", u"o", u"\x93", u"OE"};
    const std::vector<std::u16string> letters = {u"s",    u"\xDE", u"S", u"a",    u"z",
                                                 u"\x93", u"\x88", u"e", u"\xC0", u"*"};
    return {
        {"dictionary", nullptr, true, true, alike, letters, KyISTRING_T},
        {"case_dictionary", nullptr, true, true, alike, letters, KyCASEISTRING_T},
        {"plain", "en", true, false, {u"a"}, {u"a", u"b", u"A", u"\xE9", u"-"}},
        {"expansions", "de", true, true, {u"s", u"\xDF", u"ss", u"S"}, {u"s", u"\xDF", u"a", u"z", u"\xAD", u"*"}},
        {"contractions",
         "es",
         true,
         false,
         {u"c", u"ch", u"CH", u"l", u"ll"},
         {u"c", u"h", u"ch", u"ll", u"d", u"\xAD"}},
        {"long_contractions",
         "hu",
         true,
         true,
         {u"dzs", u"d", u"dz", u"ddzs", u"z"},
         {u"d", u"z", u"s", u"ddzs", u"\xE1"}},
        {"danish", "da", true, false, {u"aa", u"\xE5", u"a"}, {u"a", u"aa", u"\xE5", u"z", u"-"}},
        {"unicode",
         "de",
         false,
         true,
         {u"f", u"\uFB03", u"\uFDFA", u"i"},
         {u"f", u"i", u"\uFB03", u"\u0301", u"\u200D", u"\u03B1"}},
        {"bytes", nullptr, true, true, {u"s", u"\xDF", u"ss"}, {u"s", u"\xDF", u"a", u"z", u"\xE9"}},
    };
}

struct Case {
    Family family;
    unsigned char form;
    Folding folding;
};

std::vector<Case> AllCases() {
    std::vector<Case> cases;
    for (const Family& family : AllFamilies())
        for (const unsigned char form : {KyFormNative, KyFormReversed})
            for (const bool ignoreCase : {false, true})
                for (const bool ignoreAccent : {false, true})
                    if (!family.IsDictionary() || (!ignoreCase && !ignoreAccent))
                        cases.push_back({family, form, {.ignoreCase = ignoreCase, .ignoreAccent = ignoreAccent}});
    return cases;
}

template <class Keep>
std::vector<Case> CasesThat(const Keep& keep) {
    std::vector<Case> cases = AllCases();
    std::erase_if(cases, [&](const Case& of) { return !keep(of); });
    return cases;
}

bool IsUnfolded(const Case& of) { return of.folding == Folding(); }
bool HasBothWidths(const Case& of) { return of.family.hasNarrow && of.family.language != nullptr; }

std::string Modifiers(const Folding& folding) {
    return std::string(folding.ignoreCase ? " nocase" : "") + (folding.ignoreAccent ? " noaccent" : "");
}

std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
    return std::string(info.param.family.name) + (info.param.form == KyFormReversed ? "_reversed" : "_native") +
           (info.param.folding.ignoreCase ? "_nocase" : "") + (info.param.folding.ignoreAccent ? "_noaccent" : "");
}
void PrintTo(const Case& of, std::ostream* out) { *out << of.family.name << Modifiers(of.folding); }

/// `change(text)` of the object that a value of a string type is.
template <class Change>
auto WithText(char type, const Value& value, const Change& change) {
    if (type == KyISTRING_T) return change(*static_cast<KyIString*>(value.Get()));
    if (type == KyCASEISTRING_T) return change(*static_cast<KyCaseIString*>(value.Get()));
    return change(*static_cast<KyString*>(value.Get()));
}

Value Made(const std::u16string& text, const Family& family, bool isWide) {
    const char* const language = family.language;
    Value value(family.type);
    if (family.IsDictionary()) {
        const std::string bytes(text.begin(), text.end());
        WithText(family.type, value, [&](auto& made) { made = bytes.c_str(); });
        return value;
    }
    auto& made = *static_cast<KyString*>(value.Get());
    if (isWide) {
        made = KyString(KyCodeSetUnicode, KyLanguageNeutral);
        made.MakeString(reinterpret_cast<const char*>(text.data()), KyCodeSetUnicode, static_cast<short>(text.size()),
                        KyFormNative);
    } else {
        std::string bytes;
        for (const char16_t c : text) bytes += static_cast<char>(c);
        made = bytes.c_str();
        made.SetCodeSetCode(language != nullptr ? kLatin1 : KyCodeSetNative);
    }
    if (language != nullptr) made.LanguageSet(LanguageOf(language)->Code());
    return value;
}

int Sign(int number) { return (number > 0) - (number < 0); }

/// Texts of one family as they are stored, with their keys.
class Texts {
public:
    Texts(const Case& aCase, unsigned seed) : of(aCase), random(seed) {
        attribute.name = "text";
        attribute.type = of.family.type;
        attribute.index = of.folding;
    }

    void Add(const Value& value) {
        stored.push_back(value.Store(of.form));
        std::vector<unsigned char> scratch;
        const engine::Bytes key = engine::IndexKey(attribute, of.form, stored.back(), scratch);
        keys.emplace_back(key.begin(), key.end());
    }

    Value Next() {
        if (Below(12) == 0) {
            Value none(of.family.type);
            if (Below(2) == 0 && !of.family.IsDictionary()) Types().SetNullPtrGet(KySTRING_T)(none.Get());
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
        return Sign(Types().Cmp(KySTRING_T, static_cast<unsigned>(stored[a].size()), stored[a].data(),
                                static_cast<unsigned>(stored[b].size()), stored[b].data(), op, 1, of.form, err));
    }
    int CompareKeys(std::size_t a, std::size_t b) const {
        return Sign(engine::CompareAsIndexed(attribute, of.form, keys[a], keys[b]));
    }

    const Case& of;
    Attribute attribute;
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

class LongTexts : public ::testing::TestWithParam<Case> {};

TEST_P(LongTexts, KeysAreInTheOrderOfTheirTexts) {
    constexpr std::size_t count = 160;
    Texts texts(GetParam(), 11);
    while (texts.stored.size() < count) texts.Add(texts.Next());
    ASSERT_TRUE(IsOneOrder(count, [&](std::size_t a, std::size_t b) { return texts.Compare(a, b); }));
    EXPECT_TRUE(IsOneOrder(count, [&](std::size_t a, std::size_t b) { return texts.CompareKeys(a, b); }));
    int tied = 0;
    for (std::size_t a = 0; a < count; ++a) {
        for (std::size_t b = 0; b < count; ++b) {
            const int ofKeys = texts.CompareKeys(a, b);
            const int ofTexts = texts.Compare(a, b);
            if (ofKeys != 0) {
                ASSERT_EQ(ofKeys, ofTexts) << a << " " << b;
            }
            if (ofKeys == 0 && ofTexts != 0) {
                ++tied;
                EXPECT_TRUE(engine::IsCut(texts.attribute, GetParam().form, texts.keys[a]));
                EXPECT_TRUE(engine::IsCut(texts.attribute, GetParam().form, texts.keys[b]));
            }
        }
    }
    EXPECT_GT(tied, 40);
    const auto endBeyond = std::ranges::count_if(
        texts.keys, [&](const auto& key) { return engine::EndsBeyondOrders(texts.attribute, key); });
    EXPECT_EQ(endBeyond > 0, GetParam().family.hasExpansions);
    constexpr std::size_t mostOfLmdb = 511;
    for (const auto& key : texts.keys) EXPECT_LE(key.size(), mostOfLmdb);
}

/// Texts that differ about where keys end, in characters of two orders.
TEST(DictionaryKeys, AreNotCutInFrontOfWhatDecides) {
    for (const Case& of : CasesThat([](const Case& any) { return any.family.IsDictionary(); })) {
        for (const std::size_t length : {118U, 119U, 237U, 238U, 239U, 240U, 247U, 248U, 249U}) {
            SCOPED_TRACE(of.family.name + std::to_string(length));
            const std::u16string begin(length, u'c');
            Texts texts(of, 15);
            for (const char16_t* rest : {u"", u"s", u"ss", u"\xDE",
                                         u"\xDE"
                                         u"a",
                                         u"ssz", u"s\xDE", u"\xDE\xDE", u"t"})
                texts.Add(Made(begin + rest, of.family, false));
            for (std::size_t a = 0; a < texts.keys.size(); ++a) {
                for (std::size_t b = 0; b < texts.keys.size(); ++b) {
                    const int ofKeys = texts.CompareKeys(a, b);
                    EXPECT_TRUE(ofKeys == 0 || ofKeys == texts.Compare(a, b)) << a << " " << b;
                }
            }
        }
    }
}

class StoredLongTexts : public LongTexts {
protected:
    StoredLongTexts() {
        const std::string schema = "class Text { text " +
                                   std::string(Types().NameGet(GetParam().family.type, nullptr)) + " index" +
                                   Modifiers(GetParam().folding) + " }";
        Store::Create(folder.File("texts"), engine::Schema::Parse(schema), GetParam().form);
        store.emplace(folder.File("texts"), engine::Access::write);
    }

    const ScratchFolder folder;
    std::optional<Store> store;

    void Fill(const std::vector<Value>& values) {
        engine::Batch batch(*store, 0);
        for (const Value& value : values) {
            void* const addresses[] = {value.Get()};
            batch.Add(addresses);
        }
        batch.Commit();
    }

    std::vector<std::string> Faults() const {
        std::vector<std::string> faults;
        engine::CheckStore(*store, [&faults](const std::string& fault) { faults.push_back(fault); }, {});
        return faults;
    }

    engine::PreparedQuery Prepared(const std::string& rest) const {
        return {*store, engine::ParseQuery(store->GetSchema(), "Text " + rest), {}};
    }

    static std::vector<ObjectNumber> Run(const engine::PreparedQuery& query, const Snapshot& snapshot,
                                         const AccessPath& path) {
        std::vector<ObjectNumber> numbers;
        query.Run(snapshot, path, [&numbers](const engine::Object& object) {
            numbers.push_back(object.number);
            return true;
        });
        return numbers;
    }

    /// The scan of the index that a comparison narrows, and what all objects give.
    void ExpectAlike(const engine::PreparedQuery& query, const Snapshot& snapshot, const Value& constant) const {
        engine::Narrowing narrowing(snapshot, store->Layout(0), 0, 0);
        narrowing.Add(query.Of().where.comparison, constant.Store(GetParam().form));
        AccessPath path;
        path.kind = AccessPath::Kind::oneIndex;
        path.scan = std::move(narrowing.scan);
        std::vector<ObjectNumber> found = Run(query, snapshot, path);
        std::ranges::sort(found);
        ASSERT_EQ(found, Run(query, snapshot, AccessPath())) << query.Of().where.comparison.text;
        if (path.scan.last != nullptr && !path.scan.range.HasUpper()) return;
        path.scan.backward = true;
        std::vector<ObjectNumber> fromBehind = Run(query, snapshot, path);
        std::ranges::sort(fromBehind);
        ASSERT_EQ(fromBehind, found) << query.Of().where.comparison.text << " from behind";
    }
};

std::vector<engine::PreparedQuery> AllRelations(const Store& store, const Folding& folding) {
    std::vector<engine::PreparedQuery> queries;
    for (const char* relation : {"=", "<", "<=", ">", ">="})
        for (const char* exact : {"", " exact"})
            queries.emplace_back(store,
                                 engine::ParseQuery(store.GetSchema(), std::string("Text where text ") + relation +
                                                                           " ?" + Modifiers(folding) + exact),
                                 engine::ScanValue());
    return queries;
}

TEST_P(StoredLongTexts, AreFoundByTheirIndex) {
    constexpr std::size_t count = 250;
    Texts texts(GetParam(), 12);
    std::vector<Value> values;
    while (values.size() < count) values.push_back(texts.Next());
    Fill(values);
    EXPECT_EQ(Faults(), std::vector<std::string>());
    const Snapshot snapshot(*store);
    const char type = GetParam().family.type;
    int bound = 0;
    for (engine::PreparedQuery& query : AllRelations(*store, GetParam().folding)) {
        for (int i = 0; i < 40; ++i) {
            const Value constant = texts.Below(2) == 0 ? texts.Next() : Value(type);
            WithText(type, constant, [&]<class Text>(Text& text) {
                if (text.IsEmpty() != 0) text = *static_cast<Text*>(values[texts.Below(count)].Get());
                const unsigned length = text.Len();
                if (length != 0 && i % 4 == 1) text.Cut(static_cast<unsigned short>(texts.Below(length)), -1);
                if (length != 0 && i % 4 == 2) text << KyString("*");
                if (length != 0 && i % 8 == 3)
                    text.Insert(Text("\\"), static_cast<unsigned short>(texts.Below(length)));
            });
            try {
                query.Bind(0, constant.Get());
            } catch (const engine::StoreError&) {
                ASSERT_NE(type, KySTRING_T);
                continue;  // Compare refuses it.
            }
            ++bound;
            ExpectAlike(query, snapshot, constant);
        }
    }
    EXPECT_GT(bound, 200);
}

/// Without an index, too, and element by element.
TEST(LongDictionaryStrings, AreSortedInArrays) {
    const ScratchFolder folder;
    Store::Create(folder.File("texts"), engine::Schema::Parse("class Text { texts KyIString[2] }"), KyFormNative);
    Store store(folder.File("texts"), engine::Access::write);
    const std::string begin(300, 'c');
    const std::pair<std::string, std::string> arrays[] = {
        {begin + "t", "a"}, {begin + "\xDE", "b"}, {begin + "ss", "a"}, {begin + "s", begin}, {"c", begin + "z"},
    };
    engine::Batch batch(store, 0);
    for (const auto& [first, second] : arrays) {
        KyIString texts[] = {first.c_str(), second.c_str()};
        void* const addresses[] = {texts};
        batch.Add(addresses);
    }
    batch.Commit();
    const engine::PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), "Text order by texts"), {});
    std::vector<ObjectNumber> numbers;
    query.Run(Snapshot(store), AccessPath(), [&numbers](const engine::Object& object) {
        numbers.push_back(object.number);
        return true;
    });
    ASSERT_EQ(numbers.size(), std::size(arrays));
    const ObjectNumber first = *std::ranges::min_element(numbers);
    for (ObjectNumber& number : numbers) number -= first;
    EXPECT_EQ(numbers, (std::vector<ObjectNumber>{4, 3, 2, 1, 0}));
}

/// The order of a query is never that of an index that folds.
class UnfoldedLongTexts : public StoredLongTexts {};
class LongTextsOfBothWidths : public StoredLongTexts {};

TEST_P(UnfoldedLongTexts, AreSortedByTheirIndex) {
    constexpr std::size_t count = 250;
    Texts texts(GetParam(), 13);
    std::vector<Value> values;
    while (values.size() < count) {
        values.push_back(texts.Next());
        texts.Add(values.back());
    }
    Fill(values);
    const Snapshot snapshot(*store);
    std::vector<std::size_t> sorted(count);
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    std::ranges::stable_sort(sorted, [&](std::size_t a, std::size_t b) { return texts.Compare(a, b) < 0; });
    const auto byLook = Run(Prepared("order by text"), snapshot, AccessPath());
    ASSERT_EQ(byLook.size(), count);
    const ObjectNumber first = *std::ranges::min_element(byLook);
    EXPECT_TRUE(std::ranges::equal(byLook, sorted, {}, [first](ObjectNumber number) { return number - first; }));
    for (const bool backward : {false, true}) {
        for (const char* limit : {"", " limit 1", " limit 40", " limit 249"}) {
            const engine::PreparedQuery query =
                Prepared(std::string("order by text") + (backward ? " desc" : "") + limit);
            AccessPath walk;
            walk.kind = AccessPath::Kind::oneIndex;
            walk.inOrder = true;
            walk.scan.backward = backward;
            EXPECT_EQ(Run(query, snapshot, walk), Run(query, snapshot, AccessPath())) << backward << limit;
        }
    }
}

/// A wide text between two narrow ones that differ where the wide one's bytes would have ended its key.
TEST_P(LongTextsOfBothWidths, AreNotInACircle) {
    const Family& family = GetParam().family;
    const auto text = [&](std::size_t length, char16_t at140, bool isWide) {
        std::u16string made(length, u'a');
        if (length > 140) made[140] = at140;
        return Made(made, family, isWide);
    };
    std::vector<Value> values;
    for (const auto& [length, at140, isWide] :
         {std::tuple(300, u'k', false), {130, u'a', true}, {150, u'm', false}, {180, u'b', true}, {260, u'z', true}})
        values.push_back(text(static_cast<std::size_t>(length), at140, isWide));
    Texts texts(GetParam(), 14);
    for (const Value& value : values) texts.Add(value);
    EXPECT_TRUE(IsOneOrder(values.size(), [&](std::size_t a, std::size_t b) { return texts.CompareKeys(a, b); }));
    Fill(values);
    EXPECT_EQ(Faults(), std::vector<std::string>());
    const Snapshot snapshot(*store);
    for (engine::PreparedQuery& query : AllRelations(*store, GetParam().folding)) {
        for (const Value& constant : values) {
            query.Bind(0, constant.Get());
            ExpectAlike(query, snapshot, constant);
        }
    }
}

/// Or a key could not hold as many orders as count.
TEST(Orders, TakeThreeCharactersAtMost) {
    const KyCodeSet& unicode = *KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
    unsigned contractions = 0;
    for (unsigned language = 0; language < KyLanguageNull; ++language) {
        const KyLanguage* rules = KyLanguageContext::QueryLanguage(static_cast<unsigned char>(language));
        if (rules == nullptr) continue;
        for (unsigned code = 1; code < 0x10000; ++code) {
            const KyCharProps* record = unicode.GetProperty(static_cast<unsigned short>(code));
            if (record == nullptr || record->rules == nullptr) continue;
            record = &rules->Select(*record);
            if (record->rules == nullptr) continue;
            for (const KyContraction& entry : record->rules->contractions) {
                ++contractions;
                const KyCharRules* further = entry.record->rules;
                const unsigned orders = further != nullptr ? 1U + further->orderExpansion.count : 1U;
                EXPECT_LE(entry.rest.count + 1U, std::min(3 * orders, 4U)) << language << " " << code;
                EXPECT_TRUE(further == nullptr || further->contractions.begin() == further->contractions.end());
            }
        }
    }
    EXPECT_GT(contractions, 50U);
}

/// By which short texts are told.
TEST(Orders, AreFewOfACharacter) {
    constexpr std::size_t ofNarrow = 3;
    constexpr std::size_t ofWide = 18;
    std::size_t narrow = 0;
    std::size_t wide = 0;
    for (unsigned language = 0; language < KyLanguageNull; ++language) {
        if (KyLanguageContext::QueryLanguage(static_cast<unsigned char>(language)) == nullptr) continue;
        for (unsigned codeSet = 0; codeSet <= KyCodeSetUnicode; ++codeSet) {
            if (KyLanguageContext::QueryCodeSet(static_cast<unsigned char>(codeSet)) == nullptr) continue;
            const bool isNarrow = codeSet < KyCodeSetFirst16Bit;
            for (unsigned code = 1; code < (isNarrow ? 0x100U : 0x10000U); ++code) {
                const unsigned short wideText[] = {static_cast<unsigned short>(code), 0};
                const char narrowText[] = {static_cast<char>(code), 0};
                KyStringIterator it(isNarrow ? narrowText : reinterpret_cast<const char*>(wideText),
                                    static_cast<unsigned char>(codeSet), static_cast<unsigned char>(language),
                                    KyFormNative);
                std::size_t orders = 0;
                while (it.GetNextOrder(0) != 0) ++orders;
                std::size_t& most = isNarrow ? narrow : wide;
                most = std::max(most, orders);
            }
        }
    }
    EXPECT_LE(narrow, ofNarrow);
    EXPECT_EQ(wide, ofWide);
}

INSTANTIATE_TEST_SUITE_P(Families, LongTexts, ::testing::ValuesIn(AllCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, StoredLongTexts, ::testing::ValuesIn(AllCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, UnfoldedLongTexts, ::testing::ValuesIn(CasesThat(IsUnfolded)), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, LongTextsOfBothWidths, ::testing::ValuesIn(CasesThat(HasBothWidths)), NameOf);

}  // namespace
