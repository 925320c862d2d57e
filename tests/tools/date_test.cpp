#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "run_program.h"

// The nine types of dates, times and spans.

namespace {

nlohmann::json Shown(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"show", "--json"});
    const Result result = Kytm(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    return result.status == 0 ? nlohmann::json::parse(result.out)[0] : nlohmann::json();
}

int StatusOf(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "show");
    return Kytm(arguments).status;
}

TEST(Dates, AreShownInTheirOwnFormat) {
    struct {
        const char* type;
        const char* given;
        const char* printed;
        const char* stored;  // most significant byte first
        bool comesBack;
    } const cases[] = {
        {"KyDate", "Fri 17.May 2024", "Fri 17.May 2024", "07 E8 05 11", true},
        {"KyTime", "03:04:05 pm", "03:04:05 pm", "0F 04 05", true},
        {"KyDateTime", "Fri 17.May 2024 12:00:00 am", "Fri 17.May 2024 12:00:00 am", "07 E8 05 11 00 00 00", true},
        {"d_Date", "Mon May 17", "Mon May 17", "00 00 05 11", true},
        {"d_Time", "03:04:05 pm", "03:04:05 pm", "00 00 0F 04 05 00", true},
        {"d_Timestamp", "Mon May 17 03:04:05 pm", "Mon May 17 03:04:05 pm", "00 00 05 11 00 00 0F 04 05 00", true},
        {"d_Interval", "3 days, 4 hours, 5 minutes, 6 seconds", "03 days, 04 hours, 05 minutes, 06 seconds",
         "48 85 BE 40", true},
        {"KyDateTimeN", "2024-05-17T10:20:30.000000007", "2024-05-17T10:20:30.000000007",
         "07 E8 05 11 0A 14 1E 00 00 00 07", true},
        {"KyTimeSpan", "45.10:20:30.5", "45.10:20:30.500", "00 00 01 0F 0A 14 1E 1D CD 65 00", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.type);
        const nlohmann::json block = Shown({c.type, c.given});
        ASSERT_TRUE(block.contains("texts"));
        EXPECT_EQ(block["texts"][0]["text"], c.printed);
        EXPECT_EQ(block["texts"][0]["comesBack"], c.comesBack);
        EXPECT_EQ(block["stored"][1]["bytes"], c.stored);
        EXPECT_EQ(block["sameHashInAllForms"], true);
    }
}

TEST(Dates, AreShownByAFormat) {
    struct {
        const char* type;
        const char* format;
        const char* given;
        const char* printed;
    } const cases[] = {
        {"KyDate", "%Y-%m-%d", "2024-5-7", "2024-05-07"},
        {"KyDate", "%d.%m.%Y", " 7. 5.2024 ", "07.05.2024"},
        {"KyDate", "%Y-%m-%d", "*-05-*", "*-05-*"},
        {"KyDate", "%Y-%m-%d", "-1-5-7", "*-05-07"},
        {"KyDate", "%Y-%m-%d", "-44-3-15", "-0044-03-15"},
        {"KyTime", "%H:%M", "23:59", "23:59"},
        {"KyDateTime", "%O", "2024-05-07T10:20:30", "2024-05-07T10:20:30"},
        {"d_Date", "%Y-%m-%d", "2024-05-07", "2024-05-07"},
        {"d_Time", "%H:%M:%f", "10:20:30.25", "10:20:30.250"},
        {"d_Timestamp", "%X", "2024-05-07T10:20:30.25", "2024-05-07T10:20:30.250"},
        {"d_Interval", "%e %H:%M:%S", "1 2:3:4", "01 02:03:04"},
        {"KyDateTimeN", "%Y-%m-%d %H:%M:%S %N", "2024-05-07 10:20:30 15", "2024-05-07 10:20:30 15"},
        {"KyTimeSpan", "%Y %m %d", "1 2 3", "0001 02 03"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.type) + " by " + c.format);
        const nlohmann::json block = Shown({c.type, "--format", c.format, "--", c.given});
        ASSERT_TRUE(block.contains("texts"));
        EXPECT_EQ(block["texts"][0]["text"], c.printed);
        EXPECT_EQ(block["texts"][0]["comesBack"], true);
    }
}

