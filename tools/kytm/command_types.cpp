#include <nlohmann/json.hpp>

#include "commands.h"
#include "table.h"
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

nlohmann::ordered_json ToJson(const std::vector<TypeFacts>& types) {
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
    return list;
}

std::string YesOrNo(bool yes) { return yes ? "yes" : "-"; }

Table ToTable(const std::vector<TypeFacts>& types) {
    Table table({"id", "type", "code", "format", "stored", "size", "null", "counter", "stamp"}, {0, 5});
    for (const TypeFacts& type : types) {
        table.Add({std::to_string(type.id), type.name, type.codeName, type.format, type.isFixed ? "fixed" : "variable",
                   std::to_string(type.size), YesOrNo(type.hasNull), YesOrNo(type.isCounter),
                   YesOrNo(type.isTimeStamp)});
    }
    return table;
}

}  // namespace

ExitStatus ListTypes(const TypesOptions& options, Output& out) {
    const std::vector<TypeFacts> types = AllTypes();
    WriteList(ToJson(types), ToTable(types), options.json, out);
    return kDone;
}

}  // namespace kytm
