#include "string_pair.h"

#include <algorithm>
#include <atomic>
#include <cstring>

#include "common_text.h"
#include "key_reader.h"
#include "kystrcmp.h"
#include "kystring.h"
#include "kystring_build.h"
#include "text_keys.h"
#include "wildcard_keys.h"

namespace ky {
namespace {

// --- without copies ---

bool IsWildcardByte(char c) { return c == '*' || c == '?'; }

/// Some character may make the text a pattern. What expands, or counts together with others, has orders that are not
/// looked up here.
template <class Keys>
bool HoldsPatternOrders(const Keys& keys, const char* text, std::size_t bytes) {
    const Wildcards wildcards;
    constexpr unsigned unclear = KeyPage::kNeedsIterator | KeyPage::kJoinsNext;
    bool found = false;
    for (const char* end = text + bytes / Keys::width * Keys::width; text != end; text += Keys::width) {
        const unsigned short order = keys.Order(text);
        found |= ((keys.Marks(text) & unclear) != 0) | (order == wildcards.asterisk) | (order == wildcards.question) |
                 (order == wildcards.escape);
    }
    return found;
}

bool AreBytes(const StoredText& a, const StoredText& b) {
    return a.codeSet == KyCodeSetNative && b.codeSet == KyCodeSetNative;
}

/// Whether the second text may hold what is not compared as it stands.
bool MayBePattern(const StoredText& a, const StoredText& b, unsigned short op, unsigned char form) {
    if (AreBytes(a, b)) return std::any_of(b.text, b.text + b.Characters(), IsWildcardByte);
    const unsigned char language = ReadsNeutral(op) ? KyLanguageNeutral : b.language;
    if (KeyPages::AreKept(b.codeSet, language)) {
        return HoldsPatternOrders(WideText{KeyPages(language), form}, b.text, b.bytes);
    }
    const KeyTable* table = KeyTableOf(b.codeSet, language);
    return table == nullptr || MayBePattern(*table, b.text, b.bytes);
}

/// Nothing where keys depend on their neighbours.
template <class Keys>
std::optional<int> CompareUnits(const Keys& keys, const StoredText& a, const StoredText& b, unsigned mask) {
    const std::size_t bytesA = a.bytes & ~std::size_t{1};
    const std::size_t bytesB = b.bytes & ~std::size_t{1};
    const std::size_t both = std::min(bytesA, bytesB);
    for (std::size_t at = 0;; at += 2) {
        at += CommonUnits(a.text + at, b.text + at, both - std::min(at, both));
        const unsigned keyA = at < bytesA ? keys.Key(a.text + at) : 0;
        const unsigned keyB = at < bytesB ? keys.Key(b.text + at) : 0;
        if (KeyPage::IsMarked(keyA | keyB)) return std::nullopt;
        if (((keyA ^ keyB) & mask) != 0) return Order(keyA & mask, keyB & mask);
        if (keyA == 0) return 0;
    }
}

// --- the characters at the end of a cut text ---

/// The largest number of characters that count as one in a language.
unsigned LongestJoined(unsigned char language) {
    static constinit std::atomic<unsigned char> ofLanguages[256] = {};  // 0: not known yet
    const unsigned char known = ofLanguages[language].load(std::memory_order_relaxed);
    if (known != 0) return known;
    const KyLanguage* rules = KyLanguageContext::QueryLanguage(language);
    const KyCodeSet& unicode = CodeSetOf(KyCodeSetUnicode);
    unsigned longest = 1;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const KyCharProps* record = unicode.GetProperty(static_cast<unsigned short>(code));
        if (record == nullptr || record->rules == nullptr) continue;
        if (rules != nullptr) record = &rules->Select(*record);
        if (record->rules == nullptr) continue;
        for (const KyContraction& entry : record->rules->contractions) {
            longest = std::max<unsigned>(longest, entry.rest.count + 1u);
        }
    }
    ofLanguages[language].store(static_cast<unsigned char>(longest), std::memory_order_relaxed);
    return longest;
}

unsigned short NextOrder(KeyReader& reader) {
    reader.Next();
    return reader.Order();
}

/// The buffer's end leaves open how the text goes on.
bool IsCut(const StoredText& s) { return s.cutShort && s.Characters() == s.bytes / s.Width(); }

}  // namespace

bool MayBePattern(const KeyTable& table, const char* text, std::size_t bytes) {
    return HoldsPatternOrders(NarrowText{&table}, text, bytes);
}

