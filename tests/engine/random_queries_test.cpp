// Queries drawn at random over attributes of every type: what their plans give, and what each scan and each walk of an
// index gives that a plan could be, beside a look at one object after the other that knows of no index.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "batch.h"
#include "kyistring.h"
#include "kystring.h"
#include "made_values.h"
#include "narrowing.h"
#include "run.h"
#include "scratch_store.h"
#include "twin.h"
#include "type_cases.h"

namespace {

using engine::AccessPath;
using engine::Attribute;
using engine::Comparison;
using engine::Condition;
using engine::ObjectNumber;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

class RandomQueries : public ::testing::TestWithParam<TypeCase> {
protected:
    static constexpr unsigned kObjects = 250;
    static constexpr unsigned kElements = 3;

    const char type = GetParam().type;
    const unsigned char form = GetParam().form;
    const ScratchFolder folder;
    MadeValues make{type};
    std::mt19937 random{static_cast<unsigned>(type) * 2U + form};
    std::optional<Store> store;
    std::optional<Twin> twin;

    RandomQueries() {
        const std::string name = Types().NameGet(type, nullptr);
        Store::Create(
            folder.File("store"),
            engine::Schema::Parse("class Thing { one " + name + IndexOf(type, 1) + "\n three " + name + "[3]" +
                                  IndexOf(type, kElements) + "\n plain " + name + "\n number int index\n folded " +
                                  name + IndexOf(type, 1) + (type == KySTRING_T ? " nocase noaccent }" : " }")),
            form);
        store.emplace(folder.File("store"), engine::Access::write);
        twin.emplace(Class(), form);
        engine::Batch batch(*store, 0);
        for (unsigned i = 0; i < kObjects; ++i) {
            const Value one = make.Next();
            const Value three = make.Next(kElements);
            const Value plain = make.Next();
            int number = static_cast<int>(Below(20));
            void* const values[] = {one.Get(), three.Get(), plain.Get(), &number, one.Get()};
            batch.Add(values);
            std::vector<Stored> elements;
            for (unsigned at = 0; at < kElements; ++at)
                elements.push_back(StoredOf(type, Types().GetArrayElement(type, three.Get(), at, kElements)));
            const Stored storedOne = StoredOf(type, one.Get());
            twin->Add({{storedOne},
                       std::move(elements),
                       {StoredOf(type, plain.Get())},
                       {StoredOf(KyINT_T, &number)},
                       {storedOne}});
        }
        batch.Commit();
    }

    const engine::Class& Class() const { return store->GetSchema().Classes()[0]; }
    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    Stored StoredOf(char of, void* value) const {
        Stored stored(Types().DiskLenGet(of, value, form, 1, KyFormMemory));
        stored.resize(Types().Store(of, stored.data(), value, form, 1));
        return stored;
    }

    // --- questions ---

    struct Question {
        std::string text;
        std::vector<Value> constants;
        std::string trace;  ///< the constants, printed
    };

    Question Ask() {
        Question question{.text = "Thing", .constants = {}, .trace = {}};
        if (Below(8) != 0) {
            question.text += " where ";
            AddCondition(question, 0);
        }
        if (Below(2) == 0) AddOrder(question.text);
        constexpr unsigned limits[] = {0, 1, 3, 20, kObjects - 1, kObjects, kObjects + 50};
        if (Below(2) == 0) question.text += " limit " + std::to_string(limits[Below(std::size(limits))]);
        return question;
    }

    void AddCondition(Question& question, int depth) {
        if (depth == 3 || Below(3) == 0) {
            AddComparison(question);
            return;
        }
        const char* const joint = Below(3) == 0 ? " or " : " and ";
        question.text += "(";
        for (unsigned i = 0, parts = 2 + Below(2); i < parts; ++i) {
            if (i != 0) question.text += joint;
            AddCondition(question, depth + 1);
        }
        question.text += ")";
    }

