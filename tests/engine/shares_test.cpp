// The shares of an index that comparisons are estimated to keep.

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch.h"
#include "kynull.h"
#include "kystring.h"
#include "narrowing.h"
#include "run.h"
#include "scratch_store.h"
#include "value.h"

namespace {

using engine::Narrowing;
using engine::PreparedQuery;
using engine::Snapshot;
using engine::Store;
using engine::Types;
using engine::Value;

TEST(Shares, OfNullWhereThereIsNone) {
    const ScratchFolder folder;
    Store::Create(folder.File("things"), engine::Schema::Parse("class Thing { number KyNull_int index }"),
                  KyFormNative);
    Store store(folder.File("things"), engine::Access::write);
    engine::Batch batch(store, 0);
    for (int i = 0; i < 10; ++i) {
        KyNull_int number(i);
        void* const values[] = {&number};
        batch.Add(values);
    }
    batch.Commit();
    const Snapshot snapshot(store);
    const Value null(store.GetSchema().Classes()[0].attributes[0].type);
    Types().SetNullPtrGet(store.GetSchema().Classes()[0].attributes[0].type)(null.Get());
    for (const auto& [condition, share] : {std::pair("number > ?", 1.0), {"number = ?", 0.0}, {"number < ?", 0.0}}) {
        const std::string text = std::string("Thing where ") + condition;
        const PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), text), {});
        Narrowing narrowing(snapshot, store.Layout(0), 0, 0);
        narrowing.Add(query.Of().where.comparison, null.Store(KyFormNative));
        EXPECT_EQ(narrowing.Share(), share) << text;
    }
}

TEST(Shares, AreOfWhatHasAPlaceAndOfNullsByTheirNumber) {
    const ScratchFolder folder;
    Store::Create(folder.File("things"),
                  engine::Schema::Parse("class Thing { number KyNull_int index\n text KyString index }"), KyFormNative);
    Store store(folder.File("things"), engine::Access::write);
    engine::Batch batch(store, 0);
    // 100 numbers and texts, 60 nulls of both, 40 texts without characters.
    for (int i = 0; i < 200; ++i) {
        KyNull_int number;
        KyString text;
        if (i < 100) {
            number = KyNull_int(1000 + i);
            text = std::string(1, static_cast<char>('a' + i % 26)).append("x").c_str();
        } else if (i >= 160) {
            number = KyNull_int(1000 + i - 160);
        } else {
            Types().SetNullPtrGet(KySTRING_T)(&text);
        }
        void* const values[] = {&number, &text};
        batch.Add(values);
    }
    batch.Commit();
    const Snapshot snapshot(store);
    const auto stored = [&](std::size_t attribute, void* value) {
        const char type = store.GetSchema().Classes()[0].attributes[attribute].type;
        std::vector<unsigned char> bytes(Types().DiskLenGet(type, value, KyFormNative, 1, KyFormMemory));
        bytes.resize(Types().Store(type, bytes.data(), value, KyFormNative, 1));
        return bytes;
    };
    const auto share = [&](const char* condition, const std::vector<std::optional<int>>& constants) {
        PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), std::string("Thing where ") + condition), {});
        Narrowing narrowing(snapshot, store.Layout(0), 0, 0);
        const engine::Condition& where = query.Of().where;
        const std::vector<engine::Condition> parts = where.parts.empty() ? std::vector{where} : where.parts;
        for (std::size_t i = 0; i < constants.size(); ++i) {
            KyNull_int constant;
            if (constants[i]) constant = KyNull_int(*constants[i]);
            narrowing.Add(parts[i].comparison, stored(0, &constant));
        }
        return narrowing.Share();
    };
    const struct {
        const char* condition;
        std::vector<std::optional<int>> constants;
        double share;
    } cases[] = {
        {"number = ?", {std::nullopt}, 0.3},
        {"number <= ?", {std::nullopt}, 0.3},
        {"number < ?", {std::nullopt}, 0},
        {"number > ?", {std::nullopt}, 0.7},
        {"number >= ?", {std::nullopt}, 1},
        {"number = ?", {1050}, 0.7 / 100},
        {"number < ?", {1050}, 0.3 + 0.7 / 2},
        {"number >= ?", {1050}, 0.7 / 2},
        {"number < ?", {1}, 0.3},
        {"number > ?", {5000}, 0},
        {"number >= ? and number < ?", {-9999, 1050}, 0.7 / 2},
        {"number <= ? and number >= ?", {9999, 1050}, 0.7 / 2},
        {"number >= ? and number < ?", {std::nullopt, 1050}, 0.3 + 0.7 / 2},
        {"number > ? and number < ?", {std::nullopt, 1050}, 0.7 / 2},
    };
    for (const auto& c : cases) EXPECT_NEAR(share(c.condition, c.constants), c.share, 0.02) << c.condition;

    const auto shareOfText = [&](const char* condition, const char* constant) {
        const PreparedQuery query(store, engine::ParseQuery(store.GetSchema(), std::string("Thing where ") + condition),
                                  {});
        Narrowing narrowing(snapshot, store.Layout(0), 0, 1);
        KyString text(constant);
        narrowing.Add(query.Of().where.comparison, stored(1, &text));
        return narrowing.Share();
    };
    EXPECT_NEAR(shareOfText("text >= ?", "n"), 0.5 / 2, 0.05);
    EXPECT_NEAR(shareOfText("text < ?", "n"), 0.5 + 0.5 / 2, 0.05);
    EXPECT_NEAR(shareOfText("text = ?", "*"), 1, 0.001);
    EXPECT_NEAR(shareOfText("text = ?", "n*"), 0.5 / 26, 0.02);
    EXPECT_NEAR(shareOfText("text = ?", ""), 0.5, 0.001);
    EXPECT_NEAR(shareOfText("text > ?", ""), 0.5, 0.001);
    EXPECT_NEAR(shareOfText("text = ? exact", ""), 0.2, 0.001);
    EXPECT_NEAR(shareOfText("text > ? exact", ""), 0.5, 0.001);
}

