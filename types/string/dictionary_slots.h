#ifndef DICTIONARY_SLOTS_H
#define DICTIONARY_SLOTS_H

/// The slots of the dictionary strings' rows, `Self` being `KyIString` or `KyCaseIString`. A memory-form value is one
/// object; what the persistent forms are is told in `dictionary_records.h`.

#include <cstddef>

#include "kyistring.h"
#include "kytypes.h"

namespace ky {

template <class Self>
struct DictionaryStoring {
    /// Texts in disk form with the marker 0x40 when `flag` is below 16, else as they are with the marker 0x01, whatever
    /// their modes. An array of more than 65535 bytes raises an assertion, and its last texts are shortened until they
    /// fit.
    static KyStoreFunc Store;
    /// Texts with the marker 0x40 are brought back from disk form, others taken as they are; values that are keys have
    /// the mode 0x80 afterwards. Nothing behind the bytes that the header tells is read; values that are not there
    /// become empty. When memory fails the memory handler is called and, should it return, the value becomes empty.
    static KyLoadFunc Load;
    /// Store of as many bytes as there is room for; the header tells of all. Returns the bytes written.
    static unsigned StoreWithin(void* dst, std::size_t room, const void* src, unsigned char flag, unsigned count);
    /// Load that reads no more than `length` bytes, 0: as many as the header tells.
    static unsigned LoadWithin(void* dst, const void* src, std::size_t length, unsigned char flag, unsigned count);
    static KyNullSizeGetFunc NullSizeGet;
    /// Header included. With bit 0x80 of `toFlag` that of the key. `value` null: as NullSizeGet.
    static KySizeGetFunc SizeGet;
    /// As SizeGet; 0 where the file has no header. The file's position stays.
    static KySizeGetFromMemFileFunc SizeGetFromMemFile;
};

template <class Self>
struct DictionaryTranslating {
    /// Into memory: Assignment, or Load of the source's length, if one is given. From memory: Store in disk form. An
    /// array between two persistent forms stays what it is, keys and texts out of disk form too, whatever `count` is,
    /// unless that is 0; only its length takes the destination's byte order. Both may be the same memory. What is cut
    /// short stays so; of an array without a whole header nothing is written.
    ///
    /// A persistent destination gets the first `dstLen` bytes, 0: all; zeros follow up to there. Lengths keep telling
    /// of the whole array. Returns the bytes written without these zeros; into memory the bytes that were read, 16 for
    /// each value from memory.
    static KyTranslateFunc Translate;
};

template <class Self>
struct DictionaryOrder {
    /// By the dictionary order and the mode of each value; the rules of patterns are those of strings.
    ///
    /// `b` is the comparand. Where its key has more than 253 bytes (a terminator not counted) err becomes -2999 and the
    /// result -1, before the values are compared. An empty value orders before every other, whatever the operator.
    /// When neither 0x10 nor 0x100 is set, a comparand with a "*", "?" or backslash (the keys of these, in a key) is a
    /// pattern: values are compared up to there alone and err becomes 2101, for that the caller has to look at the
    /// rest with `istrwild` or `caseistrwild`. err stays 0 where nothing is open: the first value is cut short, long
    /// enough, and the pattern's only wildcard is an asterisk at its end (and 0x80 is clear).
    /// A value that the buffer's end cuts short is compared with what is there; when that is equal err becomes 2101 and
    /// the longer value, as told by the header, orders behind; 0 when 0x80 is set.
    static KyCompareFunc Compare;
    /// There is none: 0.
    static KyHashFunc Hash;
};

template <class Self>
struct DictionaryValues {
    static KyConvertToFunc ConvertToKyString;
    static KyConvertFromFunc ConvertFromKyString;
    static KyPrintFunc PrintToKyString;
    /// A text that begins with the null print string makes the value empty: there is no null.
    static KyScanFunc ScanFromKyString;
};

}  // namespace ky

#endif
