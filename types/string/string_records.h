#ifndef STRING_RECORDS_H
#define STRING_RECORDS_H

/// Strings as they stand in arrays: `KyString` objects in memory form, records in the persistent ones.

#include <algorithm>
#include <cstddef>

#include "code_sets.h"
#include "kystring.h"
#include "kytypes.h"
#include "raw_bytes.h"

namespace ky {

inline constexpr std::size_t kRecordHead = 4;      ///< length, code set, language
inline constexpr std::size_t kRecordTail = 2;      ///< terminator byte, end marker
inline constexpr std::size_t kLengthField = 2;     ///< not counted by the length itself
inline constexpr unsigned char kEndMarker = 0xFF;  ///< last byte of a record
/// Both as they are read and written at once.
inline constexpr unsigned short kRecordEnd = kEndMarker << 8;
inline constexpr std::size_t kEmptyRecord = kRecordHead + kRecordTail;
/// Bytes of texts that an array in the old layout can hold: its length field has 16 bits.
inline constexpr std::size_t kMostOldBytes = 0xFFFF;

/// Flag bit: the records are in the current layout, whatever their last byte.
inline constexpr unsigned char kCurrentLayout = 0x80;

constexpr unsigned char FormOf(unsigned char flag) { return flag & KyFormMask; }

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

/// Content bytes of a record with this length field.
constexpr std::size_t ContentOf(unsigned length) { return length > kRecordHead ? length - kRecordHead : 0; }

/// Content bytes of a string's record: its allocation but for the terminator.
inline std::size_t RecordContent(const KyString& s) {
    const std::size_t size = s.BufferSizeGet();
    return size - std::min<std::size_t>(size, CharWidth(s.CodeSetGet()));
}
constexpr std::size_t RecordSize(std::size_t content) { return kEmptyRecord + content; }

/// One string of an array, as far as the array's buffer holds it.
struct StoredText {
    const char* text = nullptr;  ///< null: there is no array
    std::size_t bytes = 0;       ///< of the content that are there
    std::size_t length = 0;      ///< of the whole content, as the record tells it
    unsigned char codeSet = 0;
    unsigned char language = 0;
    bool terminated = false;  ///< a terminator stands behind the content
    bool cutShort = false;    ///< the buffer ends inside

    unsigned Width() const { return CharWidth(codeSet); }
    bool IsNull() const { return IsNullLabel(codeSet, language); }
    /// An order text that does not tell everything; see `Mark`.
    bool IsMarked() const { return codeSet == KyCodeSetOrders && (language & kMark) != 0 && !IsNull(); }
    /// The language by which the text is read; that of an order text is the code set that it is to be shown in.
    unsigned char ReadingLanguage() const;
    /// Characters in front of the first terminator, as far as they are there.
    std::size_t Characters() const;
    /// No character is there, nor cut off.
    bool IsAbsent() const;

    /// Bit of an order text's language.
    static constexpr unsigned char kMark = 0x80;
};

/// In which layout an array in persistent form is, unless its flag says that it is the current one. All records are in
/// that of the first.
enum class LayoutRule : unsigned char {
    byLastByte,       ///< as the last byte of the first record tells; the current one where that is not there
    byLastByteOrOld,  ///< the same; the old one where that is not there
    old
};

/// A walk over the strings of one array.
class StringWalk {
public:
    /// `length`: bytes at `array`, 0: as many as the strings need; nothing behind them is read. `array` null: there
    /// are no strings.
    StringWalk(const void* array, std::size_t length, unsigned char flag, LayoutRule rule);

    bool IsInOldLayout() const { return layout == Layout::old; }
    const StoredText& Current() const { return current; }
    /// Bytes from the current string to the next, as its record tells them.
    std::size_t Size() const { return step; }
    /// The buffer ends before it tells how long the current string is.
    bool IsMissing() const { return isMissing; }
    /// Steps on; false when the next string would start at or past the end of the buffer.
    bool Next();

private:
    enum class Layout : unsigned char { memory, records, old };

    const unsigned char* at;
    std::size_t left;  ///< bytes from `at` on; SIZE_MAX: not known
    Layout layout = Layout::memory;
    unsigned char form;
    bool isMissing = false;
    std::size_t step = 0;  ///< bytes of the current string
    std::size_t told = 0;  ///< old layout: bytes from `at` on as the length field tells them
    StoredText current;

    void Read();
    void ReadObject();
    void ReadRecord();
    void ReadOldText();
    void BeginPersistent(unsigned char flag, LayoutRule rule);
};

/// A stored text with a terminator behind it: where it stands, if it has one there, else a copy, on the stack while it
/// is short. What it is of 16-bit characters is whole ones.
class TerminatedText {
public:
    /// The text without its last characters, `without` of them.
    explicit TerminatedText(const StoredText& s, std::size_t without = 0);
    TerminatedText(const TerminatedText&) = delete;
    TerminatedText& operator=(const TerminatedText&) = delete;
    ~TerminatedText();

    /// Null when there was no memory; the memory handler was called.
    const char* Text() const { return text; }

private:
    static constexpr std::size_t kLongestOnStack = 254;

    const char* text = nullptr;
    char* heap = nullptr;
    char local[kLongestOnStack + 2];
};

}  // namespace ky

#endif
