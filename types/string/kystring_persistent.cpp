/// Store, Load and the sizes of strings.

#include <emmintrin.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "key_reader.h"
#include "kybase.h"
#include "kystring.h"
#include "kystring_build.h"
#include "kystring_slots.h"
#include "mem_file_bytes.h"
#include "old_layout.h"
#include "string_records.h"

namespace {

using ky::FormOf;

/// Bits of a target flag that ask for another size of 8-bit content: as if it were mapped into the default 16-bit code
/// set, or turned into order values.
constexpr unsigned char kSizeOfUnits = 0x20;
constexpr unsigned char kSizeOfOrders = 0x40;

const KyString& ValueAt(const void* values, unsigned i) { return static_cast<const KyString*>(values)[i]; }

/// Copies 16-bit units with their bytes swapped; `bytes` is even. Short texts take no call.
[[gnu::always_inline]] inline void CopySwapped(char* dst, const char* src, std::size_t bytes) {
    const auto swap = [](__m128i units) { return _mm_or_si128(_mm_slli_epi16(units, 8), _mm_srli_epi16(units, 8)); };
    const auto at = [](const char* p) { return reinterpret_cast<const __m128i*>(p); };
    const auto to = [](char* p) { return reinterpret_cast<__m128i*>(p); };
    if (bytes > 32) {
        KyMemCpy(dst, src, 2, KyFormReversed, static_cast<unsigned>(bytes));
    } else if (bytes >= 16) {
        _mm_storeu_si128(to(dst), swap(_mm_loadu_si128(at(src))));
        _mm_storeu_si128(to(dst + bytes - 16), swap(_mm_loadu_si128(at(src + bytes - 16))));
    } else if (bytes >= 8) {
        const __m128i last = swap(_mm_loadl_epi64(at(src + bytes - 8)));
        _mm_storel_epi64(to(dst), swap(_mm_loadl_epi64(at(src))));
        _mm_storel_epi64(to(dst + bytes - 8), last);
    } else {
        for (std::size_t i = 0; i != bytes; i += 2) {
            dst[i] = src[i + 1];
            dst[i + 1] = src[i];
        }
    }
}

/// The content of a text between memory and a record of `form`.
[[gnu::always_inline]] inline void CopyContent(char* dst, const char* src, std::size_t bytes, unsigned width,
                                               unsigned char form) {
    if (form == KyFormReversed && width == 2) {
        CopySwapped(dst, src, bytes);
    } else {
        ky::CopyText(dst, src, bytes);
    }
}

[[gnu::always_inline]] inline std::size_t StoreRecord(unsigned char* record, const KyString& s, unsigned char form) {
    const unsigned char codeSet = s.CodeSetGet();
    const std::size_t content = ky::RecordContent(s);
    const auto length = static_cast<unsigned short>(ky::RecordSize(content) - ky::kLengthField);
    ky::StoreAs(record, form == KyFormReversed ? ky::ByteSwap(length) : length);
    record[2] = codeSet;
    record[3] = s.LanguageGet();
    auto* text = reinterpret_cast<char*>(record + ky::kRecordHead);
    if (ky::CharWidth(codeSet) == 1) {
        ky::CopyText(text, s.StrGet(), content);
    } else {
        const std::size_t whole = content & ~std::size_t{1};
        CopyContent(text, s.StrGet(), whole, 2, form);
        // Half a unit at the end is one of the zeros behind the text.
        if (whole != content) text[whole] = 0;
    }
    ky::StoreAs(text + content, ky::kRecordEnd);
    return ky::RecordSize(content);
}

std::size_t LoadRecord(KyString& s, const unsigned char* record, unsigned char form) {
    const unsigned length = ky::ReadLength(record, form);
    const unsigned char codeSet = length >= 1 ? record[2] : KyCodeSetNative;
    const unsigned char language = length >= 2 ? record[3] : KyLanguageNeutral;
    const unsigned width = ky::CharWidth(codeSet);
    ky::LoadText(s, codeSet, language, reinterpret_cast<const char*>(record) + ky::kRecordHead,
                 ky::ContentOf(length) / width * width, form);
    return ky::kLengthField + length;
}

/// Nothing behind `length` bytes is read; strings that are not there become empty.
void LoadOldTexts(KyString* strings, const unsigned char* texts, std::size_t length, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
        const char* text = reinterpret_cast<const char*>(texts);
        const std::size_t size = length != 0 ? strnlen(text, length) : 0;
        ky::AssignText(strings[i], text, size);
        const std::size_t step = size < length ? size + 1 : size;
        texts += step;
        length -= step;
    }
}

