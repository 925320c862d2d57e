#include "code_sets.h"
#include "kychar.h"
#include "kystrcmp.h"
#include "kytypes.h"
#include "order_key.h"

unsigned short GetNextOrderValue(KyStringIterator& it, unsigned short mask) {
    if (it.CodeSetGet() == KyCodeSetNative) {
        if (it.IsEOS()) return 0;
        const unsigned short byte = (*it).CodeGet();
        ++it;
        return byte;
    }
    const unsigned short order = it.GetNextOrder(0);
    return ky::IsLetterOrder(order) ? static_cast<unsigned short>(order & ~mask) : order;
}

int KyExtractSymbolFromOrder(unsigned short order, unsigned short& symbol) {
    if (order < ky::kFirstSymbol || order >= ky::kFirstDigit) return KyErrRefused;
    symbol = static_cast<unsigned short>(order - ky::kFirstSymbol);
    return 0;
}

int KyExtractDigitFromOrder(unsigned short order, unsigned short& digit, unsigned short& variant) {
    if (order < ky::kFirstDigit || order >= ky::kFirstLetter) return KyErrRefused;
    digit = static_cast<unsigned short>(((order & ~1) - ky::kFirstDigit) / 10);
    variant = order & 1;
    return 0;
}

int KyExtractLetterComponentsFromOrdering(unsigned short order, unsigned short& casePart, unsigned short& accent,
                                          unsigned short& letter, unsigned short& variant) {
    // KEPT: only Han orders are refused; callers that split an order of unknown class look at the class first.
    if (order >= ky::kFirstHan) return KyErrRefused;
    casePart = order >> 12 & 0x3;
    accent = order >> 7 & 0x1F;
    letter = order >> 2 & 0x1F;
    variant = order & 0x3;
    return 0;
}
