#include "kyi18n.h"

unsigned short KyCodeSet::ToUnicode(unsigned short charCode) const {
    if (charCode >= limit) return 0;
    switch (mapping) {
        case byTable:
            return toUnicode[charCode];
        case identity:
            return charCode;
        default:
            return 0;
    }
}

unsigned short KyCodeSet::FromUnicode(unsigned short unicode) const {
    switch (mapping) {
        case byTable:
            return fromUnicode->pages[fromUnicode->pageOf[unicode >> 8]][unicode & 0xFF];
        case identity:
            return unicode < limit ? unicode : 0;
        default:
            return 0;
    }
}

unsigned short KyCodeSet::MapFrom(const KyCodeSet& source, unsigned short charCode) const {
    if (charCode == 0 || &source == this) return charCode;
    unsigned short mapped = 0;
    if (mapping == orders || source.mapping == orders) {
        // Order values have no characters: units are taken over as they are.
        mapped = charCode < limit ? charCode : 0;
    } else if (const unsigned short unicode = source.ToUnicode(charCode); unicode != 0) {
        mapped = FromUnicode(unicode);
    }
    if (mapped != 0) return mapped;
    const unsigned short substitute = FromUnicode(Substitute);
    return substitute != 0 ? substitute : '?';
}

const KyCharProps* KyCodeSet::GetUnicodeProps(const KyCodeSet* codeSet, unsigned short charCode,
                                              unsigned char language) {
    if (codeSet == nullptr) return nullptr;
    const KyCharProps* record;
    if (codeSet->HasPropertyTable()) {
        record = codeSet->GetProperty(charCode);
    } else {
        const KyCodeSet* unicode = KyLanguageContext::QueryCodeSet(KyCodeSetUnicode);
        record = unicode->GetProperty(codeSet->ToUnicode(charCode));
    }
    const KyLanguage* rules = KyLanguageContext::QueryLanguage(language);
    return record != nullptr && rules != nullptr ? &rules->Select(*record) : record;
}
