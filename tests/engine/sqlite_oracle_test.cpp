// Generated queries over generated rows, answered by the store and by SQLite. Texts are of the letters a to c, whose
// order is that of their bytes; SQLite knows no order of nulls in comparisons, so that there they are replaced by less
// than every number.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "batch.h"
#include "kynull.h"
#include "kystring.h"
#include "peers/sqlite.h"
#include "run.h"
#include "scratch_store.h"

namespace {

using engine::AccessPath;
using engine::ObjectNumber;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;
using Constant = std::variant<std::monostate, std::int64_t, double, std::string>;

constexpr char kSchema[] =
    "class Item { text KyString index\n label KyString\n code KyNull_int index\n big o_8b index\n"
    "weight o_double index\n amount KyNull_double index\n small o_2b }";

enum class Kind { text, number, nullable, real, nullableReal };
struct Column {
    const char* name;
    Kind kind;
};
constexpr Column kColumns[] = {{"text", Kind::text},   {"label", Kind::text},  {"code", Kind::nullable},
                               {"big", Kind::number},  {"weight", Kind::real}, {"amount", Kind::nullableReal},
                               {"small", Kind::number}};

class Random {
public:
    explicit Random(unsigned seed) : engine(seed) {}
    unsigned Below(unsigned limit) { return static_cast<unsigned>(engine() % limit); }
    bool OneIn(unsigned n) { return Below(n) == 0; }

private:
    std::mt19937 engine;
};

std::string MakeText(Random& random) {
    // Some are longer than an index key and alike beyond it.
    std::string text(random.OneIn(20) ? 252 + random.Below(4) : 0, 'a');
    for (unsigned length = random.Below(6); length > 0; --length) text += "abc"[random.Below(3)];
    return text;
}

Constant MakeValue(Random& random, const Column& column) {
    switch (column.kind) {
        case Kind::text:
            return MakeText(random);
        case Kind::number: {
            const bool small = column.name == std::string("small");
            const std::int64_t least = small ? INT16_MIN : std::numeric_limits<std::int64_t>::min();
            if (random.OneIn(10)) return random.OneIn(2) ? least : -1 - least;
            return std::int64_t{random.Below(200)} - 100;
        }
        case Kind::nullable:
            if (random.OneIn(8)) return std::monostate();
            return std::int64_t{random.Below(100)} - 50;
        default:
            if (column.kind == Kind::nullableReal && random.OneIn(8)) return std::monostate();
            if (random.OneIn(20)) return random.OneIn(2) ? HUGE_VAL : -0.0;
            return (random.Below(400) - 200.0) / 8;
    }
}

/// A constant in the memory form of a column's type.
struct MemoryValue {
    explicit MemoryValue(const Constant& from, const Column& column) {
        const auto* number = std::get_if<std::int64_t>(&from);
        const auto* real = std::get_if<double>(&from);
        switch (column.kind) {
            case Kind::text:
                text = KyString(std::get<std::string>(from).c_str());
                address = &text;
                break;
            case Kind::number:
                big = *number;
                small = static_cast<short>(*number);
                address = column.name == std::string("small") ? static_cast<void*>(&small) : &big;
                break;
            case Kind::nullable:
                if (number != nullptr) code = KyNull_int(static_cast<int>(*number));
                address = &code;
                break;
            case Kind::real:
                weight = *real;
                address = &weight;
                break;
            case Kind::nullableReal:
                if (real != nullptr) amount = KyNull_double(*real);
                address = &amount;
        }
    }
    MemoryValue(const MemoryValue&) = delete;
    MemoryValue& operator=(const MemoryValue&) = delete;

