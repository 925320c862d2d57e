// Scans of indexes of strings: each gives what a look at all values gives, forwards and backwards, and reads no more
// than what its comparison leaves of the index. The texts have what makes orders hard: letters that are two, letters
// that are one together, accents, characters that orders pass over, and ends behind those of keys.

#include "narrowing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "batch.h"
#include "index_order.h"
#include "kystring.h"
#include "pattern.h"
#include "run.h"
#include "scratch_store.h"
#include "support/languages.h"
#include "value.h"

namespace {

using engine::AccessPath;
using engine::Narrowing;
using engine::ObjectNumber;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

constexpr unsigned char kLatin1 = 1;

struct Case {
    const char* name;
    char type;
    unsigned char form;
    const char* modifiers;
    const char* language = nullptr;
    bool wide = false;
    std::vector<std::u16string> letters;
};

const std::vector<std::u16string> kGerman = {u"a",    u"A",  u"\xE4", u"\xC4", u"ae", u"s",    u"S",
                                             u"\xDF", u"ss", u"b",    u"-",    u" ",  u"\xAD", u"\x01"};
const std::vector<std::u16string> kDictionary = {u"a",    u"A",  u"\xE4", u"\xC6", u"\xE6", u"ae", u"s",
                                                 u"\xDF", u"ss", u"b",    u"B",    u"-",    u" "};

std::vector<Case> AllCases() {
    const std::vector<std::u16string> spanish = {u"c", u"C", u"h", u"ch", u"l", u"ll", u"n", u"\xF1", u"d", u"\xAD"};
    const std::vector<std::u16string> danish = {u"a", u"A", u"aa", u"Aa", u"\xE5", u"\xE6", u"z", u"\xF8", u"-"};
    const std::vector<std::u16string> hungarian = {u"d", u"z", u"s", u"dz", u"dzs", u"c", u"D", u"\xE1", u"a"};
    const std::vector<std::u16string> unicode = {u"a",   u"\u0301", u"\u00E1", u"\u200D", u"\uFB03",
                                                 u"ffi", u"f",      u"\u03B1", u"\u4E00", u"\u0000\u0301"};
    return {
        {"bytes", KySTRING_T, 1, "", nullptr, false, kGerman},
        {"german", KySTRING_T, 2, "", "de", false, kGerman},
        {"german_nocase", KySTRING_T, 1, " nocase", "de", false, kGerman},
        {"german_noaccent", KySTRING_T, 1, " noaccent", "de", false, kGerman},
        {"german_folded", KySTRING_T, 2, " nocase noaccent", "de", false, kGerman},
        {"spanish", KySTRING_T, 1, "", "es", false, spanish},
        {"danish_folded", KySTRING_T, 1, " nocase noaccent", "da", false, danish},
        {"hungarian", KySTRING_T, 2, "", "hu", false, hungarian},
        {"hungarian_folded", KySTRING_T, 1, " nocase noaccent", "hu", false, hungarian},
        {"unicode", KySTRING_T, 1, "", "de", true, unicode},
        {"unicode_folded", KySTRING_T, 2, " nocase noaccent", "de", true, unicode},
        {"dictionary", KyISTRING_T, 1, "", nullptr, false, kDictionary},
        {"dictionary_reversed", KyISTRING_T, 2, "", nullptr, false, kDictionary},
        {"case_dictionary", KyCASEISTRING_T, 1, "", nullptr, false, kDictionary},
        {"case_dictionary_reversed", KyCASEISTRING_T, 2, "", nullptr, false, kDictionary},
    };
}

std::string NameOf(const ::testing::TestParamInfo<Case>& info) { return info.param.name; }
void PrintTo(const Case& of, std::ostream* out) { *out << of.name; }

class StringScans : public ::testing::TestWithParam<Case> {
protected:
    static constexpr unsigned kObjects = 600;

    StringScans() {
        Store::Create(folder.File("texts"),
                      engine::Schema::Parse("class Text { text " + std::string(Types().NameGet(of.type, nullptr)) +
                                            " index" + of.modifiers + " }"),
                      of.form);
        store.emplace(folder.File("texts"), engine::Access::write);
        engine::Batch batch(*store, 0);
        for (unsigned i = 0; i < kObjects; ++i) {
            values.push_back(Make(Text(Below(12) == 0)));
            if (Below(15) == 0) SetNull(values.back());
            void* const addresses[] = {values.back().Get()};
            batch.Add(addresses);
        }
        batch.Commit();
    }

