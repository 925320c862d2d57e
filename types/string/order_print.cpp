#include "order_print.h"

#include <string>

#include "code_mapping.h"
#include "code_sets.h"
#include "kyorder_names.h"
#include "string_records.h"
#include "text_format.h"

namespace {

enum class Directive { none, plainCharacters, characters, names, substitutions };

/// The directive becomes "%s".
Directive TakeDirective(std::string& format) {
    const struct {
        const char* text;
        Directive directive;
    } directives[] = {{"%1M", Directive::plainCharacters},
                      {"%2M", Directive::characters},
                      {"%3M", Directive::names},
                      {"%4M", Directive::substitutions}};
    for (const auto& entry : directives) {
        const std::size_t at = format.find(entry.text);
        if (at == std::string::npos) continue;
        format.replace(at, 3, "%s");
        return entry.directive;
    }
    return Directive::none;
}

/// The orders of a text, and how they are to be shown.
struct Orders {
    KyString text;
    unsigned char codeSet;
    bool isMarked;

    explicit Orders(const KyString& orders) : text(orders) {
        const unsigned char language = orders.LanguageGet();
        isMarked = (language & ky::StoredText::kMark) != 0;
        codeSet = language & static_cast<unsigned char>(~ky::StoredText::kMark);
        if (codeSet == KyCodeSetNative || language == KyLanguageDefault) codeSet = KyCodeSetLatin1;
    }

    template <class Visit>
    void ForEach(const Visit& visit) const {
        const char* p = text.StrGet();
        while (const unsigned short order = ky::ReadUnit(p, KyFormNative)) {
            visit(order);
            p += 2;
        }
    }
    /// KEPT: the byte is one of `codeSet`, and is shown as that of Latin-1.
    char CharacterOf(unsigned short order, bool exact, const char*& substitution) const {
        unsigned char c = 0;
        const int status = KyConvertOrderToChar(order, codeSet, c, exact ? 1 : 0, &substitution);
        return status == 0 ? static_cast<char>(c) : '?';
    }
};

KyString Latin1(const std::string& text) {
    KyString s(KyCodeSetLatin1, KyLanguageNeutral);
    s.MakeString(text.data(), KyCodeSetLatin1, static_cast<short>(ky::LimitedLength(text.size(), 1)), 1);
    return s;
}

std::string NameOf(unsigned short order, unsigned char codeSet) {
    KyString name;
    KyConvertOrderToString(order, codeSet, name);
    return name.StrGet();
}

}  // namespace

ky::PrintedOrders ky::PrintOrders(const KyString& value, const char* format) {
    const Orders orders(value);
    std::string rewritten = format;
    const Directive directive = TakeDirective(rewritten);
    PrintedOrders printed = {KyString(KyCodeSetLatin1, KyLanguageNeutral), directive == Directive::plainCharacters};
    const auto parts = ParseTextFormat(rewritten.c_str());
    if (!parts) return printed;

    const char* substitution = "";
    const auto print = [&](const std::string& text) { printed.text += parts->Print(Latin1(text)); };
    switch (directive) {
        case Directive::none:
        case Directive::plainCharacters:
        case Directive::characters: {
            std::string joined;
            const bool exact = directive != Directive::plainCharacters;
            orders.ForEach([&](unsigned short order) { joined += orders.CharacterOf(order, exact, substitution); });
            print(joined);
            break;
        }
        case Directive::names:
            orders.ForEach([&](unsigned short order) { print(NameOf(order, orders.codeSet)); });
            if (orders.isMarked) print("[MIX]");
            break;
        case Directive::substitutions:
            orders.ForEach([&](unsigned short order) {
                const char c = orders.CharacterOf(order, true, substitution);
                print(*substitution != 0 ? std::string(substitution) : std::string(1, c));
            });
            break;
    }
    return printed;
}
