#include "code_mapping.h"
#include "kyi18n.h"
#include "kystring.h"
#include "kytypes.h"

int KyString::SetCodeSetCode(unsigned char newCodeSet) {
    if (ky::CharWidth(newCodeSet) != ky::CharWidth(codeSet)) return KyErrRefused;
    codeSet = newCodeSet;
    return 0;
}

int KyString::MapToCodeSet(unsigned char newCodeSet) {
    if (newCodeSet == KyCodeSetNative) return KyErrRefused;
    if (newCodeSet == codeSet) return 0;
    if (buffer != nullptr) {
        char* old = buffer;
        bufferSize = ky::AllocMapped(codeSet, newCodeSet, old, buffer);
        delete[] old;
    }
    codeSet = newCodeSet;
    return 0;
}

// KEPT: between code sets of one width the bytes stay as they are, unlike in MapToCodeSet; and the label becomes 0
// when 0 is asked for, although the text is then in the native code set.
void KyString::SetCodeSet(unsigned char newCodeSet) {
    if (buffer != nullptr && ky::CharWidth(newCodeSet) != ky::CharWidth(codeSet)) {
        MapToCodeSet(newCodeSet == KyCodeSetNative ? KyLanguageContext::GetNativeCodeSet() : newCodeSet);
    }
    codeSet = newCodeSet;
}

int KyString::CopyMapped(const KyString& src, unsigned char newCodeSet, short n) {
    if (&src == this) return KyErrRefused;
    codeSet = newCodeSet;
    language = src.language;
    const unsigned short count = n == -1 ? src.Len() : static_cast<unsigned short>(n);
    return ky::AllocMappedN(src.codeSet, newCodeSet, src.StrGet(), count, buffer, bufferSize);
}
