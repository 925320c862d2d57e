#ifndef KYTYPMGR_H
#define KYTYPMGR_H

/// The type manager: the one class through which an engine reaches the value types, the record that
/// carries an array of values between a type and its text form, and two scanning helpers.

#include <cstddef>

#include "kyexport.h"
#include "kytypes.h"

class KyTypeMgr;

/// The conversion record: an array of `count` values of one type (for text, of `KyString`).
/// Owns its data when `manager` is set, and only then. Records are not copied: two would own one array.
struct KY_EXPORT KyTypeConvertData {
    KyTypeMgr* manager;  ///< deletes the data; may be null: the data is not freed then
    void* data;          ///< `count` values of type `typeId`
    unsigned count;
    char typeId;  ///< 11 (`KyString`) in every record that a ConvertToKyString slot returns

    /// No manager, no data, count 0, the reserved id 100.
    KyTypeConvertData();
    KyTypeConvertData(char typeId, unsigned count, void* data, KyTypeMgr* manager);
    KyTypeConvertData(const KyTypeConvertData&) = delete;
    KyTypeConvertData& operator=(const KyTypeConvertData&) = delete;
    /// Deletes the data with the manager (when both are set); then count is 0 and the id 100.
    ~KyTypeConvertData();

    /// A new record, owned by the caller.
    static KyTypeConvertData* Make(char typeId, unsigned count, void* data, KyTypeMgr* manager);

    /// The string at `index`; null for an index outside 0 to count-1, for records of other types and without data.
    KyString* GetString(int index);
};

static_assert(sizeof(KyTypeConvertData) == 24 && offsetof(KyTypeConvertData, manager) == 0 &&
              offsetof(KyTypeConvertData, data) == 8 && offsetof(KyTypeConvertData, count) == 16 &&
              offsetof(KyTypeConvertData, typeId) == 20);

/// Routes every operation on a value by its type id to the slot of the type's row.
///
/// A manager owns nothing and may be copied freely. Ids are read as signed 8-bit numbers; an id that has
/// no row in the array in force (47 to 99, negative, reserved ids above 99, and 28 to 46 under the old
/// array) reaches the illegal row, which answers every call with nothing.
/// All operations but the exchanges and setters only read shared data: any thread may call them.
class KY_EXPORT KyTypeMgr {
public:
    explicit KyTypeMgr(unsigned factory);

    /// Chooses the array of rows and returns the factory number kept:
    /// 0 to 3 old array, 4 to 10 new array, each kept; 11 old array, kept as 3; above: new array, kept as 4.
    unsigned SetFactory(unsigned factory);

    /// 1 for ids below 47 (negative ones too, exactly so) and above 99, else 0.
    int IsValidType(char id);

    // --- forwarded to the row's slot ---
    void* Create(char id, unsigned count);
    void Delete(char id, void* values, unsigned count);
    void* DefaultValue(char id, unsigned count, int which);
    unsigned Store(char id, void* dst, void* src, unsigned char flag, unsigned count);
    unsigned Load(char id, void* dst, void* src, unsigned char flag, unsigned count);
    /// Bytes of `count` values given in `valueForm` when stored in form `diskFlag`.
    unsigned DiskLenGet(char id, void* value, unsigned char diskFlag, unsigned count, unsigned char valueForm);
    unsigned DiskLenGetFromMemFile(char id, MemFile* file, unsigned char flag, unsigned count);
    int Cmp(char id, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
            unsigned char flag, int& err);
    /// Without lengths: each buffer holds exactly `count` values; the error is dropped.
    int Cmp(char id, void* a, void* b, unsigned short op, unsigned count, unsigned char flag);
    /// `eval` is accepted and not passed on.
    float EvalAndBound(char id, KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag,
                       unsigned count, KyIdxBounds* out, KyEvalData* eval);
    unsigned Hash(char id, unsigned len, void* data, unsigned count, unsigned char flag, int& err);
    unsigned Translate(char id, void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                       unsigned srcLen, unsigned count);
    int IsNullValue(char id, void* value);

    // --- a row's function itself, for engines that take a slot once per column; null where the slot is empty ---
    KyConstructorFunc* ConstructorPtrGet(char id);
    KyDestructorFunc* DestructorPtrGet(char id);
    KyAssignmentFunc* AssignmentPtrGet(char id);
    KyCopyFunc* CopyPtrGet(char id);
    KyCompareFunc* CmpFuncPtrGet(char id);
    KyLoadFunc* LoadPtrGet(char id);
    KyStoreFunc* StorePtrGet(char id);
    KyIsNullFunc* IsNullPtrGet(char id);
    KySetNullFunc* SetNullPtrGet(char id);
    /// Always null. KEPT: engines test for it.
    void* ComparePtrGet(char id);
    /// Always -2999. KEPT: nullness of stored values is not offered for any type.
    int DiskIsNullValue(char id, void* value);

