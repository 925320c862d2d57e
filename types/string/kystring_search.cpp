#include "kystring_search.h"

#include "code_mapping.h"
#include "kyi18n.h"
#include "kytypes.h"

namespace {

/// Neither wildcard-free bit is set.
bool AllowsWildcards(unsigned short op) { return (op & (KyCmpExact | KyCmpStringExact)) == 0; }

/// A character of this code set whose order is the one that matches any run; 0 when it has none.
unsigned short AsteriskIn(unsigned char codeSet, unsigned char language) {
    const bool narrow = ky::CharWidth(codeSet) == 1;
    const auto orderOf = [&](unsigned code) {
        return narrow ? KyChar(static_cast<char>(code), codeSet, language).GetOrder()
                      : KyChar(static_cast<unsigned short>(code), codeSet, language).GetOrder();
    };
    const unsigned short asterisk = KyString::GetAsterisk();
    if (codeSet == KyCodeSetNative || orderOf('*') == asterisk) return '*';
    const unsigned limit = narrow ? 0x100 : 0x10000;
    for (unsigned code = 1; code < limit; ++code) {
        if (orderOf(code) == asterisk) return static_cast<unsigned short>(code);
    }
    return 0;
}

/// The pattern followed by any run of characters, whatever character stands for such a run.
KyString PrefixPattern(const KyString& pattern) {
    KyString result(pattern);
    unsigned short asterisk = AsteriskIn(result.CodeSetGet(), result.LanguageGet());
    if (asterisk == 0 && result.CodeSetGet() != KyCodeSetUnicode) {
        result.MapToCodeSet(KyCodeSetUnicode);
        asterisk = AsteriskIn(KyCodeSetUnicode, result.LanguageGet());
    }
    const char narrow = static_cast<char>(asterisk);
    const char* text = result.NullLen() == 1 ? &narrow : reinterpret_cast<const char*>(&asterisk);
    result.BuildString(text, result.CodeSetGet(), result.Len(), 0, asterisk != 0, 1, 3, 1);
    return result;
}

}  // namespace

namespace ky {

Searcher::Searcher(const KyString& given, unsigned short givenOp)
    : pattern(&given),
      prefixPattern(given.CodeSetGet(), given.LanguageGet()),
      length(given.Len()),
      op(givenOp),
      wild(AllowsWildcards(givenOp)) {
    if (op == KyCmpDefault) {
        op = KyString::GetDefaultCmpOp();
        if (AllowsWildcards(op)) op |= KyCmpExact;
    }
    if (!wild || length == 0) return;
    prefixPattern = PrefixPattern(given);
    pattern = &prefixPattern;
}

bool Searcher::MatchesAt(const KyString& text, const char* position) const {
    const auto maxLen = static_cast<short>(wild ? 0xFFFF : length);
    return KyStrCmp(text.CodeSetGet(), text.LanguageGet(), position, pattern->CodeSetGet(), pattern->LanguageGet(),
                    pattern->StrGet(), op, maxLen, 1, nullptr) == 0;
}

unsigned short Searcher::Find(const KyString& text, unsigned start, unsigned limit) const {
    if (length == 0 || start + length > limit) return KyString::NotFound;
    const char* position = text.StrGet() + start * CharWidth(text.CodeSetGet());
    for (unsigned at = start; at + length <= limit; ++at, position += CharWidth(text.CodeSetGet())) {
        if (MatchesAt(text, position)) return static_cast<unsigned short>(at);
    }
    return KyString::NotFound;
}

}  // namespace ky

unsigned short KyString::Find(const KyString& pattern, unsigned short start, unsigned short op) const {
    const unsigned length = Len();
    if (length == 0 || start > length || pattern.IsEmpty()) return NotFound;
    return ky::Searcher(pattern, op).Find(*this, start, length);
}

unsigned short KyString::Find(unsigned short c, unsigned short start, unsigned short op) const {
    return Find(KyString(c), start, op);
}

unsigned short KyString::Find(char c, unsigned short start, unsigned short op) const {
    return Find(KyString(c), start, op);
}

unsigned short KyString::SubStringPos(const KyString& pattern, unsigned short op) const { return Find(pattern, 0, op); }
