#include <cstring>
#include <utility>

#include "kyi18n.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "order_print.h"
#include "text_constants.h"
#include "text_format.h"

namespace {

/// The code set that a Unicode text is printed in: the output's, else the default, else the native one.
unsigned char OutputCodeSet(const KyString& out) {
    if (out.CodeSetGet() != KyCodeSetNative) return out.CodeSetGet();
    const unsigned char codeSet = KyString::GetDefaultCodeSet();
    return codeSet != KyCodeSetNative ? codeSet : KyLanguageContext::GetNativeCodeSet();
}

/// An output that has text gets more of it. One that is empty takes over what was printed under its own language; one
/// that was null is so no more.
KyString& Append(KyString& out, KyString&& printed) {
    if (!out.IsEmpty()) return out += printed;
    printed.LanguageSet(out.IsNullValue() ? KyString::GetDefaultLanguage() : out.LanguageGet());
    return out = std::move(printed);
}

KyString PrintText(const KyString& text, const char* format, const KyString& out) {
    KyString shown(text);
    if (text.CodeSetGet() == KyCodeSetUnicode) shown.MapToCodeSet(OutputCodeSet(out));
    if (format == nullptr || std::strcmp(format, "%s") == 0) return shown;
    const auto parts = ky::ParseTextFormat(format);
    return parts ? parts->Print(shown) : KyString(shown.CodeSetGet(), shown.LanguageGet());
}

}  // namespace

KyString& KyStringPrintToKyString(KyString& out, void* value, const char* format, unsigned) {
    const KyString& text = *static_cast<const KyString*>(value);
    const bool hasText = !out.IsEmpty();
    if (text.IsNullValue()) return hasText ? out += ky::NullPrintString() : out = ky::NullPrintString();
    if (text.IsEmpty()) return hasText ? out : out = text;
    if (text.CodeSetGet() != KyCodeSetOrders) return Append(out, PrintText(text, format, out));

    ky::PrintedOrders printed = ky::PrintOrders(text, format != nullptr ? format : "%s");
    if (!printed.isAscii) printed.text.MapToCodeSet(OutputCodeSet(out));
    return Append(out, std::move(printed.text));
}
