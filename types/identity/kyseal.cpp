#include "kyseal.h"

#include "kyobjid.h"
#include "kystring.h"

void KySeal::ConvertFrom(const KyObjId& id) {
    high = id.H;
    middle = static_cast<unsigned short>(id.L >> 16);
    low = static_cast<unsigned short>(id.L);
}

void KySeal::ScanFromKyString(const KyString& text) {
    KyInt64 number;
    number.ScanFromKyString(text, sealFmt);
    ConvertFrom(number);
}

KyString& KySeal::PrintToKyString(KyString& out) const {
    KyInt64 number;
    ConvertTo(number);
    return number.PrintToKyString(out, sealFmt);
}
