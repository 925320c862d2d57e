#include "latin1_table.h"
#include "unicode_map.h"

namespace ky {
namespace {

constexpr KyPropertyPage kLatin1Page = Latin1PageBuilder().Build();

/// ASCII's own records; the bytes from 0x80 on, which are no characters, are the last 128 symbols.
constexpr KyPropertyPage AsciiPage() {
    KyPropertyPage page{};
    for (unsigned code = 0; code < 0x80; ++code) page.records[code] = kLatin1Page.records[code];
    for (unsigned code = 0x80; code < 0x100; ++code) {
        page.records[code].order = static_cast<unsigned short>(kFirstDigitOrder - 0x100 + code);
    }
    return page;
}

constexpr KyPropertyPage kAsciiPage = AsciiPage();

constexpr const KyPropertyPage* kLatin1Pages[] = {&kLatin1Page};
constexpr const KyPropertyPage* kAsciiPages[] = {&kAsciiPage};
constexpr const KyPropertyPage* kUnicodePages[256] = {&kLatin1Page};

constexpr ToUnicodeTable kFromAscii = AsciiToUnicode();
constexpr UnicodeMapData<2> kToAsciiData(kFromAscii);
constexpr KyUnicodeMap kToAscii = kToAsciiData.View();

constexpr ToUnicodeTable kFromWindows1252 = Windows1252ToUnicode();
constexpr UnicodeMapData<6> kToWindows1252Data(kFromWindows1252);
constexpr KyUnicodeMap kToWindows1252 = kToWindows1252Data.View();

constinit const KyCodeSet latin1(KyCodeSetLatin1, KyCodeSet::identity, kLatin1Pages);
constinit const KyCodeSet windows1252(KyCodeSetWindows1252, KyCodeSet::byTable, nullptr, kFromWindows1252.data(),
                                      &kToWindows1252);
constinit const KyCodeSet ascii(KyCodeSetAscii, KyCodeSet::byTable, kAsciiPages, kFromAscii.data(), &kToAscii);
constinit const KyCodeSet unicode(KyCodeSetUnicode, KyCodeSet::identity, kUnicodePages);
constinit const KyCodeSet orders(KyCodeSetOrders, KyCodeSet::orders, nullptr);

}  // namespace
}  // namespace ky

const KyCodeSet* KyLanguageContext::QueryCodeSet(unsigned char codeSet) {
    if (codeSet == KyCodeSetDefault) codeSet = GetDefaultCodeSet();
    if (codeSet == KyCodeSetNative) codeSet = GetNativeCodeSet();
    switch (codeSet) {
        case KyCodeSetLatin1:
            return &ky::latin1;
        case KyCodeSetWindows1252:
            return &ky::windows1252;
        case KyCodeSetAscii:
            return &ky::ascii;
        case KyCodeSetUnicode:
            return &ky::unicode;
        case KyCodeSetOrders:
            return &ky::orders;
        default:
            return nullptr;
    }
}