    void* address = nullptr;

private:
    KyString text;
    long long big = 0;
    short small = 0;
    KyNull_int code;
    double weight = 0;
    KyNull_double amount;
};

void Bind(peer::SqliteStatement& statement, int parameter, const Constant& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        statement.Bind(parameter, *number);
    } else if (const auto* real = std::get_if<double>(&value)) {
        statement.Bind(parameter, *real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        statement.Bind(parameter, std::string_view(*text));
    } else {
        statement.BindNull(parameter);
    }
}

std::string Text(const Constant& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
    if (const auto* text = std::get_if<std::string>(&value)) return '"' + *text + '"';
    return "null";
}

/// One question in both languages.
struct Question {
    std::string ours = "Item";
    std::string theirs = "select number from item";
    std::vector<std::pair<Constant, const Column*>> constants;
    bool ordered = false;
    unsigned limit = UINT32_MAX;
};

std::string Texts(const std::vector<std::pair<Constant, const Column*>>& constants) {
    std::string texts;
    for (const auto& [constant, column] : constants) texts += Text(constant) + ", ";
    return texts;
}

/// What only one of two sorted lists has.
std::vector<ObjectNumber> Difference(const std::vector<ObjectNumber>& a, const std::vector<ObjectNumber>& b) {
    std::vector<ObjectNumber> difference;
    std::ranges::set_symmetric_difference(a, b, std::back_inserter(difference));
    return difference;
}

class Questioner {
public:
    explicit Questioner(Random& aRandom) : random(aRandom) {}

    Question Make() {
        question = Question();
        if (!random.OneIn(10)) {
            question.ours += " where ";
            question.theirs += " where ";
            AddCondition(0);
        }
        if (random.OneIn(3)) AddOrder();
        question.theirs += question.ordered ? ", number" : " order by number";
        if (random.OneIn(4)) {
            question.limit = random.Below(50);
            const std::string limit = " limit " + std::to_string(question.limit);
            question.ours += limit;
            // Without an order ours gives any of them.
            if (question.ordered) question.theirs += limit;
        }
        return question;
    }

private:
    Random& random;
    Question question;

    void Add(const std::string& both) {
        question.ours += both;
        question.theirs += both;
    }

    void AddCondition(int depth) {
        if (depth == 3 || random.OneIn(3)) {
            AddComparison();
            return;
        }
        const char* const joint = random.OneIn(2) ? " and " : " or ";
        Add("(");
        const unsigned parts = 2 + random.Below(2);
        for (unsigned i = 0; i < parts; ++i) {
            if (i != 0) Add(joint);
            AddCondition(depth + 1);
        }
        Add(")");
    }

    void AddComparison() {
        constexpr const char* relations[] = {"=", "<>", "<", "<=", ">", ">="};
        const Column& column = kColumns[random.Below(std::size(kColumns))];
        const unsigned relation = random.Below(std::size(relations));
        Constant constant = MakeValue(random, column);
        question.ours += std::string(column.name) + " " + relations[relation] + " ?";
        if (column.kind == Kind::text) {
            std::string& text = std::get<std::string>(constant);
            constexpr unsigned withPatterns = 2;
            if (relation < withPatterns && random.OneIn(2)) {
                for (unsigned i = 1 + random.Below(2); i > 0; --i)
                    text.insert(random.Below(static_cast<unsigned>(text.size()) + 1), 1, "*?"[random.Below(2)]);
                question.theirs += std::string(column.name) + (relation == 0 ? " glob ?" : " not glob ?");
            } else {
                if (random.OneIn(2)) question.ours += " exact";
                question.theirs += std::string(column.name) + " " + relations[relation] + " ?";
            }
        } else {
            const std::string lowest = ", -9e999)";
            question.theirs +=
                "ifnull(" + std::string(column.name) + lowest + relations[relation] + "ifnull(?" + lowest;
        }
        question.constants.emplace_back(constant, &column);
    }

    void AddOrder() {
        question.ordered = true;
        Add(" order by ");
        for (unsigned i = 0; i < 2; ++i) {
            if (i != 0) Add(", ");
            Add(kColumns[random.Below(std::size(kColumns))].name);
            if (random.OneIn(2)) Add(" desc");
        }
    }
};

class SqliteOracle : public ::testing::TestWithParam<unsigned char> {
protected:
    static constexpr unsigned kRows = 3000;

