/// What can be known about a type without a value of it: names, capabilities, sizes.

#include <cstddef>
#include <cstring>

#include "kytypmgr.h"
#include "row_lookup.h"

namespace {

/// The name itself, or its copy in `dst` where there is one, which has room for it.
char* CopyOrGive(const char* name, char* dst) {
    if (dst == nullptr) return const_cast<char*>(name);
    std::memcpy(dst, name, std::strlen(name) + 1);
    return dst;
}

/// A set of type ids below 64, asked with the id as it was given: reserved and negative ids are in none.
class IdSet {
public:
    template <class... Ids>
    explicit consteval IdSet(Ids... ids) : bits(((1ULL << ids) | ...)) {}

    constexpr bool Has(char id) const {
        const unsigned number = static_cast<unsigned char>(id);
        return number < 64 && ((bits >> number) & 1) != 0;
    }

private:
    unsigned long long bits;
};

// KEPT: "enum" counts although its GetValue steps nothing, "BlockId" steps and is not counted; engines number
// objects by this list.
constexpr IdSet counterTypes(Ky1B_T, Ky2B_T, Ky4B_T, KyU2B_T, KyU4B_T, KyINT_T, KyUNSIGNED_T, KyENUM_T, KyU1B_T,
                             KyOBJID_T, KyINT64_T, Ky8B_T, KyU8B_T);
constexpr IdSet timeStampTypes(KyDATE_T, KyTIME_T, KyDATIME_T, D_DATE_T, D_TIME_T, D_TIMESTAMP_T, KyDATIME_N_T);

constexpr unsigned sizeMask = 0xFFFF;

}  // namespace

char* KyTypeMgr::NameGet(char id, char* dst) { return CopyOrGive(Row(id).typeName, dst); }

char* KyTypeMgr::TypeIdNameGet(char id, char* dst) { return CopyOrGive(Row(id).typeCodeName, dst); }

int KyTypeMgr::Name2KyTypeId(const char* name, char& id) {
    for (id = 0; id < KyTypeIdLimit; ++id) {
        const KyTypeTab& row = Row(id);
        // An id without a row of its own in the array in force has no name.
        if (&row == &KyIllegalTab && id != KyRES_T) continue;
        if (name != nullptr && std::strcmp(row.typeName, name) == 0) return 0;
    }
    return 1;
}

int KyTypeMgr::SupportsCapability(char id, unsigned short capability) {
    switch (capability) {
        case KyCapabilityNull:
            return Row(id).SetNull != nullptr ? 1 : 0;
        case KyCapabilityCounter:
            return counterTypes.Has(id) ? 1 : 0;
        case KyCapabilityTimeStamp:
            return timeStampTypes.Has(id) ? 1 : 0;
        default:
            return 0;
    }
}

int KyTypeMgr::SupportsNullValue(char id) { return SupportsCapability(id, KyCapabilityNull); }

unsigned KyTypeMgr::MemLenGet(char id, unsigned count) { return (Row(id).sizeWord & sizeMask) * count; }

int KyTypeMgr::IsFixed(char id) { return (Row(id).sizeWord & KyFixedSize) != 0 ? 1 : 0; }

void* KyTypeMgr::GetArrayElement(char id, void* base, unsigned index, unsigned count) {
    if (count != 0 && index >= count) return nullptr;
    const std::size_t elementSize = Row(id).sizeWord & sizeMask;
    return static_cast<unsigned char*>(base) + index * elementSize;
}
