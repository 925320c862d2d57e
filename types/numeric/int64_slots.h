#ifndef INT64_SLOTS_H
#define INT64_SLOTS_H

/// The slot functions of `KyInt64`, for its row and for the nullable type that is built on it.
///
/// Persistent form: 8 bytes a value, the low half, then the high half, each a 4-byte number of that form. In machine
/// byte order, and only there, this is the `o_8b` with the same value.

#include <bit>

#include "counted_array.h"
#include "kyint64.h"
#include "kytypes.h"
#include "number_slots.h"

/// The base library's conversion of 4-byte numbers, applied to the halves. `dst` and `src` may be equal.
// KEPT: in reversed form 0x0102030405060708 is 05 06 07 08 01 02 03 04, not 01 to 08; databases hold it so.
unsigned Int64Store(void* dst, const void* src, unsigned char flag, unsigned count);
inline constexpr KyLoadFunc* Int64Load = &Int64Store;
unsigned Int64StoreOne(void* dst, const void* src, unsigned char flag);

inline constexpr KyCreateFunc* Int64Create = &ky::CountedCreate<KyInt64>;
inline constexpr KyDeleteFunc* Int64Delete = &ky::CountedDelete<KyInt64>;
inline constexpr KyDefaultValueFunc* Int64DefaultValue = &ky::CountedDefaultValue<KyInt64>;
inline constexpr KyNullSizeGetFunc* Int64NullSizeGet = &O_8BNullSizeGet;
inline constexpr KySizeGetFunc* Int64SizeGet = &O_8BSizeGet;
inline constexpr KySizeGetFromMemFileFunc* Int64SizeGetFromMemFile = O_8BSizeGetFromMemFile;

KyCompareFunc Int64Compare;
/// Frozen, persistent.
// KEPT: only the low half enters the hash, as with `o_8b`; indexes on disk depend on it.
KyHashFunc Int64Hash;

KyConvertToFunc Int64ConvertToKyString;
KyConvertFromFunc Int64ConvertFromKyString;
KyPrintFunc Int64PrintToKyString;  ///< the first value, by `KyInt64::PrintToKyString`
KyScanFunc Int64ScanFromKyString;  ///< a null value pointer gives null back

// In memory form a `KyInt64` is an `o_8b`.
inline constexpr KyConstructorFunc* Int64Constructor = O_8BConstructor;
inline constexpr KyDestructorFunc* Int64Destructor = O_8BDestructor;
inline constexpr KyAssignmentFunc* Int64Assignment = O_8BAssignment;
inline constexpr KyCopyFunc* Int64Copy = O_8BCopy;
inline constexpr KyGetValueFunc* KyGetValueKyInt64 = KyGetValueo_8b;

struct Int64LSHelper {
    using Element = KyInt64;
    using ToText = long long;
    using FromText = long long;
    static constexpr auto* Store = &Int64Store;
    static constexpr auto* Load = Int64Load;
    static constexpr auto* StoreOne = &Int64StoreOne;
    static constexpr auto* SizeGet = Int64SizeGet;
    static constexpr auto* Print = &Int64PrintToKyString;
    static constexpr auto* Scan = &Int64ScanFromKyString;
    static constexpr std::size_t Stride(unsigned char) { return sizeof(Element); }
};

inline constexpr KyTranslateFunc* Int64Translate = &ky::TranslateArray<Int64LSHelper>;

namespace ky {

/// One value in any form.
inline KyInt64 DecodeInt64(const void* from, unsigned char form) {
    if (form == KyFormMemory || form == KyFormNative) return LoadAs<KyInt64>(from);
    if (form == KyFormReversed) return std::rotl(ByteSwap(LoadAs<unsigned long long>(from)), 32);  // half by half
    KyInt64 value;
    Int64StoreOne(&value, from, form);
    return value;
}

}  // namespace ky

inline constexpr KyEvalAndBoundFunc* Int64EvalAndBound = &ky::NumberEvalAndBound<Int64LSHelper, &ky::DecodeInt64>;

#endif
