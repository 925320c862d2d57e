#ifndef KYTYPES_H
#define KYTYPES_H

/// Type ids, the row of functions that describes one value type, and the conventions that every
/// function of a row follows. An engine holds a type id and untyped pointers; everything else about
/// a type stands in its row.

#include <cstddef>

#include "kyexport.h"

class KyString;
class MemFile;
struct KyEvalData;
struct KyIdxBounds;
struct KyTypeConvertData;

// ---------------------------------------------------------------------------------------------
// The roster: one line a type, in the order of the ids: id, id constant, row.
//
// The order is persistent (ids stand in schemas), gaps of sense included: the 64-bit integers stand
// at 42 and 43, far from the other plain numbers. A new type is one more line before the illegal row.
// ---------------------------------------------------------------------------------------------

#define KY_TYPE_ROSTER(ROW)                        \
    ROW(0, Ky1B_T, KyCharTab)                      \
    ROW(1, Ky2B_T, KyShortTab)                     \
    ROW(2, Ky4B_T, KyLongTab)                      \
    ROW(3, KyDOUBLE_T, KyDoubleTab)                \
    ROW(4, KyFLOAT_T, KyFloatTab)                  \
    ROW(5, KyU2B_T, KyWordTab)                     \
    ROW(6, KyU4B_T, KyDWordTab)                    \
    ROW(7, KyINT_T, KyIntTab)                      \
    ROW(8, KyUNSIGNED_T, KyUnsignedTab)            \
    ROW(9, KyENUM_T, KyEnumTab)                    \
    ROW(10, KyU1B_T, KyByteTab)                    \
    ROW(11, KySTRING_T, KyStringTab)               \
    ROW(12, KyDATE_T, KyDateTab)                   \
    ROW(13, KyTIME_T, KyTimeTab)                   \
    ROW(14, KyBLOCKID_T, KyBlockIdTab)             \
    ROW(15, KyOBJID_T, KyObjIdTab)                 \
    ROW(16, KyCLID_T, KyClassIdTab)                \
    ROW(17, KyREF_T, KyRefTab)                     \
    ROW(18, KyBLOB_T, KyBlobTab)                   \
    ROW(19, KyDATIME_T, KyDateTimeTab)             \
    ROW(20, KyISTRING_T, KyIStringTab)             \
    ROW(21, KyCASEISTRING_T, KyCaseIStringTab)     \
    ROW(22, D_DATE_T, Kyd_DateTab)                 \
    ROW(23, D_TIME_T, Kyd_TimeTab)                 \
    ROW(24, D_TIMESTAMP_T, Kyd_TimestampTab)       \
    ROW(25, D_INTERVAL_T, Kyd_IntervalTab)         \
    ROW(26, KyINT64_T, KyInt64Tab)                 \
    ROW(27, KyBOOLEAN_T, KyBooleanTab)             \
    ROW(28, KyNULL_1B_T, KyNull_charTab)           \
    ROW(29, KyNULL_U1B_T, KyNull_ucharTab)         \
    ROW(30, KyNULL_2B_T, KyNull_shortTab)          \
    ROW(31, KyNULL_U2B_T, KyNull_ushortTab)        \
    ROW(32, KyNULL_INT_T, KyNull_intTab)           \
    ROW(33, KyNULL_UNSIGNED_T, KyNull_unsignedTab) \
    ROW(34, KyNULL_4B_T, KyNull_longTab)           \
    ROW(35, KyNULL_U4B_T, KyNull_ulongTab)         \
    ROW(36, KyNULL_FLOAT_T, KyNull_floatTab)       \
    ROW(37, KyNULL_DOUBLE_T, KyNull_doubleTab)     \
    ROW(38, KyNULL_KYINT64_T, KyNull_KyInt64Tab)   \
    ROW(39, KySEAL_T, KySealTab)                   \
    ROW(40, KyDATIME_N_T, KyDateTimeNTab)          \
    ROW(41, KyTIMESPAN_T, KyTimeSpanTab)           \
    ROW(42, Ky8B_T, Ky8BTab)                       \
    ROW(43, KyU8B_T, KyU8BTab)                     \
    ROW(44, KyNULL_8B_T, KyNull_8bTab)             \
    ROW(45, KyNULL_U8B_T, KyNull_u8bTab)           \
    ROW(46, KyRES_T, KyIllegalTab)

/// Type ids: signed 8-bit numbers. Ids above 99 are reserved and behave like `KyRES_T`.
enum KyTypeId : signed char {
#define KY_ROSTER_ID(id, constant, row) constant = id,
    KY_TYPE_ROSTER(KY_ROSTER_ID)
#undef KY_ROSTER_ID
};

/// Ids from 0 up to, not including, this one index `KyNewtypetab`.
inline constexpr int KyTypeIdLimit = KyRES_T + 1;
/// Ids from 0 up to, not including, this one index `KyOldtypetab`.
inline constexpr int KyOldTypeIdLimit = KyBOOLEAN_T + 1;
/// Ids above this one are reserved: valid, and answered by the illegal row.
inline constexpr int KyLastUnreservedTypeId = 99;

