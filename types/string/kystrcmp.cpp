#include "kystrcmp.h"

#include "code_sets.h"
#include "common_text.h"
#include "kytypes.h"
#include "string_compare.h"
#include "wildcard_compare.h"

namespace {

/// Every comparison, from the beginning on.
[[gnu::noinline]] int CompareAny(unsigned char codeSetA, unsigned char languageA, const char* a, unsigned char codeSetB,
                                 unsigned char languageB, const char* b, unsigned short op, short maxLen,
                                 unsigned char format) {
    const bool wildcards = (op & (KyCmpExact | KyCmpStringExact)) == 0;
    const bool aIsNull = ky::IsNullLabel(codeSetA, languageA);
    const bool bIsNull = ky::IsNullLabel(codeSetB, languageB);
    if (bIsNull) return aIsNull ? 0 : 1;
    // A null can match a pattern, as an empty text.
    if (aIsNull && !wildcards) return -1;
    if (maxLen == 0) return 0;

    const unsigned limit = ky::CompareLimit(maxLen);
    if (codeSetA == KyCodeSetNative && codeSetB == KyCodeSetNative) {
        if (!wildcards) return kystrcmp(a, b, maxLen == -1 ? 0 : static_cast<int>(limit));
        return ky::CompareBytesWithWildcards(a, b, limit);
    }
    const bool neutral = ky::ReadsNeutral(op);
    const ky::TextView viewA{a, codeSetA, neutral ? KyLanguageNeutral : languageA, format};
    const ky::TextView viewB{b, codeSetB, neutral ? KyLanguageNeutral : languageB, format};
    const unsigned mask = ky::KeyMask(op);
    return wildcards ? ky::CompareWithWildcards(viewA, viewB, limit, mask) : ky::CompareKeys(viewA, viewB, limit, mask);
}

}  // namespace

int KyStrCmp(unsigned char codeSetA, unsigned char languageA, const char* a, unsigned char codeSetB,
             unsigned char languageB, const char* b, unsigned short op, short maxLen, unsigned char format, int*) {
    // What nearly all comparisons are: whole texts of one label, without wildcards. Nothing in this function but jumps
    // to others, so that it has nothing to save.
    const bool literal = (op & (KyCmpExact | KyCmpStringExact)) != 0;
    const bool alike = ((codeSetA ^ codeSetB) | (languageA ^ languageB)) == 0;
    if (literal && alike && maxLen == -1 && languageA < ky::kTableLanguages && a != nullptr && b != nullptr) {
        const unsigned char language = ky::ReadsNeutral(op) ? KyLanguageNeutral : languageA;
        if (codeSetA == KyCodeSetNative) return kystrcmp(a, b, 0);
        if (codeSetA < ky::kTableCodeSets) {
            const ky::KeyTable* table = ky::keyTables[codeSetA][language].load(std::memory_order_acquire);
            if (table != nullptr) return ky::CompareByTable(*table, a, b, ky::KeyMask(op));
        } else if (codeSetA == KyCodeSetUnicode) {
            return ky::CompareByPages(ky::KeyPages(language), a, b, format, ky::KeyMask(op));
        }
    }
    return CompareAny(codeSetA, languageA, a, codeSetB, languageB, b, op, maxLen, format);
}

int kystrcmp(const char* a, const char* b, int n) {
    if (b == nullptr) return a != nullptr && *a != 0 ? 1 : 0;
    if (a == nullptr) return *b == 0 ? 0 : -1;
    const std::size_t limit = n > 0 ? static_cast<std::size_t>(n) : ~std::size_t{0};
    const std::size_t common = ky::CommonBytes(a, b, limit);
    if (common == limit) return 0;
    return static_cast<unsigned char>(a[common]) - static_cast<unsigned char>(b[common]);
}