    const Case& of = GetParam();
    std::mt19937 random{5};
    const ScratchFolder folder;
    std::vector<Value> values;
    std::optional<Store> store;

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    void SetNull(const Value& value) const {
        if (KySetNullFunc* const setNull = Types().SetNullPtrGet(of.type)) setNull(value.Get());
    }

    std::u16string Letter() { return of.letters[Below(static_cast<unsigned>(of.letters.size()))]; }

    /// A long one is about as long as keys, and like others before.
    std::u16string Text(bool isLong) {
        std::u16string text;
        if (isLong) {
            const std::u16string& one = of.letters[Below(3)];
            for (const std::size_t length = 110 + Below(170); text.size() < length;) text += one;
        }
        for (unsigned length = Below(6); length > 0; --length) text += Letter();
        return text;
    }

    Value Make(const std::u16string& text) const {
        Value value(of.type);
        std::string bytes;
        for (const char16_t c : text) bytes += static_cast<char>(c);
        if (of.type == KySTRING_T && of.wide) {
            auto& made = *static_cast<KyString*>(value.Get());
            made = KyString(KyCodeSetUnicode, KyLanguageNeutral);
            made.MakeString(reinterpret_cast<const char*>(text.data()), KyCodeSetUnicode,
                            static_cast<short>(text.size()), KyFormNative);
            made.LanguageSet(LanguageOf(of.language)->Code());
        } else if (of.type == KySTRING_T) {
            auto& made = *static_cast<KyString*>(value.Get());
            made = bytes.c_str();
            made.SetCodeSetCode(of.language != nullptr ? kLatin1 : KyCodeSetNative);
            if (of.language != nullptr) made.LanguageSet(LanguageOf(of.language)->Code());
        } else {
            KyString scanned(bytes.c_str());
            Types().ScanFromKyString(of.type, value.Get(), scanned, nullptr, 1);
        }
        return value;
    }

    std::u16string ConstantText() {
        std::u16string text = Text(Below(8) == 0);
        for (unsigned wildcards = Below(3); wildcards > 0; --wildcards)
            text.insert(Below(static_cast<unsigned>(text.size()) + 1), 1, u"**?\\"[Below(4)]);
        return text;
    }

    struct Found {
        std::vector<ObjectNumber> numbers;
        std::size_t entries = 0;
    };
    static Found Run(const PreparedQuery& query, const Snapshot& snapshot, const AccessPath& path) {
        Found found;
        const engine::RunResult result = query.Run(snapshot, path, [&found](const engine::Object& object) {
            found.numbers.push_back(object.number);
            return true;
        });
        std::ranges::sort(found.numbers);
        if (!result.entries.empty()) found.entries = result.entries.front();
        return found;
    }

    /// Values for which a comparison may hold by what Compare says of their beginnings, and those whose keys do not
    /// tell.
    std::size_t AtMost(const std::vector<unsigned char>& constant, unsigned short op) const {
        std::size_t count = 0;
        for (const Value& value : values) {
            std::vector<unsigned char> stored = value.Store(of.form);
            int err = 0;
            const int order = Types().Cmp(of.type, static_cast<unsigned>(stored.size()), stored.data(),
                                          static_cast<unsigned>(constant.size()),
                                          const_cast<unsigned char*>(constant.data()), op, 1, of.form, err);
            // Texts without characters match some patterns, however they order.
            const bool isOpen = err != KyErrBufferEnd && engine::IsPattern(of.type, of.form, constant, op);
            const bool isInside =
                isOpen || order == 0 || (order < 0 ? (op & KyCmpLess) != 0 : (op & KyCmpGreater) != 0);
            if (isInside || MayNotTell(stored)) ++count;
        }
        return count;
    }

