#include <cstring>
#include <utility>

#include "kyi18n.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "text_constants.h"
#include "text_format.h"

namespace {

/// The code set that a Unicode text is printed in: the output's, else the default, else the native one.
unsigned char OutputCodeSet(const KyString& out) {
    if (out.CodeSetGet() != KyCodeSetNative) return out.CodeSetGet();
    const unsigned char codeSet = KyString::GetDefaultCodeSet();
    return codeSet != KyCodeSetNative ? codeSet : KyLanguageContext::GetNativeCodeSet();
}

/// Takes over what was printed under the output's own language; an output that was null is so no more.
KyString& Take(KyString& out, KyString&& printed) {
    printed.LanguageSet(out.IsNullValue() ? KyString::GetDefaultLanguage() : out.LanguageGet());
    return out = std::move(printed);
}

}  // namespace

KyString& KyStringPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    const KyString& text = *static_cast<const KyString*>(value);
    if (text.IsNullValue()) return out = ky::NullPrintString();
    if (text.IsEmpty()) return out = text;

    KyString shown(text);
    if (text.CodeSetGet() == KyCodeSetUnicode) shown.MapToCodeSet(OutputCodeSet(out));
    if (format == nullptr || std::strcmp(format, "%s") == 0) return Take(out, std::move(shown));
    const auto parts = ky::ParseTextFormat(format);
    return Take(out, parts ? parts->Print(shown) : KyString(shown.CodeSetGet(), shown.LanguageGet()));
}