// ---------------------------------------------------------------------------------------------
// Format flags: in which form an operand is given. The low four bits choose the form, the upper
// four are left to the type.
// ---------------------------------------------------------------------------------------------

inline constexpr unsigned char KyFormNative = 1;    ///< persistent, the machine's byte order
inline constexpr unsigned char KyFormReversed = 2;  ///< persistent, most significant byte first
inline constexpr unsigned char KyFormMemory = 8;    ///< the program's own representation
inline constexpr unsigned char KyFormMask = 15;     ///< the bits that choose the form

// ---------------------------------------------------------------------------------------------
// Compare-operator word: relation bits and modifier bits. The plain numbers ignore it.
// ---------------------------------------------------------------------------------------------

inline constexpr unsigned short KyCmpEqual = 0x0001;
inline constexpr unsigned short KyCmpLess = 0x0002;
inline constexpr unsigned short KyCmpGreater = 0x0004;
inline constexpr unsigned short KyCmpExact = 0x0010;            ///< no wildcards
inline constexpr unsigned short KyCmpIgnoreCase = 0x0020;       ///< strings only
inline constexpr unsigned short KyCmpIgnoreAccent = 0x0040;     ///< strings only
inline constexpr unsigned short KyCmpPrefixResult = 0x0080;     ///< strings: a prefix's result is the comparer's own
inline constexpr unsigned short KyCmpStringExact = 0x0100;      ///< strings: exact, no wildcards
inline constexpr unsigned short KyCmpNeutralLanguage = 0x0200;  ///< strings: both in the neutral language; not if exact
inline constexpr unsigned short KyCmpDefault = 0xFFFF;          ///< strings: the default compare operator

// ---------------------------------------------------------------------------------------------
// Status codes. No function of a row throws; what fails says so by one of these or by a null result.
// ---------------------------------------------------------------------------------------------

inline constexpr int KyErrBufferEnd = 2101;      ///< a buffer ended before the element count, or a wildcard comparison
inline constexpr int KyErrFirstMarked = 2114;    ///< strings: the first operand does not tell everything
inline constexpr int KyErrSecondMarked = 2115;   ///< strings: only the second operand does not
inline constexpr int KyErrNoSuccessor = 2091;    ///< the value has no successor
inline constexpr int KyErrNotSupported = -2999;  ///< operation or form not supported
inline constexpr int KyErrRefused = -2002;       ///< a code set change or an order of another class
inline constexpr int KyErrListEnd = -2005;       ///< no more items in a list text

// GetValue selectors.
inline constexpr unsigned char KyValueLeast = 2;      ///< the type's least value; slots only, not through `KyTypeMgr`
inline constexpr unsigned char KyValueStep = 77;      ///< 'M': step to the successor
inline constexpr unsigned char KyValueStepNext = 78;  ///< 'N': the same
inline constexpr unsigned char KyValueKeep = 79;      ///< 'O': leave the value as it is

// Capabilities that `KyTypeMgr::SupportsCapability` is asked for; a number, not bits.
inline constexpr unsigned short KyCapabilityNull = 1;       ///< has a null value
inline constexpr unsigned short KyCapabilityCounter = 2;    ///< counter type
inline constexpr unsigned short KyCapabilityTimeStamp = 3;  ///< time-stamp type

// ---------------------------------------------------------------------------------------------
// Slot functions. Common to all of them:
//
//   count       number of consecutive values; 1 is a single value, 0 is none
//   flag        a format flag as above
//   len...      bytes in the operand's buffer; 0: exactly count values. The first value is read whole
//               whatever the length says, and so is every value that starts inside the length; one that
//               would start at or past the end sets err to 2101 and ends the walk.
//   persistent  pointers have no alignment; memory-form pointers of the values that Create returns are aligned
//   err         set to 0 on entry, then perhaps to a status code; the result holds up to the failing element
// ---------------------------------------------------------------------------------------------

using KyCreateFunc = void*(unsigned count);
using KyDeleteFunc = int(void* values, unsigned count);
using KyStoreFunc = unsigned(void* dst, const void* src, unsigned char flag, unsigned count);
using KyLoadFunc = unsigned(void* dst, const void* src, unsigned char flag, unsigned count);
using KyNullSizeGetFunc = unsigned(unsigned count);
using KySizeGetFunc = unsigned(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count);
using KySizeGetFromMemFileFunc = unsigned(MemFile* file, unsigned char flag, unsigned count);
using KyCompareFunc = int(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                          unsigned count, int& err);
using KyEvalAndBoundFunc = float(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag,
                                 unsigned count, KyIdxBounds* out);
