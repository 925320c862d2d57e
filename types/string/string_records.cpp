#include "string_records.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "code_mapping.h"
#include "kystring.h"
#include "kytypes.h"

namespace {

/// Flag bit: the records are in the current layout, whatever their last byte.
constexpr unsigned char kCurrentLayout = 0x80;

constexpr std::size_t kUnknown = SIZE_MAX;

}  // namespace

namespace ky {

std::size_t RecordContent(const KyString& s) {
    const std::size_t size = s.BufferSizeGet();
    return size > s.NullLen() ? size - s.NullLen() : 0;
}

std::size_t OldTextSize(const KyString& s) { return std::size_t{s.Len()} + 1; }

StringWalk::StringWalk(const void* array, std::size_t length, unsigned char flag, bool oldLayout)
    : at(static_cast<const unsigned char*>(array)), left(length != 0 ? length : kUnknown), form(flag & KyFormMask) {
    if (at == nullptr) return;
    if (form != KyFormMemory) BeginPersistent(flag, oldLayout);
    Read();
}

void StringWalk::BeginPersistent(unsigned char flag, bool oldLayout) {
    layout = oldLayout ? Layout::old : Layout::records;
    if (left >= kLengthField) {
        const unsigned length = ReadLength(at, form);
        const std::size_t size = kLengthField + length;
        if ((flag & kCurrentLayout) != 0) {
            layout = Layout::records;
        } else if (size <= left) {
            layout = IsOldLayout(at, length) ? Layout::old : Layout::records;
        }
        if (layout == Layout::old) left = std::min(left, size);
    }
    if (layout == Layout::old) {
        const std::size_t head = std::min(left, kLengthField);
        at += head;
        left -= head;
    }
}

bool StringWalk::Next() {
    if (at == nullptr || step >= left) return false;
    at += step;
    if (left != kUnknown) left -= step;
    Read();
    return true;
}

void StringWalk::Read() {
    switch (layout) {
        case Layout::memory:
            return ReadObject();
        case Layout::records:
            return ReadRecord();
        case Layout::old:
            return ReadOldText();
    }
}

void StringWalk::ReadObject() {
    const auto& s = *reinterpret_cast<const KyString*>(at);
    current = {.text = s.StrGet(),
               .bytes = RecordContent(s),
               .codeSet = s.CodeSetGet(),
               .language = s.LanguageGet(),
               .terminated = true,
               .cutShort = false};
    step = sizeof(KyString);
}

void StringWalk::ReadRecord() {
    if (left < kRecordHead) {
        current = {.cutShort = true};
        step = left;
        return;
    }
    const unsigned length = ReadLength(at, form);
    const std::size_t content = length > kRecordHead ? length - kRecordHead : 0;
    const std::size_t present = std::min(content, left - kRecordHead);
    step = kLengthField + length;
    const bool complete = step <= left;
    current = {.text = reinterpret_cast<const char*>(at) + kRecordHead,
               .bytes = present,
               .codeSet = at[2],
               .language = at[3],
               .terminated = complete && length >= kRecordHead && CharWidth(at[2]) == 1,
               .cutShort = !complete};
}

void StringWalk::ReadOldText() {
    const void* end = left != 0 ? std::memchr(at, 0, left) : nullptr;
    const std::size_t size =
        end != nullptr ? static_cast<std::size_t>(static_cast<const unsigned char*>(end) - at) : left;
    current = {.text = left != 0 ? reinterpret_cast<const char*>(at) : nullptr,
               .bytes = size,
               .codeSet = 0,
               .language = 0,
               .terminated = end != nullptr,
               .cutShort = end == nullptr};
    step = end != nullptr ? size + 1 : left;
}

}  // namespace ky