std::optional<int> CompareInPlace(const StoredText& a, const StoredText& b, unsigned short op, unsigned char form) {
    if (a.cutShort || b.cutShort) return std::nullopt;
    if (AllowsWildcards(op)) {
        if (a.IsNull() || b.IsMarked() || MayBePattern(a, b, op, form)) return std::nullopt;
        op |= KyCmpExact;
    }
    if (a.terminated && b.terminated) {
        return KyStrCmp(a.codeSet, a.ReadingLanguage(), a.text, b.codeSet, b.ReadingLanguage(), b.text, op, -1, form,
                        nullptr);
    }
    if (a.codeSet != b.codeSet || a.IsNull() || b.IsNull()) return std::nullopt;
    const unsigned mask = KeyMask(op);
    if (a.codeSet == KyCodeSetOrders) return CompareUnits(OrderText{form}, a, b, mask);
    const bool neutral = ReadsNeutral(op);
    const bool sameLanguage = neutral || a.language == b.language;
    const unsigned char language = neutral ? KyLanguageNeutral : a.language;
    if (!sameLanguage || !KeyPages::AreKept(a.codeSet, language)) return std::nullopt;
    return CompareUnits(WideText{KeyPages(language), form}, a, b, mask);
}

StringPair::StringPair(const StoredText& a, const StoredText& b, unsigned short compareOp, unsigned char formOfBoth)
    : firstIsCut(IsCut(a)),
      secondIsCut(IsCut(b)),
      firstLength(a.length),
      secondLength(b.length),
      first(a),
      second(b),
      op(compareOp),
      form(formOfBoth),
      areBytes(AreBytes(a, b)),
      textA(a, firstIsCut ? UncertainCharacters(a) : 0),
      textB(b, secondIsCut ? UncertainCharacters(b) : 0) {}

unsigned char StringPair::LanguageOf(const StoredText& s) const {
    return ReadsNeutral(op) ? KyLanguageNeutral : s.ReadingLanguage();
}

KeyReader StringPair::ReaderOf(const StoredText& s, const char* text) const {
    return KeyReader({text, s.codeSet, LanguageOf(s), form}, ~0u, ~0u, false);
}

/// What is cut off may count as one with the last characters.
std::size_t StringPair::UncertainCharacters(const StoredText& s) const {
    return areBytes || s.codeSet == KyCodeSetOrders ? 0 : LongestJoined(LanguageOf(s)) - 1;
}

/// An escape and what it escapes are one key; what the last one of a cut text escapes is not known.
std::size_t StringPair::KeysOf(const StoredText& s, const char* text, std::size_t most, bool hasEscapes) const {
    if (areBytes) return strnlen(text, most);
    const unsigned short escape = KyString::GetEscape();
    KeyReader reader = ReaderOf(s, text);
    std::size_t keys = 0;
    for (; keys < most; ++keys) {
        unsigned short order = NextOrder(reader);
        if (hasEscapes && order == escape) order = NextOrder(reader);
        if (order == 0) break;
    }
    return keys;
}

std::optional<LiteralPart> StringPair::Literals() const {
    return second.codeSet == KyCodeSetNative ? LiteralBytes() : LiteralOrders();
}

std::optional<LiteralPart> StringPair::LiteralBytes() const {
    const char* text = textB.Text();
    const std::size_t at = std::strcspn(text, "*?");
    if (text[at] == 0) return std::nullopt;
    return LiteralPart{at, text[at] == '*' && text[at + 1] == 0 && !secondIsCut};
}

/// An escape and what it escapes are one order; an escape at the end stands for itself.
std::optional<LiteralPart> StringPair::LiteralOrders() const {
    const Wildcards wildcards;
    KeyReader reader = ReaderOf(second, textB.Text());
    for (std::size_t keys = 0;; ++keys) {
        const unsigned short order = NextOrder(reader);
        if (order == 0) return second.IsMarked() ? std::optional(LiteralPart{keys, false}) : std::nullopt;
        if (order == wildcards.question) return LiteralPart{keys, false};
        if (order == wildcards.asterisk) return LiteralPart{keys, NextOrder(reader) == 0 && !secondIsCut};
        if (order == wildcards.escape) NextOrder(reader);
    }
}

int StringPair::Compare(std::size_t keys) const {
    // A text that has more keys than the comparer can be told to look at is compared by fewer, which leaves more open.
    constexpr std::size_t most = 0xFFFE;
    const short limit = keys == kAllKeys ? short{-1} : static_cast<short>(std::min(keys, most));
    return KyStrCmp(first.codeSet, first.ReadingLanguage(), textA.Text(), second.codeSet, second.ReadingLanguage(),
                    textB.Text(), op, limit, form, nullptr);
}

}  // namespace ky
