#include "kystring_search.h"

#include "code_mapping.h"
#include "kytypes.h"

namespace {

/// Neither wildcard-free bit is set.
bool AllowsWildcards(unsigned short op) { return (op & (KyCmpExact | KyCmpStringExact)) == 0; }

}  // namespace

namespace ky {

Searcher::Searcher(const KyString& searched, unsigned short givenOp)
    : pattern(searched), length(searched.Len()), op(givenOp), wild(AllowsWildcards(givenOp)) {
    if (op != KyCmpDefault) return;
    op = KyString::GetDefaultCmpOp();
    if (AllowsWildcards(op)) op |= KyCmpExact;
}

PrefixMatch Searcher::MatchAt(const KyString& text, const char* position) const {
    if (wild && !pattern.IsNullValue()) {
        return MatchPrefix({position, text.CodeSetGet(), text.LanguageGet(), 1},
                           {pattern.StrGet(), pattern.CodeSetGet(), pattern.LanguageGet(), 1}, op);
    }
    const auto maxLen = static_cast<short>(wild ? KyString::NotFound : length);
    const int order = KyStrCmp(text.CodeSetGet(), text.LanguageGet(), position, pattern.CodeSetGet(),
                               pattern.LanguageGet(), pattern.StrGet(), op, maxLen, 1, nullptr);
    return order == 0 ? PrefixMatch::yes : PrefixMatch::no;
}

unsigned short Searcher::Find(const KyString& text, unsigned start, unsigned limit) const {
    if (length == 0 || start + length > limit) return KyString::NotFound;
    const unsigned width = CharWidth(text.CodeSetGet());
    const char* position = text.StrGet() + std::size_t{start} * width;
    for (unsigned at = start; at + length <= limit; ++at, position += width) {
        const PrefixMatch match = MatchAt(text, position);
        if (match == PrefixMatch::yes) return static_cast<unsigned short>(at);
        if (match == PrefixMatch::never) break;
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
