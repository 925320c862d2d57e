#include "generated_tables.h"

const KyLanguage* KyLanguageContext::QueryLanguage(unsigned char language) {
    if (language == KyLanguageDefault) language = GetDefaultLanguage();
    const unsigned char index = ky::tables::languageIndex[language];
    return index != ky::tables::NoEntry ? &ky::tables::languages[index] : nullptr;
}

const KyCharProps& KyLanguage::Select(const KyCharProps& record) const {
    if (variant == 0 || record.rules == nullptr) return record;
    for (const KyLanguageVariant& entry : record.rules->variants) {
        if (entry.variant == variant) return *entry.record;
    }
    return record;
}