/// Numbers that have no distance from others, in an index of each floating-point type.
TEST(Shares, AreNotSpoiledByWhatIsNoFiniteNumber) {
    for (const std::string type : {"o_double", "o_float", "KyNull_double", "KyNull_float"}) {
        const ScratchFolder folder;
        Store::Create(folder.File("things"), engine::Schema::Parse("class Thing { number " + type + " index }"),
                      KyFormReversed);
        Store store(folder.File("things"), engine::Access::write);
        const char id = store.GetSchema().Classes()[0].attributes[0].type;
        const auto scanned = [id](const std::string& text) {
            Value value(id);
            KyString copy(text.c_str());
            Types().ScanFromKyString(id, value.Get(), copy, nullptr, 1);
            return value;
        };
        // 100 finite numbers, 40 NaN, 30 of each infinity.
        engine::Batch batch(store, 0);
        for (int i = 0; i < 200; ++i) {
            const Value value = scanned(i < 100   ? std::to_string(1000 + i)
                                        : i < 140 ? "NaN"
                                        : i < 170 ? "Infinity"
                                                  : "-Infinity");
            void* const values[] = {value.Get()};
            batch.Add(values);
        }
        batch.Commit();
        const Snapshot snapshot(store);
        const struct {
            const char* condition;
            std::vector<const char*> constants;
            double share;
        } cases[] = {
            {"number = ?", {"1050"}, 0.5 / 100},
            {"number < ?", {"1050"}, 0.35 + 0.5 / 2},
            {"number >= ?", {"1050"}, 0.15 + 0.5 / 2},
            {"number > ?", {"5000"}, 0.15},
            {"number > ? and number < ?", {"1020", "1030"}, 0.5 / 10},
            {"number = ?", {"NaN"}, 0.2},
            {"number > ?", {"NaN"}, 0.8},
            {"number < ?", {"NaN"}, 0},
            {"number = ?", {"Infinity"}, 0.15},
            {"number < ?", {"Infinity"}, 0.85},
            {"number <= ?", {"Infinity"}, 1},
            {"number > ?", {"Infinity"}, 0},
            {"number = ?", {"-Infinity"}, 0.15},
            {"number < ?", {"-Infinity"}, 0.2},
            {"number > ?", {"-Infinity"}, 0.65},
            {"number > ? and number < ?", {"-Infinity", "Infinity"}, 0.5},
            {"number > ? and number < ?", {"-Infinity", "1050"}, 0.5 / 2},
        };
        for (const auto& c : cases) {
            const engine::Query query =
                engine::ParseQuery(store.GetSchema(), std::string("Thing where ") + c.condition);
            const std::vector<engine::Condition> parts =
                query.where.parts.empty() ? std::vector{query.where} : query.where.parts;
            Narrowing narrowing(snapshot, store.Layout(0), 0, 0);
            std::string text = type + " " + c.condition;
            for (std::size_t i = 0; i < parts.size(); ++i) {
                narrowing.Add(parts[i].comparison, scanned(c.constants[i]).Store(KyFormReversed));
                text.append(" ").append(c.constants[i]);
            }
            EXPECT_NEAR(narrowing.Share(), c.share, 0.02) << text;
        }
    }
}

TEST(Shares, OfInfinitiesAlone) {
    const ScratchFolder folder;
    Store::Create(folder.File("things"), engine::Schema::Parse("class Thing { number o_double index }"), KyFormNative);
    Store store(folder.File("things"), engine::Access::write);
    engine::Batch batch(store, 0);
    for (int i = 0; i < 10; ++i) {
        double number = i < 4 ? -HUGE_VAL : HUGE_VAL;
        void* const values[] = {&number};
        batch.Add(values);
    }
    batch.Commit();
    const Snapshot snapshot(store);
    for (const auto& [relation, share] : {std::pair("<", 0.4), {">", 0.6}, {"=", 0.0}}) {
        const engine::Query query =
            engine::ParseQuery(store.GetSchema(), std::string("Thing where number ") + relation + " ?");
        const std::vector<unsigned char> zero(sizeof(double), 0);
        Narrowing narrowing(snapshot, store.Layout(0), 0, 0);
        narrowing.Add(query.where.comparison, zero);
        EXPECT_EQ(narrowing.Share(), share) << relation;
    }
}

}  // namespace