    SqliteOracle() : theirs(":memory:") {
        Store::Create(folder.File("items"), engine::Schema::Parse(kSchema), GetParam());
        store.emplace(folder.File("items"), engine::Access::write);
        theirs.Run("create table item (number integer primary key, text, label, code, big, weight, amount, small)");
        theirs.Run("begin");
        peer::SqliteStatement insert(theirs, "insert into item values (?, ?, ?, ?, ?, ?, ?, ?)");
        Random random(7);
        engine::Batch batch(*store, 0);
        for (unsigned row = 1; row <= kRows; ++row) {
            std::vector<Constant> constants;
            for (const Column& column : kColumns) constants.push_back(MakeValue(random, column));
            insert.Bind(0, std::int64_t{row});
            for (std::size_t i = 0; i < constants.size(); ++i) Bind(insert, static_cast<int>(i + 1), constants[i]);
            insert.Step();
            AddObject(batch, constants);
            if (row % 701 == 0) batch.Commit();
        }
        batch.Commit();
        theirs.Run("commit");
    }

    static void AddObject(engine::Batch& batch, const std::vector<Constant>& constants) {
        std::vector<std::unique_ptr<MemoryValue>> values;
        std::vector<void*> addresses;
        for (std::size_t i = 0; i < constants.size(); ++i) {
            values.push_back(std::make_unique<MemoryValue>(constants[i], kColumns[i]));
            addresses.push_back(values.back()->address);
        }
        batch.Add(addresses);
    }

    std::vector<ObjectNumber> Ours(const Question& question, AccessPath::Kind& kind) const {
        PreparedQuery query(*store, engine::ParseQuery(store->GetSchema(), question.ours), {});
        for (std::size_t i = 0; i < question.constants.size(); ++i) {
            const auto& [constant, column] = question.constants[i];
            query.Bind(i, MemoryValue(constant, *column).address);
        }
        const Snapshot snapshot(*store);
        const AccessPath path = query.Plan(snapshot);
        kind = path.kind;
        std::vector<ObjectNumber> numbers;
        query.Run(snapshot, path, [&numbers](const engine::Object& object) {
            numbers.push_back(object.number);
            return true;
        });
        return numbers;
    }

    std::vector<ObjectNumber> Theirs(const Question& question) const {
        peer::SqliteStatement query(theirs, question.theirs);
        for (std::size_t i = 0; i < question.constants.size(); ++i)
            Bind(query, static_cast<int>(i), question.constants[i].first);
        std::vector<ObjectNumber> numbers;
        while (query.Step()) numbers.push_back(static_cast<ObjectNumber>(query.Integer(0)));
        return numbers;
    }

    const ScratchFolder folder;
    std::optional<Store> store;
    peer::Sqlite theirs;
};

TEST_P(SqliteOracle, AnswersTheSame) {
    constexpr int questions = 800;
    Random random(11);
    Questioner questioner(random);
    std::map<AccessPath::Kind, int> kinds;
    int answersWithObjects = 0;
    for (int i = 0; i < questions; ++i) {
        const Question question = questioner.Make();
        SCOPED_TRACE(question.ours + "\n" + question.theirs + "\n" + Texts(question.constants));
        AccessPath::Kind kind{};
        std::vector<ObjectNumber> ours = Ours(question, kind);
        const std::vector<ObjectNumber> expected = Theirs(question);
        ++kinds[kind];
        if (!expected.empty()) ++answersWithObjects;
        if (question.ordered || question.limit == UINT32_MAX) {
            if (!question.ordered) {
                std::ranges::sort(ours);
                ASSERT_EQ(Difference(ours, expected), std::vector<ObjectNumber>());
            }
            ASSERT_EQ(ours, expected);
        } else {
            std::ranges::sort(ours);
            ASSERT_EQ(ours.size(), std::min<std::size_t>(question.limit, expected.size()));
            ASSERT_TRUE(std::ranges::includes(expected, ours));
            ASSERT_EQ(std::ranges::adjacent_find(ours), ours.end());
        }
    }
    // The generator asks what it is meant to.
    EXPECT_GT(answersWithObjects, questions / 2);
    for (const auto kind : {AccessPath::Kind::allObjects, AccessPath::Kind::oneIndex, AccessPath::Kind::severalIndexes})
        EXPECT_GT(kinds[kind], questions / 50);
}

INSTANTIATE_TEST_SUITE_P(Forms, SqliteOracle, ::testing::Values(KyFormNative, KyFormReversed));

}  // namespace
