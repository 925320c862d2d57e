// Keys of strings that are longer than keys: never in another order than their texts, and in one order among
// themselves, whatever stands where they are cut and in whichever width it is written. And what follows from it: whole
// indexes, and queries that give what a look at all objects gives.

#include "index_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "batch.h"
#include "error.h"
#include "kyistring.h"
#include "long_texts.h"
#include "maintenance.h"
#include "narrowing.h"
#include "run.h"
#include "scratch_store.h"
#include "value.h"

namespace {

using engine::AccessPath;
using engine::Folding;
using engine::ObjectNumber;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

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
class TextsOfExpansions : public StoredLongTexts {};

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

/// Equal keys of which the one that stands for all of them says more than counts, and constants that lie between it and
/// the others.
TEST_P(TextsOfExpansions, AreFoundBehindAKeyThatEndsInsideACharacter) {
    const Family& family = GetParam().family;
    const bool isDictionary = family.IsDictionary();
    const std::u16string sharpS = isDictionary ? u"\xDE" : u"\xDF";
    const std::size_t orders = engine::OrdersOfKey(family.type);
    std::vector<Value> values;
    for (std::size_t length = orders - 3; length <= orders + 1; ++length)
        for (const std::u16string& rest : {std::u16string(u"s"), sharpS, std::u16string(u"sa"), std::u16string(u"sz")})
            values.push_back(Made(std::u16string(length, u'c') + rest, family, false));
    Fill(values);
    const Snapshot snapshot(*store);
    for (engine::PreparedQuery& query : AllRelations(*store, GetParam().folding)) {
        for (std::size_t length = orders - 3; length <= orders + 1; ++length) {
            for (const char16_t* rest : {u"s", u"sa", u"sb", u"s*", u"sa*", u"sb*", u"s\\a", u"s\\b"}) {
                const Value constant = Made(std::u16string(length, u'c') + rest, family, false);
                query.Bind(0, constant.Get());
                ASSERT_NO_FATAL_FAILURE(ExpectAlike(query, snapshot, constant));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Families, LongTexts, ::testing::ValuesIn(AllCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, StoredLongTexts, ::testing::ValuesIn(AllCases()), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, UnfoldedLongTexts, ::testing::ValuesIn(CasesThat(IsUnfolded)), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, LongTextsOfBothWidths, ::testing::ValuesIn(CasesThat(HasBothWidths)), NameOf);
INSTANTIATE_TEST_SUITE_P(Families, TextsOfExpansions, ::testing::ValuesIn(CasesThat([](const Case& of) {
                             return of.family.IsDictionary() || of.family.name == std::string("expansions");
                         })),
                         NameOf);

}  // namespace
