/// Operations on values that a row has no slot of its own for: null, stepping where stored, time stamps.

#include "kystring.h"
#include "kytypmgr.h"
#include "row_lookup.h"
#include "text_constants.h"
#include "time_stamp.h"

namespace {

// KEPT: of a form only these bits reach Load and Store when a stored value is stepped. A value in reversed byte
// order is therefore stepped in the machine's order; counters on disk hold what came out of that.
constexpr unsigned char stepFormMask = 0x81;

}  // namespace

int KyTypeMgr::SetNullValue(char id, void* value) {
    const KyTypeTab& row = Row(id);
    if (row.SetNull != nullptr) {
        const int result = row.SetNull(value);
        if (result != KyErrNotSupported) return result;
    }
    if (row.Assignment == nullptr) {
        ScanFromKyString(id, value, ky::ZeroSourceString(), nullptr, 1);
        return 0;
    }
    void* fresh = nullptr;
    {
        KyTypeConvertData emptyText(KySTRING_T, 1, KyStringCreate(1), this);
        fresh = ConvertFrom(id, &emptyText, 1);
    }
    if (fresh == nullptr) return 0;  // no memory, or a type without values: nothing to assign
    constexpr int fill = 1;
    row.Assignment(value, fresh, 1, fill);
    Delete(id, fresh, 1);
    return 0;
}

int KyTypeMgr::GetValue(char id, void* value, unsigned count, unsigned char form, unsigned char what) {
    if (what != KyValueStep && what != KyValueStepNext && what != KyValueKeep) return KyErrNotSupported;
    const KyTypeTab& row = Row(id);
    if (id == KySTRING_T || form == KyFormMemory) return row.GetValue(value, count, form, what);

    void* const stepped = row.Create(1);
    if (stepped == nullptr) return KyErrNotSupported;
    const auto storedForm = static_cast<unsigned char>(form & stepFormMask);
    int result = KyErrNotSupported;
    if (row.Load(stepped, value, storedForm, 1) != 0) {
        // Count 0: the slot steps its one value whatever the count says.
        result = row.GetValue(stepped, 0, KyFormMemory, what);
        if (result == 0 && row.Store(value, stepped, storedForm, 1) == 0) result = KyErrNotSupported;
    }
    row.Delete(stepped, 1);
    return result;
}

int KyTypeMgr::StoreTimeStamp(char id, void* dst, unsigned char flag, void* stamp) {
    if (stamp == nullptr) return KyErrNotSupported;
    const ky::TimeStampValue source(id, stamp);
    const KyTypeTab& row = Row(id);
    if (source.Get() == nullptr || &row == &KyIllegalTab) return KyErrNotSupported;
    return static_cast<int>(row.Store(dst, source.Get(), flag, 1));
}