    void AddComparison(Question& question) {
        constexpr const char* relations[] = {"=", "<>", "<", "<=", ">", ">="};
        const std::size_t at = Below(static_cast<unsigned>(Class().attributes.size()));
        const Attribute& attribute = Class().attributes[at];
        const unsigned element = Below(attribute.count);
        question.text += attribute.name;
        if (attribute.count > 1) question.text += "[" + std::to_string(element) + "]";
        question.text += std::string(" ") + relations[Below(std::size(relations))] + " ?";
        question.constants.push_back(MakeConstant(at, element));
        KyString printed;
        Types().PrintToKyString(attribute.type, printed, question.constants.back().Get(), nullptr, 1);
        question.trace += std::string(" [") + printed.StrGet() + "]";
        if (Below(3) == 0) question.text += " exact";
        if (attribute.type == KySTRING_T && (Below(4) == 0 || attribute.name == "folded")) question.text += " nocase";
        if (attribute.type == KySTRING_T && (Below(4) == 0 || attribute.name == "folded")) question.text += " noaccent";
    }

    /// Half of them are values of objects, strings perhaps with a wildcard or an escape put into them.
    Value MakeConstant(std::size_t attribute, std::size_t element) {
        const char of = Class().attributes[attribute].type;
        const bool isNumber = Class().attributes[attribute].name == "number";
        if (!isNumber && Below(2) == 0) return make.Next(1, true);
        Value value = engine::Loaded(of, form, twin->Element(Below(kObjects), attribute, element));
        if (of == KySTRING_T) Spoil(*static_cast<KyString*>(value.Get()));
        if (of == KyISTRING_T) Spoil(*static_cast<KyIString*>(value.Get()));
        if (of == KyCASEISTRING_T) Spoil(*static_cast<KyCaseIString*>(value.Get()));
        return value;
    }

    template <class Text>
    void Spoil(Text& text) {
        if (text.IsNullValue() != 0) return;  // it would hold a text and be null nevertheless
        constexpr const char* signs[] = {"*", "?", "\\"};
        const unsigned length = text.Len();
        if (length != 0 && Below(3) == 0)
            text.Insert(Text(signs[Below(std::size(signs))]), static_cast<unsigned short>(Below(length)));
        if (length != 0 && Below(4) == 0) text.Cut(static_cast<unsigned short>(1 + Below(length)), -1);
        if (Below(4) == 0) text << KyString("*");
    }

    void AddOrder(std::string& text) {
        std::vector<std::string> names;
        for (const Attribute& attribute : Class().attributes)
            if (engine::WhyNotOrdered(attribute.type) == nullptr) names.push_back(attribute.name);
        text += " order by ";
        for (unsigned i = 0, keys = 1 + Below(3); i < keys; ++i) {
            text += (i != 0 ? ", " : "") + names[Below(static_cast<unsigned>(names.size()))];
            if (Below(2) == 0) text += " desc";
        }
    }

    // --- answers ---

    struct Answer {
        std::vector<ObjectNumber> numbers;
        engine::RunResult result;
    };
    static Answer Run(const PreparedQuery& query, const Snapshot& snapshot, const AccessPath& path,
                      std::size_t most = SIZE_MAX) {
        Answer answer;
        answer.result = query.Run(snapshot, path, [&](const engine::Object& object) {
            answer.numbers.push_back(object.number);
            return answer.numbers.size() < most;
        });
        return answer;
    }

    static void ExpectAnswer(const engine::Query& query, std::vector<ObjectNumber> given,
                             const std::vector<ObjectNumber>& expected, std::size_t most = SIZE_MAX) {
        const std::size_t wanted = std::min({most, query.limit.value_or(SIZE_MAX), expected.size()});
        ASSERT_EQ(given.size(), wanted);
        if (!query.order.empty()) {
            ASSERT_TRUE(std::ranges::equal(given, std::span(expected).first(wanted)));
            return;
        }
        std::ranges::sort(given);
        ASSERT_EQ(std::ranges::adjacent_find(given), given.end());
        ASSERT_TRUE(std::ranges::includes(expected, given));
    }

    // --- what a plan could be ---

    static void AddServed(const Attribute& attribute, std::size_t at, const Condition& condition,
                          std::vector<const Comparison*>& served) {
        if (condition.kind == Condition::Kind::comparison && condition.comparison.attribute == at &&
            engine::Serves(attribute, condition.comparison))
            served.push_back(&condition.comparison);
        if (condition.kind == Condition::Kind::all)
            for (const Condition& part : condition.parts) AddServed(attribute, at, part, served);
    }

