#ifndef DICTIONARY_RECORDS_H
#define DICTIONARY_RECORDS_H

/// Dictionary strings as they stand in arrays.
///
/// Persistent form of an array:
///
///   0  1  marker: 0x40 the texts are in disk form, 0x80 and above they are keys, else in the program's code page
///   1  2  bytes of all texts; high byte first in form 2, low byte first in every other
///   3     the texts, each with its terminator

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "dictionary_keys.h"
#include "kyistring.h"
#include "kytypes.h"
#include "raw_bytes.h"
#include "string_records.h"

namespace ky {

inline constexpr std::size_t kDictionaryHead = 3;
inline constexpr unsigned kMostStoredBytes = 65535;  ///< of all texts of an array
inline constexpr unsigned char kMarkerDiskForm = 0x40;
inline constexpr unsigned char kMarkerPlain = 0x01;
inline constexpr unsigned char kMarkerKey = 0x80;  ///< and above

/// The mode of the texts behind a marker.
constexpr unsigned char ModeOf(unsigned char marker) {
    if (marker >= kMarkerKey) return kModeKey;
    return marker == kMarkerDiskForm ? kModeDiskForm : 0;
}

/// Bytes of all texts of a stored array.
inline unsigned StoredTexts(const void* array, unsigned char form) { return ReadLength(Advance(array, 1), form); }

/// What stands in front of the texts; `storedTexts`: bytes of them all.
inline void WriteDictionaryHead(void* to, unsigned char marker, unsigned storedTexts, unsigned char form) {
    *static_cast<unsigned char*>(to) = marker;
    WriteLength(Advance(to, 1), storedTexts, form);
}

/// The class of a dictionary order.
template <class Order>
struct ClassOfOrder;
template <>
struct ClassOfOrder<CaseApart> {
    using Type = KyIString;
};
template <>
struct ClassOfOrder<CaseAlike> {
    using Type = KyCaseIString;
};
template <class Order>
using StringOf = typename ClassOfOrder<Order>::Type;

/// Inside the objects.
struct DictionaryAccess {
    /// `block` comes from array new and is not an empty text.
    template <class Self>
    static void Install(KyDictionaryString<Self>& s, char* block, unsigned char mode) {
        delete[] s.text;
        s.text = block;
        s.mode = mode;
    }
};

/// One text of an array, as far as the array's buffer holds it.
struct DictionaryText {
    const char* text = nullptr;  ///< null: there is none
    std::size_t room = 0;        ///< bytes that may be read, a terminator included
    unsigned char mode = 0;
    bool terminated = false;  ///< inside the room
    bool cutShort = false;    ///< the buffer ends before the text does

    std::size_t Length() const { return room != 0 ? strnlen(text, room) : 0; }
    bool IsEmpty() const { return room == 0 || *text == 0; }
};

/// A walk over the texts of one array.
template <class Self>
class DictionaryWalk {
public:
    /// `length`: bytes at `array`, 0: as many as the texts need; nothing behind them is read. `array` null: no texts.
    DictionaryWalk(const void* array, std::size_t length, unsigned char flag)
        : at(static_cast<const unsigned char*>(array)), left(length != 0 ? length : kNoEnd) {
        if (at == nullptr) return;
        form = flag & KyFormMask;
        if (form == KyFormMemory) {
            ReadObject();
        } else if (left < kDictionaryHead) {
            left = 0;
        } else {
            ReadHead();
        }
    }

    const DictionaryText& Current() const { return current; }
    /// Bytes of the current text with its terminator; of one that is cut short those of all behind it, too, which is as
    /// much as is known.
    std::size_t TextLength() const { return current.cutShort ? left + missing : current.Length() + 1; }
    /// The buffer ends where the current text would begin.
    bool IsMissing() const { return left == 0; }

    /// Steps on; false when the next text would start at or past the end of the buffer.
    bool Next() {
        if (at == nullptr) return false;
        const std::size_t step = form == KyFormMemory ? sizeof(Self) : std::min(left, current.Length() + 1);
        if (step >= left) return false;
        at += step;
        if (left != kNoEnd) left -= step;
        form == KyFormMemory ? ReadObject() : ReadText();
        return true;
    }

private:
    static constexpr std::size_t kNoEnd = ~std::size_t{0};

    const unsigned char* at;
    std::size_t left;         ///< bytes from `at` to the end
    std::size_t missing = 0;  ///< bytes of the array behind the end
    unsigned char form = KyFormMemory;
    DictionaryText current;

    void ReadObject() {
        const auto& s = *reinterpret_cast<const Self*>(at);
        current = {.text = s.StrGet(), .room = kNoEnd, .mode = s.ModeGet(), .terminated = true, .cutShort = false};
    }
    void ReadHead() {
        current.mode = ModeOf(at[0]);
        const std::size_t stored = StoredTexts(at, form);
        const std::size_t held = std::min(stored, left - kDictionaryHead);
        missing = stored - held;
        at += kDictionaryHead;
        left = held;
        if (left != 0) ReadText();
    }
    void ReadText() {
        current.text = reinterpret_cast<const char*>(at);
        current.room = left;
        current.terminated = at[left - 1] == 0 || std::memchr(at, 0, left) != nullptr;
        current.cutShort = !current.terminated && missing != 0;
    }
};

}  // namespace ky

#endif
