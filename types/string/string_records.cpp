#include "string_records.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "kybase.h"
#include "kystring.h"
#include "kystring_build.h"

namespace {

constexpr std::size_t kUnknown = SIZE_MAX;

/// A byte of a record's head; 0 where the record's own length leaves it out.
unsigned char HeadByte(const unsigned char* record, unsigned length, std::size_t offset) {
    return offset < ky::kLengthField + length ? record[offset] : 0;
}

}  // namespace

namespace ky {

unsigned char StoredText::ReadingLanguage() const {
    if (codeSet != KyCodeSetOrders || IsNull()) return language;
    const auto shownIn = static_cast<unsigned char>(language & ~kMark);
    return shownIn != 0 ? shownIn : KyCodeSetLatin1;
}

std::size_t StoredText::Characters() const { return text != nullptr ? TextLength(text, Width(), bytes / Width()) : 0; }

bool StoredText::IsAbsent() const {
    if (bytes >= Width()) return AtEnd(text, Width());
    return !cutShort || length < Width();
}

StringWalk::StringWalk(const void* array, std::size_t length, unsigned char flag, LayoutRule rule)
    : at(static_cast<const unsigned char*>(array)), left(length != 0 ? length : kUnknown), form(FormOf(flag)) {
    if (at == nullptr) return;
    if (form != KyFormMemory) BeginPersistent(flag, rule);
    if (!isMissing) Read();
}

void StringWalk::BeginPersistent(unsigned char flag, LayoutRule rule) {
    isMissing = left < kLengthField;
    if (isMissing) return;
    const unsigned length = ReadLength(at, form);
    const std::size_t size = kLengthField + length;
    const bool lastByteIsThere = size <= left;
    bool old = lastByteIsThere ? IsOldLayout(at, length) : rule != LayoutRule::byLastByte;
    if (rule == LayoutRule::old) old = true;
    if ((flag & kCurrentLayout) != 0) old = false;
    layout = old ? Layout::old : Layout::records;
    if (!old) return;
    at += kLengthField;
    left = std::min(left, size) - kLengthField;
    told = length;
}

bool StringWalk::Next() {
    if (at == nullptr || isMissing || step >= left) return false;
    at += step;
    if (left != kUnknown) left -= step;
    told -= std::min(told, step);
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
    const std::size_t content = RecordContent(s);
    current = {.text = s.StrGet(),
               .bytes = content,
               .length = content,
               .codeSet = s.CodeSetGet(),
               .language = s.LanguageGet(),
               .terminated = true,
               .cutShort = false};
    step = sizeof(KyString);
}

void StringWalk::ReadRecord() {
    if (left < kRecordHead) {
        isMissing = true;
        return;
    }
    const unsigned length = ReadLength(at, form);
    const std::size_t content = ContentOf(length);
    step = kLengthField + length;
    const bool complete = step <= left;
    const unsigned char codeSet = HeadByte(at, length, 2);
    current = {.text = reinterpret_cast<const char*>(at) + kRecordHead,
               .bytes = std::min(content, left - kRecordHead),
               .length = content,
               .codeSet = codeSet,
               .language = HeadByte(at, length, 3),
               .terminated = complete && CharWidth(codeSet) == 1 && content != 0 && at[kRecordHead + content] == 0,
               .cutShort = !complete};
}

void StringWalk::ReadOldText() {
    isMissing = left == 0;
    if (isMissing) return;
    const void* end = std::memchr(at, 0, left);
    const std::size_t size =
        end != nullptr ? static_cast<std::size_t>(static_cast<const unsigned char*>(end) - at) : left;
    current = {.text = reinterpret_cast<const char*>(at),
               .bytes = size,
               .length = end != nullptr ? size : std::max(size, told - std::min<std::size_t>(told, 1)),
               .codeSet = KyCodeSetNative,
               .language = KyLanguageNeutral,
               .terminated = end != nullptr,
               .cutShort = end == nullptr};
    step = end != nullptr ? size + 1 : left;
}

TerminatedText::TerminatedText(const StoredText& s, std::size_t without) {
    if (s.terminated && without == 0) {
        text = s.text;
        return;
    }
    const std::size_t characters = s.bytes / s.Width();
    const std::size_t bytes = (characters - std::min(characters, without)) * s.Width();
    char* copy = local;
    if (bytes > kLongestOnStack) copy = heap = static_cast<char*>(mmKymalloc(bytes + 2));
    if (copy == nullptr) return;
    CopyBytes(copy, s.text, bytes);
    copy[bytes] = copy[bytes + 1] = 0;
    text = copy;
}

TerminatedText::~TerminatedText() {
    if (heap != nullptr) mmKyfree(heap);
}

}  // namespace ky
