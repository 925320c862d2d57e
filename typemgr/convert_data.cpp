#include "kystring.h"
#include "kytypmgr.h"

namespace {

/// Type id of a record without values: a reserved one, so that the illegal row answers for it.
constexpr char kNoType = 100;

}  // namespace

KyTypeConvertData::KyTypeConvertData() : KyTypeConvertData(kNoType, 0, nullptr, nullptr) {}

KyTypeConvertData::KyTypeConvertData(char typeIdOfData, unsigned countOfData, void* values, KyTypeMgr* owner)
    : manager(owner), data(values), count(countOfData), typeId(typeIdOfData) {}

KyTypeConvertData::~KyTypeConvertData() {
    if (manager != nullptr && data != nullptr) {
        manager->Delete(typeId, data, count);
        const_cast<void* volatile&>(data) = nullptr;
    }
    // Volatile, so that the compiler keeps these last writes: whoever still holds the record sees that it is empty.
    const_cast<volatile unsigned&>(count) = 0;
    const_cast<volatile char&>(typeId) = kNoType;
}

KyTypeConvertData* KyTypeConvertData::Make(char typeId, unsigned count, void* data, KyTypeMgr* manager) {
    return new KyTypeConvertData(typeId, count, data, manager);
}

KyString* KyTypeConvertData::GetString(int index) {
    if (index < 0 || static_cast<unsigned>(index) >= count || typeId != KySTRING_T || data == nullptr) return nullptr;
    return static_cast<KyString*>(data) + index;
}
