#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "texts.h"
#include "type_lookup.h"

namespace kytm {

namespace {

struct TypeFacts {
    int id;
    std::string name;
    std::string codeName;
    std::string format;
    bool isFixed;
    unsigned size;
    bool hasNull;
    bool isCounter;
    bool isTimeStamp;
};

std::vector<TypeFacts> AllTypes() {
    KyTypeMgr& manager = Manager();
    std::vector<TypeFacts> all;
    for (int number = 0; number < KyTypeIdLimit; ++number) {
        const char id = static_cast<char>(number);
        all.push_back({number, TypeName(id), TypeCodeName(id), PrintFormat(id), manager.IsFixed(id) != 0,
                       manager.MemLenGet(id, 1), manager.SupportsCapability(id, KyCapabilityNull) != 0,
                       manager.SupportsCapability(id, KyCapabilityCounter) != 0,
                       manager.SupportsCapability(id, KyCapabilityTimeStamp) != 0});
    }
    return all;
}

void WriteJson(const std::vector<TypeFacts>& types, Output& out) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const TypeFacts& type : types) {
        list.push_back({{"id", type.id},
                        {"name", type.name},
                        {"codeName", type.codeName},
                        {"printFormat", type.format},
                        {"fixedSize", type.isFixed},
                        {"size", type.size},
                        {"hasNull", type.hasNull},
                        {"counter", type.isCounter},
                        {"timeStamp", type.isTimeStamp}});
    }
    out.Write(list.dump(2) + "\n");
}

constexpr std::size_t kColumns = 9;
using Cells = std::array<std::string, kColumns>;

/// Columns that hold numbers stand at the right of their width.
constexpr std::array<bool, kColumns> kToTheRight = {true, false, false, false, false, true, false, false, false};

std::string YesOrNo(bool yes) { return yes ? "yes" : "-"; }

std::string JoinCells(const Cells& cells, const std::array<std::size_t, kColumns>& widths) {
    std::string line;
    for (std::size_t i = 0; i < kColumns; ++i) {
        if (i != 0) line += "  ";
        if (kToTheRight[i]) line.append(widths[i] - cells[i].size(), ' ');
        line += kToTheRight[i] ? cells[i] : Padded(cells[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

void WriteTable(const std::vector<TypeFacts>& types, Output& out) {
    std::vector<Cells> rows = {{"id", "type", "code", "format", "stored", "size", "null", "counter", "stamp"}};
    for (const TypeFacts& type : types) {
        rows.push_back({std::to_string(type.id), type.name, type.codeName, type.format,
                        type.isFixed ? "fixed" : "variable", std::to_string(type.size), YesOrNo(type.hasNull),
                        YesOrNo(type.isCounter), YesOrNo(type.isTimeStamp)});
    }
    std::array<std::size_t, kColumns> widths{};
    for (const Cells& row : rows) {
        for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    const Paint paint;
    for (const Cells& row : rows) {
        const std::string line = JoinCells(row, widths);
        out.Write((&row == rows.data() ? paint.Heading(line) : line) + "\n");
    }
}

}  // namespace

ExitStatus ListTypes(const TypesOptions& options, Output& out) {
    const std::vector<TypeFacts> types = AllTypes();
    if (options.json) {
        WriteJson(types, out);
    } else {
        WriteTable(types, out);
    }
    return kDone;
}

}  // namespace kytm
