#include <algorithm>
#include <memory>

#include "code_mapping.h"
#include "kystring.h"
#include "kystring_build.h"

KyString& KyString::CutRange(unsigned pos, unsigned n) {
    const unsigned width = ky::CharWidth(codeSet);
    const std::size_t head = std::size_t{pos} * width;
    const char* rest = buffer + head + std::size_t{n} * width;
    const std::size_t restBytes = ContentBytes() - static_cast<std::size_t>(rest - buffer);
    ky::BlockWriter block(head + restBytes + width, width);
    block.Put(buffer, head, head);
    block.Put(rest, restBytes, restBytes);
    TakeOver(block);
    return *this;
}

KyString& KyString::Cut(unsigned short pos, short n) {
    const int left = int{Len()} - pos;
    const int count = n == -1 ? left : std::min<int>(n, left);
    if (count < 1) return *this;
    return CutRange(pos, static_cast<unsigned>(count));
}

KyString& KyString::Insert(const KyString& s, unsigned short pos) {
    if (pos <= Len()) BuildString(s.StrGet(), s.codeSet, pos, 0, s.Len(), 1, ky::kInsert, 1);
    return *this;
}

KyString& KyString::Replace(const KyString& s, unsigned short pos) {
    const int count = std::min<int>(s.Len(), int{Len()} - pos);
    if (count >= 1)
        BuildString(s.StrGet(), s.codeSet, pos, 0, static_cast<unsigned short>(count), 1, ky::kOverwrite, 1);
    return *this;
}

// --- trimming ---

unsigned KyString::LeadingSpaces(unsigned length) const {
    const unsigned char charCodeSet = ky::TextCodeSet(codeSet);
    const unsigned width = ky::CharWidth(charCodeSet);
    unsigned n = 0;
    while (n < length && KyChar(buffer + std::size_t{n} * width, charCodeSet, language, 1).IsSpace()) ++n;
    return n;
}

unsigned KyString::LengthWithoutTrailingSpaces(unsigned length) const {
    const unsigned char charCodeSet = ky::TextCodeSet(codeSet);
    const unsigned width = ky::CharWidth(charCodeSet);
    while (length > 0 && KyChar(buffer + std::size_t{length - 1} * width, charCodeSet, language, 1).IsSpace()) --length;
    return length;
}

KyString& KyString::LeftTrim() {
    const unsigned spaces = LeadingSpaces(Len());
    return spaces == 0 ? *this : CutRange(0, spaces);
}

KyString& KyString::RightTrim() {
    const unsigned length = Len();
    const unsigned kept = LengthWithoutTrailingSpaces(length);
    return kept == length ? *this : CutRange(kept, length - kept);
}

KyString& KyString::Trim() {
    const unsigned length = Len();
    const unsigned begin = LeadingSpaces(length);
    const unsigned kept = LengthWithoutTrailingSpaces(length);
    if (begin == 0 && kept == length) return *this;
    const unsigned width = ky::CharWidth(codeSet);
    const std::size_t bytes = kept > begin ? std::size_t{kept - begin} * width : 0;
    ky::BlockWriter block(bytes + width, width);
    block.Put(buffer + std::size_t{begin} * width, bytes, bytes);
    TakeOver(block);
    return *this;
}

// --- mapping each character ---

KyString& KyString::ToLower() {
    KyCharToLower lower;
    return Transform(lower);
}

KyString& KyString::ToUpper() {
    KyCharToUpper upper;
    return Transform(upper);
}

KyString& KyString::Transform(KyCharOperation& op) {
    if (buffer == nullptr) return *this;
    const unsigned char charCodeSet = ky::TextCodeSet(codeSet);
    const unsigned width = ky::CharWidth(charCodeSet);
    const std::size_t limit = MaxBytes - width;
    ky::WorkArea work(2 * std::size_t{bufferSize});
    std::size_t used = 0;
    KyStringIterator source(*this);
    for (; !source.IsEOS(); ++source, used += width) {
        if (used + width > limit) {
            ky::CheckStringOverflow();
            break;
        }
        KyChar(work.At(used, width), charCodeSet, language, 1) = op(*source, &source);
    }
    ky::BlockWriter block(used + width, width);
    block.Put(work.At(0, 0), used, used);
    TakeOver(block);
    return *this;
}
