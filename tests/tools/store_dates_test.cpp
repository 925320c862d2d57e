/// The time zone database as tables of dates, date-times and spans, queried beside SQLite over the same CSV.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "made_store.h"
#include "peers/sqlite.h"

namespace {

/// A CSV as `tools/demo/store` makes it; none of its fields has quotes.
std::string Made(const char* script) {
    const Result made = Shell(std::string("sh ") + DEMO_SCRIPTS + "/" + script);
    EXPECT_EQ(made.status, 0) << made.err;
    return made.out;
}

std::string Schema() { return Shell(std::string("cat ") + DEMO_SCRIPTS + "/zones.schema").out; }

/// The texts of a table, and "seconds" for the span in its last column; empty fields are null.
void IntoSqlite(peer::Sqlite& database, const char* table, const std::string& csv) {
    std::vector<std::string> lines = LinesOf(csv);
    database.Run(std::string("create table ") + table + " (" + lines.front() + ", seconds); begin");
    std::string places;
    const auto columns = std::ranges::count(lines.front(), ',') + 2;
    for (int i = 0; i < columns; ++i) places += i == 0 ? "?" : ", ?";
    peer::SqliteStatement insert(database, std::string("insert into ") + table + " values (" + places + ")");
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string line = lines[i] + ",";
        std::vector<std::string> fields;
        for (std::size_t at = 0; at < line.size(); at = line.find(',', at) + 1)
            fields.push_back(line.substr(at, line.find(',', at) - at));
        int column = 0;
        for (const std::string& field : fields) {
            if (field.empty()) {
                insert.BindNull(column++);
            } else {
                insert.Bind(column++, std::string_view(field));
            }
        }
        int days = 0;
        int hours = 0;
        int minutes = 0;
        int seconds = 0;
        char sign = 0;
        std::istringstream span(fields.back());
        if (span >> days >> sign >> hours >> sign >> minutes >> sign >> seconds) {
            insert.Bind(column, std::int64_t{((days * 24LL + hours) * 60 + minutes) * 60 + seconds});
        } else {
            insert.BindNull(column);
        }
        insert.Step();
        insert.Reset();
    }
    database.Run("commit");
}

TEST(StoreDates, AreFoundAsSqliteFindsThem) {
    const std::string leaps = Made("leaps.sh");
    const std::string zones = Made("zones.sh");
    ASSERT_GT(LinesOf(leaps).size(), 27U);
    ASSERT_GT(LinesOf(zones).size(), 4000U);
    peer::Sqlite database(":memory:");
    IntoSqlite(database, "Leap", leaps);
    IntoSqlite(database, "Change", zones);

    // A null orders before every value.
    struct {
        const char* query;  ///< from its class on
        const char* sql;    ///< the same, when it is another one
    } const cases[] = {
        {"Leap where day = \"*-12-31\" and total > \"0.00:00:30\"", "Leap where day like '%-12-31' and seconds > 30"},
        {"Leap where day >= \"1980-01-01\" and day < \"1990-01-01\"", ""},
        {"Leap where moment < \"1975-01-01T00:00:00\" or moment > \"2015-01-01T00:00:00\"", ""},
        {"Leap where moment = \"*-06-30T*:*:*\"", "Leap where moment like '%-06-30T%'"},
        {"Leap where moment <> \"1972-06-30T23:59:60\"", ""},
        {"Leap where total <= \"0.00:00:15\"", "Leap where seconds <= 15"},
        {"Change where zone = \"Europe/Berlin\" and moment >= \"1945-01-01T00:00:00\" and moment < "
         "\"1947-01-01T00:00:00\"",
         ""},
        {"Change where moment = \"1980-04-06T03:00:00\"", ""},
        {"Change where moment > \"1999-12-31T23:59:59\" and moment <= \"2001-10-28T02:00:00\" and summer = \"TRUE\"",
         ""},
        {"Change where moment < \"1910-01-01T00:00:00\"", ""},
        {"Change where lasted >= \"10000.00:00:00\"", "Change where seconds >= 864000000"},
        {"Change where lasted < \"10.00:00:00\"", "Change where seconds < 864000 or seconds is null"},
        {"Change where lasted = \"{NULL}\"", "Change where seconds is null"},
        {"Change where lasted > \"100.00:00:00\" and lasted <= \"153.23:00:00\" and zone >= \"Europe/P\"",
         "Change where seconds > 8640000 and seconds <= 13302000 and zone >= 'Europe/P'"},
        {"Change where letters = \"CE*\" and moment < \"1920-01-01T00:00:00\" and offset = 7200",
         "Change where letters like 'CE%' and moment < '1920-01-01T00:00:00' and offset = '7200'"},
    };
    for (const char* form : {"native", "reversed"}) {
        const MadeStore store(Schema(), {"--form", form});
        ASSERT_EQ(store.Load(leaps, {}, "Leap").status, 0);
        ASSERT_EQ(store.Load(zones, {}, "Change").status, 0);
        EXPECT_EQ(store.Run("check").status, 0);
        for (const auto& c : cases) {
            const bool isLeap = std::string_view(c.query).starts_with("Leap");
            const std::string columns = isLeap ? "moment, day, total" : "zone, moment, offset, lasted";
            std::string sql = *c.sql == '\0' ? c.query : c.sql;
            std::ranges::replace(sql, '"', '\'');
            std::vector<std::string> expected;
            peer::SqliteStatement select(database, "select " + columns + " from " + sql);
            while (select.Step()) {
                std::string row;
                for (int i = 0; i < (isLeap ? 3 : 4); ++i) row.append(i == 0 ? "" : ",").append(select.Text(i));
                expected.push_back(row);
            }
            EXPECT_FALSE(expected.empty()) << c.query;
            const Result result = store.Query(columns + " from " + c.query);
            EXPECT_EQ(result.status, 0) << result.err;
            std::vector<std::string> found = LinesOf(result.out);
            found.erase(found.begin());
            std::ranges::sort(found);
            std::ranges::sort(expected);
            EXPECT_EQ(found, expected) << c.query;
        }
    }
}

}  // namespace
