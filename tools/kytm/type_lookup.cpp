#include "type_lookup.h"

#include <charconv>
#include <vector>

#include "nearest_names.h"
#include "terminal.h"
#include "texts.h"

namespace kytm {

namespace {

std::vector<std::string> KnownNames() {
    std::vector<std::string> names;
    for (int id = 0; id < KyRES_T; ++id) {
        names.push_back(TypeName(static_cast<char>(id)));
        names.push_back(TypeCodeName(static_cast<char>(id)));
    }
    return names;
}

/// What a type does not have is answered by the illegal row's functions.
bool IsUsable(char id) {
    KyTypeMgr& manager = Manager();
    if (manager.CmpFuncPtrGet(id) == manager.CmpFuncPtrGet(KyRES_T) ||
        manager.ExchangeScanFromKyStringFunc(id, nullptr) == manager.ExchangeScanFromKyStringFunc(KyRES_T, nullptr) ||
        manager.ExchangePrintToKyStringFunc(id, nullptr) == manager.ExchangePrintToKyStringFunc(KyRES_T, nullptr)) {
        return false;
    }
    void* value = manager.Create(id, 1);
    if (value == nullptr) return false;
    manager.Delete(id, value, 1);
    return true;
}

}  // namespace

KyTypeMgr& Manager() {
    static KyTypeMgr manager(5);
    return manager;
}

std::string TypeName(char id) { return Manager().NameGet(id, nullptr); }

std::string TypeCodeName(char id) { return Manager().TypeIdNameGet(id, nullptr); }

const char* PrintFormat(char id) { return Manager().ExchangeFormat(id, nullptr); }

char FindType(std::string_view name) {
    int number = 0;
    const char* end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, number);
    if (error == std::errc() && stop == end && number >= 0 && number < KyTypeIdLimit) return static_cast<char>(number);

    for (int id = 0; id < KyTypeIdLimit; ++id) {
        const char candidate = static_cast<char>(id);
        if (name == TypeName(candidate) || name == TypeCodeName(candidate)) return candidate;
    }
    throw Failure("unknown type " + Quoted(name) + "; the nearest names are " + NearestNames(name, KnownNames()) +
                  " (kytm types lists all)");
}

char FindUsableType(std::string_view name) {
    const char id = FindType(name);
    if (!IsUsable(id)) throw Failure("no values of the type " + TypeName(id) + " can be made, scanned and compared");
    return id;
}

}  // namespace kytm
