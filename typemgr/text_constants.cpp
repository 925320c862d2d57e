#include "text_constants.h"

#include <cstring>

#include "kystring.h"

namespace {

bool IsWide(const KyString& text) { return text.NullLen() == 2; }

bool IsAscii(const char* text) {
    for (; *text != 0; ++text) {
        if ((static_cast<unsigned char>(*text) & 0x80) != 0) return false;
    }
    return true;
}

/// Whether the same characters have the same codes in both texts' code sets.
bool CodesAgree(const KyString& text, const KyString& prefix) {
    if (text.CodeSetGet() == prefix.CodeSetGet()) return true;
    return !IsWide(text) && !IsWide(prefix) && IsAscii(prefix.StrGet());
}

/// Both in one code set. A text that ends early differs at its terminator.
bool BeginsWithCodes(const KyString& text, const KyString& prefix) {
    if (!IsWide(text)) return std::strncmp(text.StrGet(), prefix.StrGet(), prefix.Len()) == 0;
    return !text.IsEmpty() && KyWStrNCmp(reinterpret_cast<const unsigned short*>(text.StrGet()),
                                         reinterpret_cast<const unsigned short*>(prefix.StrGet()), prefix.Len()) == 0;
}

// Made while the library is loaded, with the code set and language of that moment, if nobody asked before.
[[maybe_unused]] const bool madeAtLoad = (ky::NullPrintString(), ky::ZeroSourceString(), true);

}  // namespace

KyString& ky::NullPrintString() {
    static KyString* const text = new KyString("{NULL}");
    return *text;
}

KyString& ky::ZeroSourceString() {
    static KyString* const text = new KyString("0");
    return *text;
}

bool ky::BeginsWithNullPrintString(const KyString& text) {
    const KyString& prefix = NullPrintString();
    if (prefix.IsEmpty()) return false;
    if (CodesAgree(text, prefix)) return BeginsWithCodes(text, prefix);
    KyString mapped(text.CodeSetGet(), prefix.LanguageGet());
    mapped += prefix;
    return !mapped.IsEmpty() && BeginsWithCodes(text, mapped);
}