TEST(Dates, NullIsShownWhereThereIsOne) {
    for (const char* type : {"KyDate", "KyTime", "KyDateTime", "KyDateTimeN", "KyTimeSpan"}) {
        const nlohmann::json block = Shown({type, "{NULL}"});
        EXPECT_EQ(block["null"], true) << type;
        EXPECT_EQ(block["texts"][0]["text"], "{NULL}") << type;
        EXPECT_EQ(StatusOf({type, "{NULL}x"}), 1) << type;
    }
    for (const char* type : {"d_Date", "d_Time", "d_Timestamp", "d_Interval"}) {
        EXPECT_EQ(StatusOf({type, "{NULL}"}), 1) << type;
    }
}

TEST(Dates, WhatIsNoValueIsRefused) {
    for (const char* type : {"KyDate", "KyTime", "KyDateTime", "d_Date", "d_Time", "d_Timestamp", "d_Interval",
                             "KyDateTimeN", "KyTimeSpan"}) {
        for (const char* text : {"", "abc", "no date at all, nor a time", "12"}) {
            EXPECT_EQ(StatusOf({type, text}), 1) << type << ' ' << text;
        }
    }
    struct {
        const char* type;
        const char* format;
        const char* text;
    } const cases[] = {
        {"KyDate", "%Y-%m-%d", "2024-05"},      // too short
        {"KyDate", "%Y-%m-%d", "2024-05-07x"},  // goes on
        {"KyDateTime", "%O", "2024-05-07T10:20:30x"},
        {"KyTime", "%T", "10:20:30x"},
        {"KyTime", "%T", "10:20:30 pm"},
        {"KyDate", "%Y-%m-%d", "70000-05-07"},  // does not fit
        {"KyDate", "%Y-%m-%d", "2024-05-300"},
        {"KyDate", "%e.%b %Y", "7.Mai 2024"},     // no name of a month
        {"KyDate", "%B %Y", "January 2024"},      // the name in the table ends before the "y"
        {"KyDate", "%X", "2024-05-07T10:20:30"},  // the time would be lost
        {"KyTime", "%H:%M:%S", "10:20:3000"},
        {"KyTime", "%H:%M:%f", "10:20:30.25"},
        {"KyDateTimeN", "%X", "2024-05-07T10:20:30.1234567891"},
        {"d_Time", "%H:%M:%f", "10:20:30.255"},
    };
    for (const auto& c : cases) EXPECT_EQ(StatusOf({c.type, "--format", c.format, c.text}), 1) << c.text;
}

// The fraction is read as a binary one and truncated.
TEST(Dates, TheLastNanosecondMayDiffer) {
    const nlohmann::json block = Shown({"KyDateTimeN", "2024-05-07T10:20:00.000000015"});
    EXPECT_EQ(block["texts"][0]["text"], "2024-05-07T10:20:00.000000014");
}

TEST(Dates, AreCompared) {
    const auto order = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "cmp");
        const Result result = Kytm(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        return result.out.substr(0, 1);
    };
    EXPECT_EQ(order({"KyDate", "2024-05-07", "2024-05-08", "--format", "%Y-%m-%d"}), "<");
    EXPECT_EQ(order({"KyDate", "2024-05-07", "*-05-*", "--format", "%Y-%m-%d"}), ">");
    EXPECT_EQ(order({"KyDate", "2024-05-07", "*-05-*", "--format", "%Y-%m-%d", "--op", "0"}), "=");
    EXPECT_EQ(order({"KyDate", "{NULL}", "2024-05-07", "--format", "%Y-%m-%d"}), "<");
    EXPECT_EQ(order({"KyTime", "11:00:00 pm", "01:00:00 am"}), ">");
    EXPECT_EQ(order({"KyDateTime", "2024-05-07T01:00:00", "2024-05-07T01:00:01", "--format", "%O"}), "<");
    EXPECT_EQ(order({"d_Date", "2024-05-07", "2024-05-07", "--format", "%Y-%m-%d"}), "=");
    EXPECT_EQ(order({"d_Time", "10:20:30", "10:20:29", "--format", "%T"}), ">");
    EXPECT_EQ(order({"d_Timestamp", "2024-05-07T01:00:00", "2024-05-08T00:00:00", "--format", "%O"}), "<");
    EXPECT_EQ(order({"d_Interval", "1 day", "26 day", "--format", "%e day"}), "<");
    EXPECT_EQ(order({"KyDateTimeN", "2024-05-07T01:00:00.000000001", "2024-05-07T01:00:00"}), ">");
    EXPECT_EQ(order({"KyTimeSpan", "31.00:00:00", "29.23:59:59"}), ">");
}

