#ifndef STRING_RECORDS_H
#define STRING_RECORDS_H

/// Strings as they stand in arrays: `KyString` objects in memory form, records in the persistent ones.

#include <cstddef>

#include "raw_bytes.h"

class KyString;

namespace ky {

inline constexpr std::size_t kRecordHead = 4;      ///< length, code set, language
inline constexpr std::size_t kRecordTail = 2;      ///< terminator byte, end marker
inline constexpr std::size_t kLengthField = 2;     ///< not counted by the length itself
inline constexpr unsigned char kEndMarker = 0xFF;  ///< last byte of a record
inline constexpr std::size_t kEmptyRecord = kRecordHead + kRecordTail;

/// The 16-bit length field in front of a record or of an array in the old layout: high byte first in form 2.
inline unsigned ReadLength(const void* from, unsigned char form) {
    const auto* bytes = static_cast<const unsigned char*>(from);
    return form == 2 ? unsigned{bytes[0]} << 8 | bytes[1] : unsigned{bytes[1]} << 8 | bytes[0];
}

inline void WriteLength(void* to, unsigned length, unsigned char form) {
    auto* bytes = static_cast<unsigned char*>(to);
    bytes[form == 2 ? 0 : 1] = static_cast<unsigned char>(length >> 8);
    bytes[form == 2 ? 1 : 0] = static_cast<unsigned char>(length);
}

/// The array at `from`, whose length field says `length`, is in the old layout: its last byte is a terminator.
inline bool IsOldLayout(const void* from, unsigned length) { return *Advance(from, kLengthField + length - 1) == 0; }

/// Content bytes of a string's record: its allocation but for the terminator.
std::size_t RecordContent(const KyString& s);
inline std::size_t RecordSize(std::size_t content) { return kEmptyRecord + content; }

/// Bytes of a string's text in the old layout, which maps 16-bit texts to 8-bit ones; with the terminator.
std::size_t OldTextSize(const KyString& s);

/// One string of an array, as far as the array's buffer holds it.
struct StoredText {
    const char* text = nullptr;  ///< not terminated behind `bytes`, unless `terminated`; null: there is none
    std::size_t bytes = 0;
    unsigned char codeSet = 0;
    unsigned char language = 0;
    bool terminated = false;
    bool cutShort = false;  ///< the buffer ends inside
};

/// A walk over the strings of one array.
class StringWalk {
public:
    /// `length`: bytes at `array`, 0: as many as the strings need; nothing behind them is read. `oldLayout` decides on
    /// the layout where the end of the first record is not there to be looked at. `array` null: there are no strings.
    StringWalk(const void* array, std::size_t length, unsigned char flag, bool oldLayout);

    const StoredText& Current() const { return current; }
    /// Steps on; false when the next string would start at or past the end of the buffer.
    bool Next();

private:
    enum class Layout : unsigned char { memory, records, old };

    const unsigned char* at;
    std::size_t left;  ///< bytes from `at` on; SIZE_MAX: not known
    Layout layout = Layout::memory;
    unsigned char form;
    std::size_t step = 0;  ///< bytes of the current string
    StoredText current;

    void Read();
    void ReadObject();
    void ReadRecord();
    void ReadOldText();
    void BeginPersistent(unsigned char flag, bool oldLayout);
};

}  // namespace ky

#endif