    bool MayNotTell(const std::vector<unsigned char>& stored) const {
        const engine::Attribute& attribute = store->GetSchema().Classes()[0].attributes[0];
        std::vector<unsigned char> scratch;
        return engine::EndsBeyondOrders(attribute, engine::IndexKey(attribute, of.form, stored, scratch));
    }
};

TEST_P(StringScans, GiveWhatALookAtAllGivesAndReadNoMore) {
    const Snapshot snapshot(*store);
    const engine::RecordLayout& layout = store->Layout(0);
    int withObjects = 0;
    int backwards = 0;
    int narrow = 0;
    for (const char* relation : {"=", "<", "<=", ">", ">="}) {
        for (const char* exact : {"", " exact"}) {
            PreparedQuery query(*store,
                                engine::ParseQuery(store->GetSchema(), std::string("Text where text ") + relation +
                                                                           " ?" + of.modifiers + exact),
                                {});
            const engine::Comparison& comparison = query.Of().where.comparison;
            for (int i = 0; i < 40; ++i) {
                const std::u16string text = ConstantText();
                const Value constant = Make(text);
                if (i == 0) SetNull(constant);
                try {
                    query.Bind(0, constant.Get());
                } catch (const engine::StoreError&) {
                    continue;  // Compare refuses it.
                }
                const std::vector<unsigned char> stored = constant.Store(of.form);
                Narrowing narrowing(snapshot, layout, 0, 0);
                narrowing.Add(comparison, stored);
                EXPECT_GE(narrowing.Share(), 0);
                EXPECT_LE(narrowing.Share(), 1);
                AccessPath path;
                path.kind = AccessPath::Kind::oneIndex;
                path.scan = std::move(narrowing.scan);
                SCOPED_TRACE(std::string(relation) + exact + " " + std::string(text.begin(), text.end()));

                const Found expected = Run(query, snapshot, AccessPath());
                const Found found = Run(query, snapshot, path);
                ASSERT_EQ(found.numbers, expected.numbers);
                if (!expected.numbers.empty()) ++withObjects;
                constexpr std::size_t shortEnough = 40;
                // Of strings with an escape what comes before it is the limit that EvalAndBound records.
                const bool isEscaped = of.type == KySTRING_T && *exact == 0 && text.find(u'\\') != text.npos;
                if (text.size() < shortEnough && !isEscaped) {
                    ASSERT_LE(found.entries, AtMost(stored, comparison.op));
                    if (found.entries < kObjects / 4) ++narrow;
                }
                if (path.scan.last != nullptr && !path.scan.range.HasUpper()) continue;
                path.scan.backward = true;
                const Found fromBehind = Run(query, snapshot, path);
                ASSERT_EQ(fromBehind.numbers, expected.numbers);
                ASSERT_EQ(fromBehind.entries, found.entries);
                ++backwards;
            }
        }
    }
    EXPECT_GT(withObjects, 120);
    EXPECT_GT(backwards, 100);
    EXPECT_GT(narrow, 50);
}

INSTANTIATE_TEST_SUITE_P(Types, StringScans, ::testing::ValuesIn(AllCases()), NameOf);

/// The text ends at once in a block that is longer than a limit.
TEST(Scans, OfATextWithoutCharactersInALongRecord) {
    const ScratchFolder folder;
    Store::Create(folder.File("texts"), engine::Schema::Parse("class Text { text KyString index }"), KyFormNative);
    Store store(folder.File("texts"), engine::Access::write);
    engine::Batch batch(store, 0);
    for (int i = 0; i < 30; ++i) {
        KyString text(i % 3 == 0 ? "" : "a");
        if (i % 3 == 1) Types().SetNullPtrGet(KySTRING_T)(&text);
        void* const values[] = {&text};
        batch.Add(values);
    }
    batch.Commit();
    const Snapshot snapshot(store);
    KyString constant(std::string(300, 'x').c_str());
    constant.StrGet()[0] = 0;
    for (const auto& [relation, found] : {std::pair("=", 20U),
                                          {"<=", 20U},
                                          {"<", 0U},
                                          {">=", 30U},
                                          {">", 10U},
                                          {"= ? exact", 10U},
                                          {"<= ? exact", 20U}}) {
        std::string text = std::string("Text where text ") + relation;
        if (text.find('?') == text.npos) text += " ?";
        PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), text), {});
        query.Bind(0, &constant);
        std::vector<unsigned char> stored(Types().DiskLenGet(KySTRING_T, &constant, KyFormNative, 1, KyFormMemory));
        stored.resize(Types().Store(KySTRING_T, stored.data(), &constant, KyFormNative, 1));
        ASSERT_GT(stored.size(), engine::kLongestKey);
        Narrowing narrowing(snapshot, store.Layout(0), 0, 0);
        narrowing.Add(query.Of().where.comparison, stored);
        AccessPath path;
        path.kind = AccessPath::Kind::oneIndex;
        path.scan = std::move(narrowing.scan);
        EXPECT_EQ(query.Run(snapshot, path, [](const engine::Object&) { return true; }).found, found) << text;
        EXPECT_EQ(query.Run(snapshot, AccessPath(), [](const engine::Object&) { return true; }).found, found) << text;
    }
}

}  // namespace
