#include "string_bounds_constant.h"

#include <cstring>
#include <optional>

#include "compare_rules.h"
#include "kybase.h"
#include "kytypes.h"
#include "wildcard_keys.h"

namespace {

using ky::BoundText;
using ky::LiteralBeginning;

bool IsWildcardByte(char c) { return c == '*' || c == '?'; }

/// What the text begins with as a pattern; none: it has neither wildcard nor escape.
std::optional<LiteralBeginning> BeginningOf(const BoundText& s, unsigned char form, unsigned short modifiers,
                                            bool oldLayout) {
    if (s.Stored().IsNull()) return std::nullopt;
    if (s.IsLost()) return LiteralBeginning{0, 0};
    const char* const text = s.Text();
    if (oldLayout) {
        const std::size_t at = std::strcspn(text, "*?");
        if (text[at] == 0) return std::nullopt;
        return LiteralBeginning{at, static_cast<unsigned>(at)};
    }
    const ky::Wildcards wildcards;
    ky::KeyReader reader(s.View(form, ky::ReadsNeutral(modifiers)), ~0u, ~0u, false);
    for (unsigned orders = 0;; ++orders) {
        const char* const at = reader.Place();
        reader.Next();
        const unsigned short order = reader.Order();
        const LiteralBeginning before{static_cast<std::size_t>(at - text), orders};
        // A marked text is compared as the beginning of others.
        if (order == 0) return s.Stored().IsMarked() ? std::optional(before) : std::nullopt;
        if (order == wildcards.asterisk || order == wildcards.question || order == wildcards.escape) return before;
        // Plain bytes meet both plain bytes and characters, which know different wildcards.
        if (s.Stored().codeSet == KyCodeSetNative && IsWildcardByte(*at)) return before;
    }
}

/// A record in the current layout; returns its end.
unsigned char* WriteRecord(unsigned char* to, unsigned char codeSet, unsigned char language, const void* content,
                           std::size_t bytes, unsigned char form) {
    ky::WriteLength(to, static_cast<unsigned>(ky::kRecordHead + bytes), form);
    to[2] = codeSet;
    to[3] = language;
    ky::CopyBytes(to + ky::kRecordHead, content, bytes);
    to += ky::kRecordHead + bytes;
    *to++ = 0;
    *to++ = ky::kEndMarker;
    return to;
}

}  // namespace

namespace ky {

StringConstant::StringConstant(const void* value, unsigned char persistentFlag, unsigned count, LayoutRule rule,
                               unsigned short modifiers)
    : array(static_cast<const unsigned char*>(value)),
      flag(persistentFlag),
      elements(count),
      walk(value, RecordAt(0), persistentFlag, rule),
      first(walk.Current()) {
    if (AllowsWildcards(modifiers)) FindPattern(modifiers);
    if (hasPattern) {
        recordedBytes = BytesWithPattern();
    } else if (walk.IsInOldLayout()) {
        recordedBytes = RecordAt(0);
    } else {
        for (unsigned i = 0; i < count; ++i) recordedBytes += RecordAt(recordedBytes);
    }
}

void StringConstant::FindPattern(unsigned short modifiers) {
    const bool old = walk.IsInOldLayout();
    const auto isPattern = [&](const BoundText& s, std::size_t before, unsigned index) {
        const auto literals = BeginningOf(s, Form(), modifiers, old);
        if (!literals) return false;
        hasPattern = true;
        patternAt = index;
        bytesBefore = before;
        beginningBytes = literals->bytes;
        if (index == 0) beginning = *literals;
        return true;
    };
    std::size_t before = old ? kLengthField : 0;
    if (isPattern(first, before, 0)) return;
    StringWalk texts = walk;
    for (unsigned i = 1; i < elements; ++i) {
        if (old) {
            if (!texts.Next()) return;
            before = static_cast<std::size_t>(reinterpret_cast<const unsigned char*>(texts.Current().text) - array);
        } else {
            before += RecordAt(before);
            const auto current = static_cast<unsigned char>(flag | kCurrentLayout);
            texts = StringWalk(array + before, RecordAt(before), current, LayoutRule::byLastByte);
        }
        if (isPattern(BoundText(texts.Current()), before, i)) return;
    }
}

/// The strings before the pattern, what it begins with, and the lowest strings that there are.
std::size_t StringConstant::BytesWithPattern() const {
    if (patternAt == 0 && beginningBytes == 0) return 0;
    const unsigned behind = elements - patternAt - 1;
    if (walk.IsInOldLayout()) return bytesBefore + beginningBytes + 1 + behind;
    return bytesBefore + RecordSize(beginningBytes) + behind * kEmptyRecord;
}

void StringConstant::WriteWithPattern(unsigned char* to) const {
    const unsigned behind = elements - patternAt - 1;
    CopyBytes(to, array, bytesBefore);
    unsigned char* at = to + bytesBefore;
    if (walk.IsInOldLayout()) {
        WriteLength(to, static_cast<unsigned>(recordedBytes - kLengthField), Form());
        CopyBytes(at, array + bytesBefore, beginningBytes);
        ZeroBytes(at + beginningBytes, std::size_t{1} + behind);
        return;
    }
    const unsigned char* const pattern = array + bytesBefore;
    const unsigned char language = beginningBytes != 0 ? pattern[3] : static_cast<unsigned char>(KyLanguageNull);
    at = WriteRecord(at, pattern[2], language, pattern + kRecordHead, beginningBytes, Form());
    for (unsigned i = 0; i < behind; ++i) at = WriteRecord(at, pattern[2], KyLanguageNull, nullptr, 0, Form());
}

void StringConstant::Record(KyIdxBounds* out, unsigned short op) const {
    if (out == nullptr || recordedBytes == 0) return;
    if (!hasPattern) {
        SetBoundaries(out, const_cast<unsigned char*>(array), op, static_cast<unsigned>(recordedBytes));
        return;
    }
    if (out->lower != nullptr || (op & KyCmpLess) != 0) return;
    auto* block = static_cast<unsigned char*>(mmKymalloc(recordedBytes));
    if (block == nullptr) return;
    WriteWithPattern(block);
    out->lower = block;
    out->lowerLen = static_cast<unsigned char>(recordedBytes);
}

}  // namespace ky
