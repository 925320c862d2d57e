#include "kyi18n.h"

namespace {

constinit const KyLanguage neutral(KyLanguageNeutral);

}  // namespace

const KyLanguage* KyLanguageContext::QueryLanguage(unsigned char language) {
    if (language == KyLanguageDefault) language = GetDefaultLanguage();
    return language == KyLanguageNeutral ? &neutral : nullptr;
}

const KyCharProps& KyLanguage::Select(const KyCharProps& record) const {
    if (variant == 0 || record.rules == nullptr) return record;
    for (const KyLanguageVariant& entry : record.rules->variants) {
        if (entry.variant == variant) return *entry.record;
    }
    return record;
}