    /// The scan that all comparisons of an attribute narrow. None where its end cannot be looked up.
    std::optional<AccessPath> ScanOf(const PreparedQuery& query, const Snapshot& snapshot,
                                     const std::vector<Stored>& constants, std::size_t at, bool backward) const {
        std::vector<const Comparison*> served;
        AddServed(Class().attributes[at], at, query.Of().where, served);
        engine::Narrowing narrowing(snapshot, store->Layout(0), 0, at);
        for (const Comparison* comparison : served) narrowing.Add(*comparison, constants[comparison->constant]);
        EXPECT_GE(narrowing.Share(), 0);
        EXPECT_LE(narrowing.Share(), 1);
        AccessPath path;
        path.kind = AccessPath::Kind::oneIndex;
        path.scan = std::move(narrowing.scan);
        path.scan.backward = backward;
        if (backward && path.scan.last != nullptr && !path.scan.range.HasUpper()) return std::nullopt;
        return path;
    }

    std::vector<AccessPath> PathsOf(const PreparedQuery& query, const Snapshot& snapshot,
                                    const std::vector<Stored>& constants) {
        std::vector<AccessPath> paths;
        for (std::size_t at = 0; at < Class().attributes.size(); ++at) {
            if (!Class().attributes[at].index) continue;
            for (const bool backward : {false, true})
                if (auto path = ScanOf(query, snapshot, constants, at, backward)) paths.push_back(std::move(*path));
        }
        if (query.Of().order.empty()) return paths;
        const engine::SortKey& by = query.Of().order.front();
        if (Class().attributes[by.attribute].index != engine::Folding()) return paths;
        for (const std::size_t mostVisits : {SIZE_MAX, std::size_t{1 + Below(kObjects)}}) {
            auto walk = ScanOf(query, snapshot, constants, by.attribute, by.descending);
            if (!walk) break;
            walk->inOrder = true;
            walk->mostVisits = mostVisits;
            walk->instead.emplace_back();
            paths.push_back(std::move(*walk));
        }
        return paths;
    }
};

TEST_P(RandomQueries, GiveWhatALookAtEachObjectGives) {
    constexpr int questions = 120;
    const Snapshot snapshot(*store);
    int withObjects = 0;
    int byIndex = 0;
    int givenUp = 0;
    for (int i = 0; i < questions; ++i) {
        const Question question = Ask();
        SCOPED_TRACE(question.text + question.trace);
        PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), question.text), {});
        std::vector<Stored> constants;
        try {
            for (const Value& constant : question.constants) {
                query.Bind(constants.size(), constant.Get());
                constants.push_back(constant.Store(form));
            }
        } catch (const engine::StoreError&) {
            continue;  // Compare refuses it.
        }
        const std::vector<ObjectNumber> expected = twin->Find(query.Of(), constants);
        if (!expected.empty()) ++withObjects;
        const AccessPath plan = query.Plan(snapshot);
        if (plan.kind != AccessPath::Kind::allObjects) ++byIndex;
        const Answer answer = Run(query, snapshot, plan);
        ASSERT_NO_FATAL_FAILURE(ExpectAnswer(query.Of(), answer.numbers, expected));
        const std::size_t most = 1 + Below(10);
        if (query.Of().limit != 0U) {
            ASSERT_NO_FATAL_FAILURE(ExpectAnswer(query.Of(), Run(query, snapshot, plan, most).numbers, expected, most));
        }
        for (const AccessPath& path : PathsOf(query, snapshot, constants)) {
            SCOPED_TRACE(Class().attributes[path.scan.attribute].name + (path.scan.backward ? " backward" : "") +
                         (path.inOrder ? " in order" : ""));
            const Answer other = Run(query, snapshot, path);
            ASSERT_NO_FATAL_FAILURE(ExpectAnswer(query.Of(), other.numbers, expected));
            if (other.result.wasGivenUp) ++givenUp;
        }
    }
    EXPECT_GT(withObjects, questions / 3);
    EXPECT_GT(byIndex, questions / 8);
    EXPECT_GT(givenUp, 5);
}

INSTANTIATE_TEST_SUITE_P(Types, RandomQueries, ::testing::ValuesIn(AllTypeCases()), NameOf);

}  // namespace