/// Orders of an 8-bit text. A damaged record may leave it without a terminator, so it is read in pieces, each with one
/// behind it: that takes no memory.
std::size_t OrdersOf(const ky::StoredText& s) {
    constexpr std::size_t longest = 254;  // of a piece
    constexpr std::size_t joined = 16;    // more characters than count as one in any language
    std::size_t orders = 0;
    std::size_t left = s.Characters();
    for (const char* text = s.text; left != 0;) {
        char piece[longest + 1];
        const std::size_t size = std::min(longest, left);
        ky::CopyBytes(piece, text, size);
        piece[size] = 0;
        const char* const limit = piece + (size == left ? size : size - joined);
        ky::KeyReader reader({piece, s.codeSet, s.ReadingLanguage(), KyFormNative}, ~0u, ~0u, false);
        for (; reader.Place() < limit; ++orders) {
            reader.Next();
            if (reader.Order() == 0) return orders;
        }
        const auto taken = static_cast<std::size_t>(reader.Place() - piece);
        text += taken;
        left -= taken;
    }
    return orders;
}

/// Bytes of a string's record, as the options of the target flag ask for it.
std::size_t SizeOf(const ky::StoredText& s, unsigned char toFlag) {
    if (s.Width() == 1 && !s.IsNull()) {
        if ((toFlag & kSizeOfOrders) != 0) return ky::RecordSize(2 * OrdersOf(s));
        if ((toFlag & kSizeOfUnits) != 0) return ky::RecordSize(2 * s.Characters());
    }
    return ky::RecordSize(s.length);
}

constexpr bool HasOptions(unsigned char toFlag) { return (toFlag & (kSizeOfOrders | kSizeOfUnits)) != 0; }

bool BeginsOldLayout(const void* array, unsigned length, unsigned char flag) {
    return (flag & ky::kCurrentLayout) == 0 && ky::IsOldLayout(array, length);
}

/// Bytes of `count` records from `at` on, or of the old layout's array.
std::size_t StoredSize(const void* at, unsigned char flag, unsigned char toFlag, unsigned count) {
    if (count == 0) return 0;
    const unsigned first = ky::ReadLength(at, FormOf(flag));
    if (BeginsOldLayout(at, first, flag)) return ky::kLengthField + first;
    std::size_t stored = 0;
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        const void* record = ky::Advance(at, stored);
        const std::size_t size = ky::kLengthField + ky::ReadLength(record, FormOf(flag));
        if (HasOptions(toFlag)) {
            const ky::StringWalk one(record, 0, flag | ky::kCurrentLayout, ky::LayoutRule::byLastByte);
            total += SizeOf(one.Current(), toFlag);
        } else {
            total += size;
        }
        stored += size;
    }
    return total;
}

/// Bytes of the records at the file's position; `options`: as of a target flag.
std::size_t SizeInFile(MemFile& file, unsigned char flag, unsigned char options, unsigned count) {
    long stored = 0;
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        const unsigned char* head = ky::BytesOfFile(file, stored, ky::kLengthField);
        if (head == nullptr) break;
        const unsigned length = ky::ReadLength(head, FormOf(flag));
        const long size = static_cast<long>(ky::kLengthField + length);
        const unsigned char* record = ky::BytesOfFile(file, stored, size);
        stored += size;
        const bool old = record != nullptr && i == 0 && BeginsOldLayout(record, length, flag);
        const bool asIs = record == nullptr || old || !HasOptions(options);
        total += asIs ? static_cast<std::size_t>(size) : StoredSize(record, flag | ky::kCurrentLayout, options, 1);
        if (record == nullptr || old) break;
    }
    return total;
}

}  // namespace