using KyHashFunc = unsigned(unsigned char flag, unsigned len, void* data, unsigned count, int& err);
using KyConvertToFunc = KyTypeConvertData*(void* value, unsigned count);
using KyConvertFromFunc = void*(KyTypeConvertData* data, unsigned count);
using KyConstructorFunc = void(void* values, unsigned count, unsigned extra);
using KyDestructorFunc = void(void* values, unsigned count, unsigned extra);
using KyAssignmentFunc = void(void* dst, void* src, unsigned count, int mode);
using KyCopyFunc = void(void* dst, void* src, unsigned count, int mode);
using KyTranslateFunc = unsigned(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                                 unsigned srcLen, unsigned count);
using KyIsNullFunc = int(void* value);
using KySetNullFunc = int(void* value);
using KyPrintFunc = KyString&(KyString& out, void* value, const char* format, unsigned count);
using KyScanFunc = void*(void* value, KyString& text, const char* format, unsigned count);
using KyDefaultValueFunc = void*(unsigned count, int which);
using KyGetValueFunc = int(void* value, unsigned count, unsigned char form, unsigned char what);

/// Added to a size word when every value of the type has the same persistent size.
inline constexpr unsigned KyFixedSize = 0x10000;

/// One value type: 28 pointer-sized slots. Lives for the life of the process and is never freed.
/// Immutable but for Compare, PrintToKyString, ScanFromKyString and printFormat, which
/// `KyTypeMgr`'s exchange operations replace while a process is being set up.
struct KyTypeTab {
    const char* typeName;            ///< as the schema spells it: "o_char"
    const char* typeCodeName;        ///< name of the id constant: "Ky1B_T"
    KyCreateFunc* Create;            ///< array of count memory-form values, owned by the caller; null on failure
    KyDeleteFunc* Delete;            ///< destructs and frees what Create returned; same count
    KyStoreFunc* Store;              ///< memory form to persistent form `flag`; returns bytes written
    KyLoadFunc* Load;                ///< persistent form `flag` to memory form; returns bytes consumed
    KyNullSizeGetFunc* NullSizeGet;  ///< persistent bytes of count null values
    KySizeGetFunc* SizeGet;          ///< bytes of count values of fromFlag in form toFlag
    KySizeGetFromMemFileFunc* SizeGetFromMemFile;  ///< bytes of count persistent values at the file's position
    KyCompareFunc* Compare;                        ///< negative, 0 or positive: order of the arrays a and b
    KyEvalAndBoundFunc* EvalAndBound;              ///< narrows index bounds; returns the share of the range kept
    KyHashFunc* Hash;                              ///< persistent, frozen: indexes on disk depend on it
    KyConvertToFunc* ConvertToKyString;            ///< new record of count strings, owned by the caller
    KyConvertFromFunc* ConvertFromKyString;        ///< new array of count values from a record's strings
    KyConstructorFunc* Constructor;                ///< constructs in place; `extra` is not used by the plain types
    KyDestructorFunc* Destructor;                  ///< destructs in place
    KyAssignmentFunc* Assignment;      ///< to constructed values; mode 0: element by element, else fill with the first
    KyCopyFunc* Copy;                  ///< the same into raw memory
    KyTranslateFunc* Translate;        ///< between any two forms; returns bytes
    KyIsNullFunc* IsNull;              ///< non-zero when the memory-form value is null
    KySetNullFunc* SetNull;            ///< makes the value null, returns 0; a null pointer for types without null
    const char* printFormat;           ///< format used when a caller gives none
    KyPrintFunc* PrintToKyString;      ///< text of a value
    KyScanFunc* ScanFromKyString;      ///< value of a text; returns `value`
    unsigned sizeWord;                 ///< low 16 bits: bytes of one memory-form value; plus `KyFixedSize`
    KyDefaultValueFunc* DefaultValue;  ///< new array of count default values
    KyGetValueFunc* GetValue;          ///< steps a value: 0, 2091 or -2999
    void* end;                         ///< always null
};

static_assert(sizeof(KyTypeTab) == 28 * sizeof(void*), "a row is 28 pointer-sized slots");
static_assert(offsetof(KyTypeTab, Create) == 2 * sizeof(void*) && offsetof(KyTypeTab, Compare) == 9 * sizeof(void*) &&
              offsetof(KyTypeTab, Translate) == 18 * sizeof(void*) &&
              offsetof(KyTypeTab, sizeWord) == 24 * sizeof(void*) && offsetof(KyTypeTab, end) == 27 * sizeof(void*));

/// The rows. `KyOldStringTab` is id 11 of the old array: strings in the older persistent layout.
#define KY_ROSTER_ROW(id, constant, row) extern KY_EXPORT KyTypeTab row;
KY_TYPE_ROSTER(KY_ROSTER_ROW)
#undef KY_ROSTER_ROW
extern KY_EXPORT KyTypeTab KyOldStringTab;

/// Rows by id: 0 to 46, then a null pointer.
extern KY_EXPORT KyTypeTab* KyNewtypetab[KyTypeIdLimit + 1];
/// Rows by id: 0 to 27, the same rows but for id 11. Nothing stands behind the 28th.
extern KY_EXPORT KyTypeTab* KyOldtypetab[KyOldTypeIdLimit];

/// Advances `position` by `step` bytes and returns 0 when the result stays below `end`; otherwise
/// leaves it and returns 2101.
KY_EXPORT int IncrementPointer(void*& position, void* end, unsigned step);

#endif
