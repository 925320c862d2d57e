/// Store, Load and the sizes of strings.

#include <cstring>

#include "code_mapping.h"
#include "kybase.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "mem_file_bytes.h"
#include "string_records.h"

namespace {

constexpr unsigned char Form(unsigned char flag) { return flag & KyFormMask; }

const KyString& ValueAt(const void* values, unsigned i) { return static_cast<const KyString*>(values)[i]; }

std::size_t StoreRecord(unsigned char* record, const KyString& s, unsigned char form) {
    const std::size_t content = ky::RecordContent(s);
    ky::WriteLength(record, static_cast<unsigned>(ky::RecordSize(content) - ky::kLengthField), form);
    record[2] = s.CodeSetGet();
    record[3] = s.LanguageGet();
    if (content != 0) {
        auto* text = reinterpret_cast<char*>(record + ky::kRecordHead);
        // A half unit at the end is one of the zeros behind the text; swapping leaves it out.
        text[content - 1] = 0;
        KyMemCpy(text, s.StrGet(), static_cast<short>(s.NullLen()), form, static_cast<unsigned>(content));
    }
    record[ky::kRecordHead + content] = 0;
    record[ky::kRecordHead + content + 1] = ky::kEndMarker;
    return ky::RecordSize(content);
}

/// The 8-bit text of a string as the old layout holds it: bytes as they are, 16-bit characters mapped.
std::size_t StoreOldText(unsigned char* to, const KyString& s) {
    if (s.NullLen() == 1) {
        const std::size_t size = ky::OldTextSize(s);
        std::memcpy(to, s.StrGet(), size);
        return size;
    }
    KyString narrow(KyString::GetDefault8CodeSet(), s.LanguageGet());
    narrow += s;
    return StoreOldText(to, narrow);
}

std::size_t LoadRecord(KyString& s, const unsigned char* record, unsigned char form) {
    const unsigned length = ky::ReadLength(record, form);
    const unsigned char codeSet = record[2];
    s.Destroy();
    s.SetCodeSet(codeSet);
    s.LanguageSet(record[3]);
    const std::size_t count = length > ky::kRecordHead ? (length - ky::kRecordHead) / ky::CharWidth(codeSet) : 0;
    s.MakeString(reinterpret_cast<const char*>(record) + ky::kRecordHead, codeSet, static_cast<short>(count), form);
    return ky::kLengthField + length;
}

void LoadOldTexts(KyString* strings, const unsigned char* texts, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
        strings[i] = reinterpret_cast<const char*>(texts);
        texts += strings[i].BufferSizeGet();
    }
}

/// Bytes of `count` records from `at` on, or of the old layout's array.
unsigned StoredSize(const void* at, unsigned char form, unsigned count) {
    unsigned total = 0;
    for (unsigned i = 0; i < count; ++i) {
        const unsigned length = ky::ReadLength(ky::Advance(at, total), form);
        if (i == 0 && ky::IsOldLayout(at, length)) return static_cast<unsigned>(ky::kLengthField) + length;
        total += static_cast<unsigned>(ky::kLengthField) + length;
    }
    return total;
}

/// Old-layout bytes of `count` strings given in any form.
unsigned OldSizeOf(const void* value, unsigned char flag, unsigned count) {
    if (Form(flag) != KyFormMemory) {
        const unsigned length = ky::ReadLength(value, Form(flag));
        if (ky::IsOldLayout(value, length)) return static_cast<unsigned>(ky::kLengthField) + length;
    }
    std::size_t total = ky::kLengthField;
    ky::StringWalk walk(value, 0, flag, true);
    for (unsigned i = 0; i < count; ++i) {
        if (i != 0 && !walk.Next()) break;
        const ky::StoredText& s = walk.Current();
        std::size_t length = 0;
        const unsigned width = ky::CharWidth(s.codeSet);
        while ((length + 1) * width <= s.bytes) {
            const char* p = s.text + length * width;
            if (p[0] == 0 && p[width - 1] == 0) break;
            ++length;
        }
        total += length + 1;
    }
    return static_cast<unsigned>(total);
}

}  // namespace

unsigned StringStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        total += StoreRecord(ky::Advance(dst, total), ValueAt(src, i), Form(flag));
    }
    return static_cast<unsigned>(total);
}

unsigned StringOldStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) {
        total += StoreOldText(ky::Advance(dst, ky::kLengthField + total), ValueAt(src, i));
    }
    const auto field = static_cast<unsigned short>(total);
    ShortStoreOne(dst, &field, flag);
    return static_cast<unsigned>(total + ky::kLengthField);
}

unsigned StringLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    auto* strings = static_cast<KyString*>(dst);
    const unsigned length = ky::ReadLength(src, Form(flag));
    if (ky::IsOldLayout(src, length)) {
        LoadOldTexts(strings, ky::Advance(src, ky::kLengthField), count);
        // KEPT: the size of the whole array, whatever the count.
        return static_cast<unsigned>(ky::kLengthField) + length;
    }
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) total += LoadRecord(strings[i], ky::Advance(src, total), Form(flag));
    return static_cast<unsigned>(total);
}

unsigned StringNullSizeGet(unsigned count) { return static_cast<unsigned>(ky::kEmptyRecord) * count; }

unsigned StringSizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count) {
    if (Form(toFlag) == KyFormMemory) return static_cast<unsigned>(sizeof(KyString)) * count;
    if (value == nullptr) return StringNullSizeGet(count);
    if (Form(fromFlag) != KyFormMemory) return StoredSize(value, Form(fromFlag), count);
    std::size_t total = 0;
    for (unsigned i = 0; i < count; ++i) total += ky::RecordSize(ky::RecordContent(ValueAt(value, i)));
    return static_cast<unsigned>(total);
}

unsigned StringOldSizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count) {
    if (Form(toFlag) == KyFormMemory) return static_cast<unsigned>(sizeof(KyString)) * count;
    if (value == nullptr) return static_cast<unsigned>(ky::kLengthField) + count;
    return OldSizeOf(value, fromFlag, count);
}

unsigned StringSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count) {
    long total = 0;
    for (unsigned i = 0; i < count; ++i) {
        const unsigned char* head = ky::BytesOfFile(*file, total, ky::kLengthField);
        if (head == nullptr) break;
        const unsigned length = ky::ReadLength(head, Form(flag));
        const long size = static_cast<long>(ky::kLengthField + length);
        const unsigned char* record = ky::BytesOfFile(*file, total, size);
        total += size;
        if (record == nullptr || (i == 0 && ky::IsOldLayout(record, length))) break;
    }
    return static_cast<unsigned>(total);
}

unsigned StringOldSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count) {
    return StringSizeGetFromMemFile(file, flag, count);
}
