#include "kystrcmp.h"

#include "code_sets.h"
#include "common_text.h"
#include "kytypes.h"
#include "string_compare.h"
#include "wildcard_compare.h"

namespace {

using ky::TextView;

[[gnu::noinline]] int CompareAny(TextView a, TextView b, unsigned short op, short maxLen) {
    const bool wildcards = (op & (KyCmpExact | KyCmpStringExact)) == 0;
    const bool aIsNull = ky::IsNullLabel(a.codeSet, a.language);
    const bool bIsNull = ky::IsNullLabel(b.codeSet, b.language);
    if (bIsNull) return aIsNull ? 0 : 1;
    // A null can match a pattern, as an empty text.
    if (aIsNull && !wildcards) return -1;
    if (maxLen == 0) return 0;

    const unsigned limit = ky::CompareLimit(maxLen);
    if (a.codeSet == KyCodeSetNative && b.codeSet == KyCodeSetNative) {
        if (!wildcards) return kystrcmp(a.text, b.text, maxLen == -1 ? 0 : static_cast<int>(limit));
        return ky::CompareBytesWithWildcards(a.text, b.text, limit);
    }
    if (ky::ReadsNeutral(op)) a.language = b.language = KyLanguageNeutral;
    const unsigned mask = ky::KeyMask(op);
    return wildcards ? ky::CompareWithWildcards(a, b, limit, mask) : ky::CompareKeys(a, b, limit, mask);
}

}  // namespace

int KyStrCmp(unsigned char codeSetA, unsigned char languageA, const char* a, unsigned char codeSetB,
             unsigned char languageB, const char* b, unsigned short op, short maxLen, unsigned char format, int*) {
    // What nearly all comparisons are: whole texts of one label, without wildcards.
    const bool literal = (op & (KyCmpExact | KyCmpStringExact)) != 0;
    if (literal && codeSetA == codeSetB && languageA == languageB && maxLen == -1 && a != nullptr && b != nullptr) {
        const unsigned char language = ky::ReadsNeutral(op) ? KyLanguageNeutral : languageA;
        if (ky::KeyPages::AreKept(codeSetA, languageA)) {
            return ky::CompareByPages(ky::KeyPages(language), a, b, format, ky::KeyMask(op));
        }
        if (codeSetA == KyCodeSetNative && languageA != KyLanguageNull) return kystrcmp(a, b, 0);
        const ky::KeyTable* table = languageA < ky::kTableLanguages ? ky::KeyTableOf(codeSetA, language) : nullptr;
        if (table != nullptr) return ky::CompareByTable(*table, a, b, ky::KeyMask(op));
    }
    return CompareAny({a, codeSetA, languageA, format}, {b, codeSetB, languageB, format}, op, maxLen);
}

int kystrcmp(const char* a, const char* b, int n) {
    if (b == nullptr) return a != nullptr && *a != 0 ? 1 : 0;
    if (a == nullptr) return *b == 0 ? 0 : -1;
    std::size_t common;
    if (n <= 0) {
        common = ky::CommonText<1>(a, b);
    } else {
        const auto limit = static_cast<std::size_t>(n);
        common = ky::CommonTextFrom<1>(a, b, 0, limit);
        if (common == limit) return 0;
    }
    return static_cast<unsigned char>(a[common]) - static_cast<unsigned char>(b[common]);
}
