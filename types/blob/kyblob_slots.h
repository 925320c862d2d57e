#ifndef KYBLOB_SLOTS_H
#define KYBLOB_SLOTS_H

/// The slot functions of `KyBlob`.
///
/// Persistent form: one record for the array, its numbers in the byte order of the form (low four bits of the flag 2:
/// most significant byte first, else machine order).
///
///   0   4       total: the sum of 4 and the length of each element
///   4   4       length of the first element, 0xFFFFFFFF for a null one
///   8   length  its bytes, none for a null one
///   ... 4 + length of each further element
///
/// A given length bounds what is read of a record; with a length of 0 its own numbers do, which are trusted. Numbers
/// read as lengths are unsigned but for Load, which takes nothing above 2147483647.

#include "kyblob.h"
#include "kytypes.h"
#include "object_slots.h"

KyCreateFunc BlobCreate;
KyDeleteFunc BlobDelete;
/// `which` 0: as Create makes them; any other: null values.
KyDefaultValueFunc BlobDefaultValue;
inline constexpr KyConstructorFunc* BlobConstructor = &ky::ObjectSlots<KyBlob>::Constructor;
inline constexpr KyDestructorFunc* BlobDestructor = &ky::ObjectSlots<KyBlob>::Destructor;
inline constexpr KyAssignmentFunc* BlobAssignment = &ky::ObjectSlots<KyBlob>::Assignment;
inline constexpr KyCopyFunc* BlobCopy = &ky::ObjectSlots<KyBlob>::Copy;
KyIsNullFunc BlobIsNull;
KySetNullFunc BlobSetNull;

/// Writes nothing and returns 0 for an array whose total is above 2147483647: it could not be loaded.
KyStoreFunc BlobStore;
/// 0 for a record that is malformed: a total or a length above 2147483647, or elements that go beyond the total. The
/// elements in front of the first bad one have their new values then, the others keep their old ones. 0 also where the
/// memory handler returned. Bytes of the total behind the last element are skipped.
KyLoadFunc BlobLoad;
// KEPT: 4 bytes an element, without those of the total; no buffer is to be sized by it.
KyNullSizeGetFunc BlobNullSizeGet;
/// Of values in memory what Store writes; of a record 4 and its total, modulo 2^32.
// KEPT: a total of all ones counts 0 here, while Load refuses it.
KySizeGetFunc BlobSizeGet;
/// Where the file has no 4 bytes at its position, which stays, the size is 4.
KySizeGetFromMemFileFunc BlobSizeGetFromMemFile;

/// By bytes, as `KyBlob` orders them; err is always 0. A record's element counts as far as it is there, a walk ends
/// without error where there is no further length field.
// KEPT: of stored elements a null one gives -2 or 2.
KyCompareFunc BlobCompare;
/// Lengths alone, frozen; err is always 0.
// KEPT: in memory form the XOR of the lengths counts; in a stored one the walk begins at the total and takes it for the
// length of the first element, which leaves of a whole record just the total. Hashes of the forms differ, and indexes
// on disk depend on it.
KyHashFunc BlobHash;
/// 1: blobs have no bounds. Nothing is recorded.
KyEvalAndBoundFunc BlobEvalAndBound;

/// Between memory and a record Store and Load, 0 where a record does not fit in a given length; nothing is written
/// then. Between two persistent forms the bytes as they stand.
KyTranslateFunc BlobTranslate;

/// Two lower-case hexadecimal digits a byte; a null string for null. Null where the digits of an element do not fit in
/// a string, with more than 32765 bytes.
KyConvertToFunc BlobConvertToKyString;
/// The same back, in any case of letters: a missing or null string gives null. Null, and no values, where a text is
/// anything else but pairs of digits.
KyConvertFromFunc BlobConvertFromKyString;
/// The format, in which "%L" is the length in decimal, "%%" a "%", and any other "%" is left out; the null print string
/// for null. A null format is the type's own.
KyPrintFunc BlobPrintToKyString;
/// Null for a text that begins with the null print string and for a null string, else pairs of hexadecimal digits,
/// whatever the format. Anything else leaves the value as it is and gives a null pointer.
KyScanFunc BlobScanFromKyString;

namespace ky {

/// Also the row's, unless that one is exchanged.
inline constexpr char kBlobFormat[] = "[BLOB,len=%L]";

}  // namespace ky

#endif