void ky::LoadText(KyString& out, unsigned char codeSet, unsigned char language, const char* text, std::size_t bytes,
                  unsigned char form) {
    char* block = nullptr;
    const unsigned width = CharWidth(codeSet);
    if (bytes != 0) {
        block = new char[bytes + width];
        CopyContent(block, text, bytes, width, form);
        block[bytes] = block[bytes + width - 1] = 0;
    }
    delete[] out.buffer;
    out.buffer = block;
    out.bufferSize = static_cast<unsigned short>(bytes != 0 ? bytes + width : 0);
    out.codeSet = codeSet;
    out.language = language;
}

unsigned StringStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        total += StoreRecord(ky::Advance(dst, total), ValueAt(src, i), FormOf(flag));
    }
    return static_cast<unsigned>(total);
}

unsigned StringOldStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    ky::ByteSink sink(dst, std::numeric_limits<std::size_t>::max());
    const ky::StringWalk walk(count != 0 ? src : nullptr, 0, KyFormMemory, ky::LayoutRule::old);
    ky::StoreOldLayout(sink, walk, KyFormNative, FormOf(flag), count);
    return static_cast<unsigned>(sink.Written());
}

unsigned StringLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    auto* strings = static_cast<KyString*>(dst);
    const unsigned char form = FormOf(flag);
    if ((flag & ky::kCurrentLayout) == 0) {
        const unsigned length = ky::ReadLength(src, form);
        if (ky::IsOldLayout(src, length)) {
            LoadOldTexts(strings, ky::Advance(src, ky::kLengthField), length, count);
            // KEPT: the size of the whole array, whatever the count.
            return static_cast<unsigned>(ky::kLengthField) + length;
        }
    }
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) total += LoadRecord(strings[i], ky::Advance(src, total), form);
    return static_cast<unsigned>(total);
}

unsigned StringNullSizeGet(unsigned count) { return static_cast<unsigned>(ky::kEmptyRecord) * count; }

unsigned StringSizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count) {
    if (FormOf(toFlag) == KyFormMemory) return static_cast<unsigned>(sizeof(KyString)) * count;
    if (value == nullptr) return StringNullSizeGet(count);
    if (FormOf(fromFlag) != KyFormMemory) return static_cast<unsigned>(StoredSize(value, fromFlag, toFlag, count));
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        const KyString& s = ValueAt(value, i);
        if (HasOptions(toFlag)) {
            const ky::StringWalk one(&s, 0, KyFormMemory, ky::LayoutRule::byLastByte);
            total += SizeOf(one.Current(), toFlag);
        } else {
            total += ky::RecordSize(ky::RecordContent(s));
        }
    }
    return static_cast<unsigned>(total);
}

unsigned StringOldSizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count) {
    if (FormOf(toFlag) == KyFormMemory) return static_cast<unsigned>(sizeof(KyString)) * count;
    if (value == nullptr) return static_cast<unsigned>(ky::kLengthField) + count;
    if (FormOf(fromFlag) != KyFormMemory) {
        const unsigned length = ky::ReadLength(value, FormOf(fromFlag));
        if (BeginsOldLayout(value, length, fromFlag)) return static_cast<unsigned>(ky::kLengthField) + length;
    }
    const ky::StringWalk walk(count != 0 ? value : nullptr, 0, fromFlag, ky::LayoutRule::byLastByte);
    return static_cast<unsigned>(ky::OldLayoutSize(walk, count));
}

unsigned StringSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count) {
    return static_cast<unsigned>(SizeInFile(*file, flag, flag, count));
}

unsigned StringOldSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count) {
    return static_cast<unsigned>(SizeInFile(*file, flag, 0, count));
}
