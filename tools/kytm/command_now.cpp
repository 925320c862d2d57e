#include <nlohmann/json.hpp>

#include "commands.h"
#include "kydatimeN.h"
#include "kyodmg.h"
#include "kystring.h"
#include "table.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

struct Reading {
    char id;
    std::string local;
    std::optional<std::string> utc;  ///< nothing for types without a reading in UTC
};

template <class Value>
std::string Text(char id, Value value, const char* format) {
    KyString text;
    return Manager().PrintToKyString(id, text, &value, format, 1).StrGet();
}

template <class Value>
Reading Local(char id, Value local, const char* format) {
    return {id, Text(id, local, format), std::nullopt};
}

template <class Value>
Reading Both(char id, Value local, Value utc, const char* format) {
    return {id, Text(id, local, format), Text(id, utc, format)};
}

std::vector<Reading> ReadClock(const char* format) {
    return {Local(KyDATE_T, KyDate::Today(), format),
            Both(KyTIME_T, KyTime::Now(), KyTime::NowUTC(), format),
            Both(KyDATIME_T, KyDateTime::Now(), KyDateTime::NowUTC(), format),
            Local(D_DATE_T, d_Date::current(), format),
            Local(D_TIME_T, d_Time::current(), format),
            Local(D_TIMESTAMP_T, d_Timestamp::current(), format),
            Both(KyDATIME_N_T, KyDateTimeN::Now(), KyDateTimeN::NowUTC(), format)};
}

}  // namespace

ExitStatus ShowNow(const NowOptions& options, Output& out) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    Table table({"id", "type", "local", "UTC"}, {0});
    for (const Reading& reading : ReadClock(options.format ? options.format->c_str() : nullptr)) {
        nlohmann::ordered_json entry = {
            {"id", static_cast<int>(reading.id)}, {"type", TypeName(reading.id)}, {"local", Utf8(reading.local)}};
        if (reading.utc) entry["utc"] = Utf8(*reading.utc);
        list.push_back(std::move(entry));
        table.Add({std::to_string(reading.id), TypeName(reading.id), reading.local, reading.utc.value_or("-")});
    }
    WriteList(list, table, options.json, out);
    return kDone;
}

}  // namespace kytm
