#include "kystring.h"
#include "kytypes.h"

int KyString::Compare(const KyString& other, short maxLen, unsigned short op) const {
    return KyStrCmp(codeSet, language, buffer, other.codeSet, other.language, other.buffer,
                    op == KyCmpDefault ? GetDefaultCmpOp() : op, maxLen, 1, nullptr);
}

bool KyString::operator==(const KyString& other) const {
    return this == &other || Compare(other, -1, KyCmpDefault) == 0;
}

int KyString::operator!=(const KyString& other) const { return Compare(other, -1, KyCmpDefault); }
bool KyString::operator<(const KyString& other) const { return Compare(other, -1, KyCmpDefault) < 0; }
bool KyString::operator<=(const KyString& other) const { return Compare(other, -1, KyCmpDefault) <= 0; }
bool KyString::operator>(const KyString& other) const { return Compare(other, -1, KyCmpDefault) > 0; }
bool KyString::operator>=(const KyString& other) const { return Compare(other, -1, KyCmpDefault) >= 0; }

int KyString::EqualsIgnoreLanguage(const KyString& other) const {
    const bool same = language == other.language;
    // KEPT: texts of different languages are compared as neutral ones, so that a null text equals an empty one.
    return KyStrCmp(codeSet, same ? language : 0, buffer, other.codeSet, same ? language : 0, other.buffer,
                    KyCmpStringExact, -1, 1, nullptr) == 0;
}
