#include "code_sets.h"
#include "kychar.h"
#include "kystring.h"
#include "order_key.h"

namespace {

constexpr char kEmptyText[2] = {};

const char* OrEmpty(const char* text) { return text != nullptr ? text : kEmptyText; }

unsigned char Or8BitDefault(unsigned char codeSet) {
    return codeSet == KyCodeSetDefault ? KyLanguageContext::GetDefault8CodeSet() : codeSet;
}

}  // namespace

KyStringIterator::KyStringIterator(const char* text, unsigned char textCodeSet, unsigned char textLanguage,
                                   unsigned char textFormat)
    : codeSet(&ky::CodeSetOf(Or8BitDefault(textCodeSet))),
      codeSetCode(Or8BitDefault(textCodeSet)),
      language(textLanguage == KyLanguageDefault ? KyLanguageContext::GetDefaultLanguage() : textLanguage),
      orderClass(0),
      overflowCodeSet(0),
      overflowIndex(0),
      format(textFormat == 255 ? 1 : textFormat),
      position(OrEmpty(text)),
      overflow(nullptr),
      propertySet(codeSet->HasPropertyTable() ? codeSet : &ky::CodeSetOf(KyCodeSetUnicode)),
      rules(KyLanguageContext::QueryLanguage(language)),
      ownedBuffer(nullptr),
      tookContractions(false) {}

KyStringIterator::KyStringIterator(unsigned short* text, unsigned char textCodeSet, unsigned char textLanguage,
                                   unsigned char textFormat)
    : KyStringIterator(reinterpret_cast<const char*>(text), ky::TextCodeSet(textCodeSet), textLanguage, textFormat) {}

KyStringIterator::KyStringIterator(KyString& s)
    : KyStringIterator(s.StrGet(), ky::TextCodeSet(s.CodeSetGet()), s.LanguageGet(), 1) {}

KyStringIterator::KyStringIterator(const KyChar& c)
    : KyStringIterator(static_cast<const char*>(nullptr), c.CodeSetGet(), c.LanguageGet(), 1) {
    const unsigned width = ky::CharWidth(codeSetCode);
    ownedBuffer = new char[std::size_t{2} * width]();
    ky::WriteCode(ownedBuffer, width, c.CodeGet(), 1);
    position = ownedBuffer;
}

void KyStringIterator::Destroy() {
    if (ownedBuffer == nullptr) return;
    delete[] ownedBuffer;
    ownedBuffer = nullptr;
    position = kEmptyText;
}

// --- characters ---

KyChar KyStringIterator::operator*() {
    if (InOverflow()) return KyChar(overflow->items[overflowIndex++], overflowCodeSet, language);
    return KyChar(position, codeSetCode, language, format);
}

KyStringIterator& KyStringIterator::operator++() {
    Advance();
    return *this;
}

KyStringIterator& KyStringIterator::operator--() {
    overflow = nullptr;
    position -= ky::CharWidth(codeSetCode);
    return *this;
}

void KyStringIterator::Step(int forward) {
    if (forward != 0) {
        ++*this;
    } else {
        --*this;
    }
}

bool KyStringIterator::IsEOS() const {
    return overflow == nullptr && ky::ReadCode(position, ky::CharWidth(codeSetCode), format) == 0;
}

void KyStringIterator::SetOverflow(const KyWCharList* list, unsigned char listCodeSet) {
    overflow = list != nullptr && list->count != 0 ? list : nullptr;
    overflowIndex = 0;
    overflowCodeSet = listCodeSet == 255 ? codeSetCode : listCodeSet;
}

void KyStringIterator::Transform(KyStringIterator& dst, KyCharOperation& op) {
    for (; !IsEOS(); ++*this, ++dst) {
        const KyChar c = **this;
        *dst = op(c, this);
    }
}

// --- order values ---

unsigned short KyStringIterator::NextStoredOrder() {
    const auto* bytes = reinterpret_cast<const unsigned char*>(position);
    const auto order = static_cast<unsigned short>(bytes[0] | bytes[1] << 8);
    orderClass = 0;
    if (order != 0) Advance();
    return order;
}

unsigned short KyStringIterator::NextUnrecordedOrder(unsigned short code, unsigned short withClass) {
    Advance();
    if (withClass != 0) {
        const bool marker =
            code == KyString::GetAsterisk() || code == KyString::GetQuestion() || code > ky::kLastCharacterCode;
        orderClass = marker ? 0 : ky::kNoClass;
    }
    return code;
}

/// The record of the characters that count as one from the position on, which is left at the last of them.
const KyCharProps* KyStringIterator::TakeContractions(const KyCharProps* record) {
    const unsigned width = ky::CharWidth(codeSetCode);
    const auto fits = [&](const KyContraction& entry) {
        const char* next = position;
        for (unsigned i = 0; i < entry.rest.count; ++i) {
            next += width;
            const unsigned short code = ky::ReadCode(next, width, format);
            if (code == 0 || codeSet->ToUnicode(code) != entry.rest.items[i]) return false;
        }
        return true;
    };
    for (;;) {
        if (record->rules == nullptr) return record;
        const KyContraction* taken = nullptr;
        for (const KyContraction& entry : record->rules->contractions) {
            if (fits(entry)) {
                taken = &entry;
                break;
            }
        }
        if (taken == nullptr) return record;
        position += std::size_t{taken->rest.count} * width;
        record = taken->record;
        tookContractions = true;
    }
}

unsigned short KyStringIterator::GetNextOrder(unsigned short withClass) {
    unsigned short code;
    const KyCodeSet* set = codeSet;
    const KyCodeSet* table = propertySet;
    const bool fromList = InOverflow();
    if (fromList) {
        code = overflow->items[overflowIndex++];
        if (overflowCodeSet == KyCodeSetOrders) {
            // Part of an expansion: the class is still the one of the character that is expanded.
            Advance();
            return code;
        }
        set = &ky::CodeSetOf(overflowCodeSet);
        table = set->HasPropertyTable() ? set : &ky::CodeSetOf(KyCodeSetUnicode);
    } else {
        if (codeSetCode == KyCodeSetOrders) return NextStoredOrder();
        code = ky::ReadCode(position, ky::CharWidth(codeSetCode), format);
    }
    if (code == 0) {
        orderClass = 0;
        return 0;
    }
    if (table != set) code = table->MapFrom(*set, code);
    const KyCharProps* record = table->GetProperty(code);
    if (record == nullptr) return NextUnrecordedOrder(code, withClass);
    if (record->rules != nullptr) {
        if (rules != nullptr) record = &rules->Select(*record);
        if (!fromList) record = TakeContractions(record);
    }
    if (withClass != 0) orderClass = rules != nullptr ? rules->ClassOf(*record) : record->orderClass;
    if (record->rules != nullptr && record->rules->orderExpansion.count != 0) {
        SetOverflow(&record->rules->orderExpansion, KyCodeSetOrders);
    }
    Advance();
    return record->order;
}
