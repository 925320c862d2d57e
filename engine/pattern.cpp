#include "pattern.h"

#include <algorithm>

#include "kyistring.h"
#include "kystrcmp.h"
#include "kystring.h"
#include "kywildcard.h"
#include "value.h"

namespace engine {

bool IsPattern(char type, unsigned char form, Bytes constant, unsigned short op) {
    if (!IsString(type)) return false;
    // Compared with itself it tells by the error whether it was taken for a pattern.
    auto* bytes = const_cast<unsigned char*>(constant.data());
    const auto size = static_cast<unsigned>(constant.size());
    int err = 0;
    Types().Cmp(type, size, bytes, size, bytes, op, 1, form, err);
    return err == KyErrBufferEnd;
}

bool MatchesPattern(char type, unsigned char form, Bytes value, Bytes pattern, unsigned short op) {
    const Value text = Loaded(type, form, value);
    const Value wanted = Loaded(type, form, pattern);
    if (type == KySTRING_T) {
        const auto& a = *static_cast<const KyString*>(text.Get());
        const auto& b = *static_cast<const KyString*>(wanted.Get());
        constexpr short wholeTexts = -1;
        return KyStrCmp(a.CodeSetGet(), a.LanguageGet(), a.StrGet(), b.CodeSetGet(), b.LanguageGet(), b.StrGet(), op,
                        wholeTexts, KyFormNative, nullptr) == 0;
    }
    if (type == KyISTRING_T) {
        const auto& a = *static_cast<const KyIString*>(text.Get());
        const auto& b = *static_cast<const KyIString*>(wanted.Get());
        return istrwild(b.StrGet(), a.StrGet(), b.ModeGet(), a.ModeGet()) != 0;
    }
    const auto& a = *static_cast<const KyCaseIString*>(text.Get());
    const auto& b = *static_cast<const KyCaseIString*>(wanted.Get());
    return caseistrwild(b.StrGet(), a.StrGet(), b.ModeGet(), a.ModeGet()) != 0;
}

std::vector<unsigned char> DictionaryPrefix(char type, unsigned char form, Bytes pattern) {
    const Value value = Loaded(type, form, pattern);
    const auto cut = [](auto& text, int wildcard) {
        if (wildcard >= 0) text.Cut(static_cast<unsigned short>(wildcard), -1);
    };
    if (type == KyISTRING_T) {
        auto& text = *static_cast<KyIString*>(value.Get());
        cut(text, istrwc(text.StrGet(), text.ModeGet()));
    } else {
        auto& text = *static_cast<KyCaseIString*>(value.Get());
        cut(text, caseistrwc(text.StrGet(), text.ModeGet()));
    }
    return value.Store(form);
}

std::vector<unsigned char> FirstCharacters(char type, unsigned char form, Bytes stored, unsigned short most) {
    const Value value = Loaded(type, form, stored);
    if (type == KySTRING_T) {
        auto& text = *static_cast<KyString*>(value.Get());
        const unsigned short kept = std::min(most, text.Len());
        text = kept != 0 ? text.Left(kept) : KyString(text.CodeSetGet(), text.LanguageGet());
    } else if (type == KyISTRING_T) {
        static_cast<KyIString*>(value.Get())->Cut(most, -1);
    } else {
        static_cast<KyCaseIString*>(value.Get())->Cut(most, -1);
    }
    return value.Store(form);
}

}  // namespace engine