    // --- exchange: replaces a slot of the shared row and returns what stood there; null replaces nothing ---
    // Seen by every manager of the process, and by both arrays for every id but 11. For start-up only.
    KyCompareFunc* ExchangeKyTypeCmpFunc(char id, KyCompareFunc* compare);
    KyPrintFunc* ExchangePrintToKyStringFunc(char id, KyPrintFunc* print);
    KyScanFunc* ExchangeScanFromKyStringFunc(char id, KyScanFunc* scan);
    /// Keeps the caller's pointer, not a copy: the text has to outlive its use.
    const char* ExchangeFormat(char id, const char* format);

    // --- sizes and arrays ---
    /// Bytes of `count` memory-form values.
    unsigned MemLenGet(char id, unsigned count);
    int IsFixed(char id);
    /// Address of the value at `index` of a memory-form array; null when `index` is not below a `count` other than 0.
    void* GetArrayElement(char id, void* base, unsigned index, unsigned count);

    // --- text ---
    /// A new record of `count` strings that knows this manager: deleting it frees them. Null for the illegal row.
    KyTypeConvertData* ConvertTo(char id, void* value, unsigned count);
    /// A new array of `count` values, freed with `Delete(id, ..., count)`. The record stays the caller's.
    void* ConvertFrom(char id, KyTypeConvertData* data, unsigned count);
    /// Text of the values: a count below 2 is the row's own print; more are appended to `out`, separated by ",". 8-bit
    /// numbers, printed as characters, are one text in any case. `format` null: the row's print format.
    KyString& PrintToKyString(char id, KyString& out, void* value, const char* format, unsigned count);
    void* ScanFromKyString(char id, void* value, KyString& text, const char* format, unsigned count);
    /// The process-wide text of null values, "{NULL}" unless replaced.
    static const KyString& GetNullPrintString();
    static void SetNullPrintString(const KyString& text);
    /// All values in one new text, each followed by a separator character that occurs in none of them. Null for the
    /// illegal row and without memory for the text.
    KyString* ConvertToKyStringOld(void* value, char id, unsigned count);
    /// The way back: consumes `text` from its front. The values are freed with the type's Delete. Null, with the text
    /// as it was, without memory for the pieces.
    void* ConvertFromKyStringOld(KyString* text, char id, unsigned count);

    // --- names ---
    /// The type name; copied to `dst`, which has to be large enough, when that is not null.
    char* NameGet(char id, char* dst);
    char* TypeIdNameGet(char id, char* dst);
    /// 0 and the id of the row with exactly this type name; 1 and id 47 when there is none.
    int Name2KyTypeId(const char* name, char& id);

    // --- null values and capabilities ---
    /// `capability`: one of the `KyCapability...` numbers, answered with 1 or 0. Any other number: 0.
    int SupportsCapability(char id, unsigned short capability);
    int SupportsNullValue(char id);
    /// Makes a value null where the type has a null, else gives it the value of an empty text. Returns 0.
    int SetNullValue(char id, void* value);

    // --- values ---
    /// Steps a value (`what` 77, 78) in memory form (`form` 8) or where it is stored: 0, 2091 or -2999.
    int GetValue(char id, void* value, unsigned count, unsigned char form, unsigned char what);
    /// Stores a date-time record {year 2 bytes, month, day, hour, minute, second 1 byte each, one byte of
    /// padding, sub-seconds 4 bytes} as a value of a date or time type. Bytes written or -2999.
    int StoreTimeStamp(char id, void* dst, unsigned char flag, void* stamp);

private:
    KyTypeTab** rows;
    unsigned factory;

    KY_INTERNAL KyTypeTab& Row(char id) const;
};

/// The default manager registered so far, null at first; `manager` becomes the new one unless it is null.
KY_EXPORT KyTypeMgr* DefaultTypeMgr(KyTypeMgr* manager);

/// Advances past a sign or digit and all decimal digits behind it; leaves the pointer at anything else.
KY_EXPORT void SkipDigits(char*& text);

/// Scans one value out of `text` as the C library's formatted scan does, the same under every locale.
/// `length` is not used; `size` bounds the text read into a `KyString`. The formats of numbers take the
/// target's own width, whatever length modifier they name. Always 0; without a number in the text the
/// target keeps its value.
/// The `char` form first tries "0x%x"; the `double` form knows the mantissa-and-exponent text and "%.17g".
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, char* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, unsigned char* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, short* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, unsigned short* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, int* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, unsigned int* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, long long* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, unsigned long long* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, float* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, double* target);
KY_EXPORT int MySscanf(char* text, int length, const char* format, int size, KyString* target);

#endif
