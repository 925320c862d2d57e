#include "generated_tables.h"

const KyCodeSet* KyLanguageContext::QueryCodeSet(unsigned char codeSet) {
    if (codeSet == KyCodeSetDefault) codeSet = GetDefaultCodeSet();
    if (codeSet == KyCodeSetNative) codeSet = GetNativeCodeSet();
    const unsigned char index = ky::tables::codeSetIndex[codeSet];
    return index != ky::tables::NoEntry ? &ky::tables::codeSets[index] : nullptr;
}
