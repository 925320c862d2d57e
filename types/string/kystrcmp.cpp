#include "kystrcmp.h"

#include "code_sets.h"
#include "kytypes.h"
#include "string_compare.h"
#include "wildcard_compare.h"

int KyStrCmp(unsigned char codeSetA, unsigned char languageA, const char* a, unsigned char codeSetB,
             unsigned char languageB, const char* b, unsigned short op, short maxLen, unsigned char format, int*) {
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
        ky::ByteReader text(a, limit);
        ky::ByteReader pattern(b, limit);
        return ky::CompareWithWildcards(text, pattern);
    }
    const unsigned mask = (op & KyCmpStringExact) != 0 ? ~0u : ky::KeyMask(op);
    if (!wildcards) {
        return ky::CompareKeys({a, codeSetA, languageA, format}, {b, codeSetB, languageB, format}, limit, mask);
    }
    ky::KeyReader text(a, codeSetA, languageA, format, limit, mask);
    ky::KeyReader pattern(b, codeSetB, languageB, format, limit, mask);
    return ky::CompareWithWildcards(text, pattern);
}

int kystrcmp(const char* a, const char* b, int n) {
    if (b == nullptr) return a != nullptr && *a != 0 ? 1 : 0;
    if (a == nullptr) return *b == 0 ? 0 : -1;
    for (int left = n; *a == *b && *a != 0; ++a, ++b) {
        if (--left == 0) return 0;
    }
    return static_cast<unsigned char>(*a) - static_cast<unsigned char>(*b);
}
