#include "kyseal.h"

#include <cstdint>

#include "kystring.h"
#include "raw_bytes.h"

void KySeal::ConvertFrom(const KyObjId& id) {
    // The object number's low 32 bits stand behind the block part, its high 16 behind them.
    const auto* fields = reinterpret_cast<const unsigned char*>(&id);
    const auto numberLow = ky::LoadAs<std::uint32_t>(fields + 4);
    high = ky::LoadAs<std::uint16_t>(fields + 8);
    middle = static_cast<unsigned short>(numberLow >> 16);
    low = static_cast<unsigned short>(numberLow);
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
