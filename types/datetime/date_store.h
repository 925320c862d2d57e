#ifndef DATE_STORE_H
#define DATE_STORE_H

/// Store, Load and the sizes of dates and times. Fields are not checked.

#include "array_rules.h"
#include "date_kernels.h"
#include "date_records.h"
#include "kytypes.h"

namespace ky {

/// Bytes of one stored value.
template <class Value>
inline constexpr unsigned kStoredDate = static_cast<unsigned>(DateLayout(RecordOf<Value>(), DateForm::native).size);

/// Whether a stored element has the bytes of memory form.
constexpr bool IsStoredAsItStands(DateRecord record, DateForm form) {
    return record == DateRecord::time || (record == DateRecord::date && form == DateForm::native);
}

template <class Value>
unsigned DateStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    constexpr DateRecord record = RecordOf<Value>();
    const DateForm form = StoredFormOf(flag);
    if (count == 1) {
        WriteFields<record>(Advance(dst, 0), ReadFields<record>(Advance(src, 0), DateForm::memory), form);
    } else if (IsStoredAsItStands(record, form)) {
        CopyBytes(dst, src, count * sizeof(Value));
    } else {
        PackDates(record, form, dst, src, count);
    }
    return kStoredDate<Value> * count;
}

/// Clears the padding.
template <class Value>
unsigned DateLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    constexpr DateRecord record = RecordOf<Value>();
    const DateForm form = StoredFormOf(flag);
    if (count == 1) {
        WriteFields<record>(Advance(dst, 0), ReadFields<record>(Advance(src, 0), form), DateForm::memory);
    } else if (IsStoredAsItStands(record, form)) {
        CopyBytes(dst, src, count * sizeof(Value));
    } else {
        UnpackDates(record, form, dst, src, count);
    }
    return kStoredDate<Value> * count;
}

template <class Value>
unsigned DateNullSizeGet(unsigned count) {
    return kStoredDate<Value> * count;
}

/// The stored size in either direction; no value is read.
template <class Value>
unsigned DateSizeGet(const void*, unsigned char, unsigned char, unsigned count) {
    return kStoredDate<Value> * count;
}

/// The file is not read: all values take the same room.
template <class Value>
unsigned DateSizeGetFromMemFile(MemFile*, unsigned char, unsigned count) {
    return kStoredDate<Value> * count;
}

namespace detail {
/// What Translate has to know.
template <class Value>
struct DateTranslating {
    using Element = ValueImage<Value>;
    static constexpr auto* Store = &DateStore<Value>;
    static constexpr auto* Load = &DateLoad<Value>;
    static constexpr auto* SizeGet = &DateSizeGet<Value>;
};
}  // namespace detail

template <class Value>
inline constexpr KyTranslateFunc* kDateTranslate = &TranslateArray<detail::DateTranslating<Value>>;

}  // namespace ky

#endif