TEST(Dates, AreSorted) {
    const std::string dates = "7.5.2024\n29.2.2024\n\n15.3.-44\nnever\n1.1.2025\n";
    for (const char* type : {"KyDate", "KyDateTime", "KyDateTimeN", "d_Date", "d_Timestamp", "KyTimeSpan"}) {
        const Result result = KytmWith(dates, {"sort", type, "--format", "%d.%m.%Y"});
        EXPECT_EQ(result.status, 1) << type;
        EXPECT_EQ(result.out, "15.3.-44\n29.2.2024\n7.5.2024\n1.1.2025\n") << type;
        EXPECT_NE(result.err.find("line 3"), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("line 5"), std::string::npos) << result.err;
    }
    for (const char* type : {"KyTime", "d_Time", "d_Interval"}) {
        const Result result = KytmWith("23:59\n0:30\n12:00\n", {"sort", type, "--format", "%H:%M", "--print"});
        EXPECT_EQ(result.out, "00:30\n12:00\n23:59\n") << type << result.err;
    }
    EXPECT_EQ(KytmWith("{NULL}\n1.2.3\n", {"sort", "KyDate", "--format", "%d.%m.%Y", "--null-last"}).out,
              "1.2.3\n{NULL}\n");
}

/// Seconds since 1970 of "2024-05-07T10:20:30".
long long Seconds(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    const int fields = std::sscanf(text.c_str(), "%d-%d-%dT%d:%d:%d", &year, &month, &day, &hour, &minute, &second);
    EXPECT_EQ(fields, 6) << text;
    const std::chrono::sys_days days = std::chrono::year(year) / month / day;
    return days.time_since_epoch().count() * 86400LL + hour * 3600 + minute * 60 + second;
}

TEST(Now, EveryTypeReadsTheClock) {
    using std::chrono::floor, std::chrono::seconds, std::chrono::system_clock;
    const auto before = floor<seconds>(system_clock::now()).time_since_epoch().count();
    const Result result = Kytm({"now", "--json", "--format", "%O"}, Surroundings{.environment = {"TZ=ABC-5:30"}});
    const auto after = floor<seconds>(system_clock::now()).time_since_epoch().count();
    ASSERT_EQ(result.status, 0) << result.err;

    const nlohmann::json list = nlohmann::json::parse(result.out);
    const std::vector<int> ids = {12, 13, 19, 22, 23, 24, 40};
    ASSERT_EQ(list.size(), ids.size());
    const long long offset = 19800;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(list[i]["id"], ids[i]);
        const std::string local = list[i]["local"];
        SCOPED_TRACE(list[i]["type"].get<std::string>() + " " + local);
        const bool hasDate = ids[i] != 13 && ids[i] != 23;
        const bool hasTime = ids[i] != 12 && ids[i] != 22;
        EXPECT_EQ(list[i].contains("utc"), ids[i] == 13 || ids[i] == 19 || ids[i] == 40);
        if (hasDate && hasTime) {
            EXPECT_GE(Seconds(local), before + offset);
            EXPECT_LE(Seconds(local), after + offset);
        } else if (hasDate) {
            EXPECT_GE(Seconds(local), (before + offset) / 86400 * 86400);
            EXPECT_LE(Seconds(local), after + offset);
            EXPECT_EQ(local.substr(10), "T00:00:00");
        } else if ((before + offset) / 86400 == (after + offset) / 86400) {
            const long long ofDay = Seconds("1970-01-01" + local.substr(10));
            EXPECT_EQ(local.substr(0, 10), "0000-00-00");
            EXPECT_GE(ofDay, (before + offset) % 86400);
            EXPECT_LE(ofDay, (after + offset) % 86400);
        }
        if (hasDate && list[i].contains("utc")) {
            EXPECT_GE(Seconds(list[i]["utc"]), before);
            EXPECT_LE(Seconds(list[i]["utc"]), after);
        }
    }
}

TEST(Now, PrintsATable) {
    const std::vector<std::string> lines = LinesOf(Kytm({"now"}).out);
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_TRUE(lines[0].starts_with("id  type         local")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("12  KyDate ")) << lines[1];
    EXPECT_TRUE(lines[1].ends_with(" -")) << lines[1];
    EXPECT_TRUE(lines[7].starts_with("40  KyDateTimeN  ")) << lines[7];
    EXPECT_EQ(Kytm({"now", "KyDate"}).status, 2);
}

}  // namespace
