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
      expandedClass(KyClassLatin),
      tookContractions(false) {}

KyStringIterator::KyStringIterator(unsigned short* text, unsigned char textCodeSet, unsigned char textLanguage,
                                   unsigned char textFormat)
    : KyStringIterator(reinterpret_cast<const char*>(text), ky::TextCodeSet(textCodeSet), textLanguage, textFormat) {}

KyStringIterator::KyStringIterator(KyString& s)
    : KyStringIterator(s.StrGet(), ky::TextCodeSet(s.CodeSetGet()), s.LanguageGet(), 1) {}

KyStringIterator::KyStringIterator(const KyChar& c)
    : KyStringIterator(static_cast<const char*>(nullptr), c.CodeSetGet(), c.LanguageGet(), 1) {
    const unsigned width = ky::CharWidth(codeSetCode);
    char* copy = owned.Allocate(2 * width);
    ky::WriteCode(copy, width, c.CodeGet(), 1);
    position = copy;
}

char* KyStringIterator::OwnedText::Allocate(unsigned bytes) { return start = new char[bytes](); }

bool KyStringIterator::OwnedText::Free() {
    if (start == nullptr) return false;
    delete[] start;
    start = nullptr;
    return true;
}

void KyStringIterator::Destroy() {
    if (owned.Free()) position = kEmptyText;
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
    expandedClass = Ranked(KyClassLatin);
}

void KyStringIterator::Transform(KyStringIterator& dst, KyCharOperation& op) {
    for (; !IsEOS(); ++*this, ++dst) {
        const KyChar c = **this;
        *dst = op(c, this);
    }
}

// --- order values ---

/// What a class of the tables is in this language.
unsigned char KyStringIterator::Ranked(unsigned char neutralClass) const {
    return rules != nullptr ? rules->ClassOf({.orderClass = neutralClass}) : neutralClass;
}

/// The class of an order that follows in an expansion: that of the expanded character, if both are letters.
unsigned char KyStringIterator::ClassInList(unsigned short order) const {
    return ky::IsLetterOrder(order) ? expandedClass : Ranked(ky::DefaultClass(order));
}

unsigned short KyStringIterator::NextStoredOrder(unsigned short withClass) {
    const unsigned short order = ky::ReadOrder(position, format);
    if (order == 0) return 0;
    if (withClass != 0) orderClass = ky::DefaultClass(order);
    Advance();
    return order;
}

unsigned short KyStringIterator::NextUnrecordedOrder(unsigned short code, unsigned short withClass) {
    Advance();
    // KEPT: a marker has no class of its own and leaves that of the character before it.
    const bool marker =
        code == KyString::GetAsterisk() || code == KyString::GetQuestion() || code > ky::kLastCharacterCode;
    if (withClass != 0 && !marker) orderClass = ky::kNoClass;
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
            if (withClass != 0) orderClass = ClassInList(code);
            Advance();
            return code;
        }
        set = &ky::CodeSetOf(overflowCodeSet);
        table = set->HasPropertyTable() ? set : &ky::CodeSetOf(KyCodeSetUnicode);
    } else {
        if (codeSetCode == KyCodeSetOrders) return NextStoredOrder(withClass);
        code = ky::ReadCode(position, ky::CharWidth(codeSetCode), format);
    }
    if (code == 0) return 0;
    if (table != set) code = table->MapFrom(*set, code);
    const KyCharProps* record = table->GetProperty(code);
    if (record == nullptr) return NextUnrecordedOrder(code, withClass);
    if (record->rules != nullptr) {
        if (rules != nullptr) record = &rules->Select(*record);
        if (!fromList) record = TakeContractions(record);
    }
    const unsigned char recordClass = Ranked(record->orderClass);
    if (withClass != 0) orderClass = recordClass;
    if (record->rules != nullptr && record->rules->orderExpansion.count != 0) {
        SetOverflow(&record->rules->orderExpansion, KyCodeSetOrders);
        if (ky::IsLetterOrder(record->order)) expandedClass = recordClass;
    }
    Advance();
    return record->order;
}
