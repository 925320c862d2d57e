#ifndef GENERATED_STRINGS_H
#define GENERATED_STRINGS_H

/// Strings of every code set and language, the same in every run.

#include <random>
#include <string>
#include <vector>

#include "kyi18n.h"
#include "kystring.h"

/// The code sets that there are, but for the native one.
inline std::vector<unsigned char> AllCodeSets() {
    std::vector<unsigned char> codeSets;
    for (unsigned i = 1; i < 255; ++i) {
        const auto codeSet = static_cast<unsigned char>(i);
        if (KyLanguageContext::QueryCodeSet(codeSet) != nullptr) codeSets.push_back(codeSet);
    }
    return codeSets;
}

/// The languages that there are.
inline std::vector<unsigned char> AllLanguages() {
    std::vector<unsigned char> languages;
    for (unsigned i = 0; i < 254; ++i) {
        const auto language = static_cast<unsigned char>(i);
        if (KyLanguageContext::QueryLanguage(language) != nullptr) languages.push_back(language);
    }
    return languages;
}

class StringGenerator {
public:
    explicit StringGenerator(unsigned seed) : random(seed) {}

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    /// Of characters that many strings share, so that they often begin alike; some fold, expand or join.
    KyString Next(unsigned char codeSet, unsigned char language, unsigned longest) {
        std::vector<unsigned short> codes;
        for (unsigned left = Below(longest + 1); left != 0; --left) codes.push_back(Code(codeSet));
        return FromCodes(codeSet, language, codes);
    }

    static KyString FromCodes(unsigned char codeSet, unsigned char language, const std::vector<unsigned short>& codes) {
        std::string bytes;
        for (const unsigned short code : codes) {
            bytes += static_cast<char>(code & 0xFF);
            if (codeSet >= KyCodeSetFirst16Bit) bytes += static_cast<char>(code >> 8);
        }
        bytes.append(2, '\0');
        KyString s(codeSet, language);
        s.MakeString(bytes.data(), codeSet, static_cast<short>(codes.size()), 1);
        return s;
    }

    /// One character; wildcards and escapes are among them.
    unsigned short Code(unsigned char codeSet) {
        static constexpr char common[] = "aAbcChHdzZsSlLy019 -'";
        static constexpr char special[] = "*?\\";
        unsigned short unicode = 0;
        const unsigned kind = Below(16);
        if (kind == 0) {
            unicode = static_cast<unsigned char>(special[Below(3)]);
        } else if (kind < 12) {
            unicode = static_cast<unsigned char>(common[Below(sizeof common - 1)]);
        } else {
            static constexpr unsigned short further[] = {0xDF, 0xE4, 0xC4,   0xE6,   0xF8,   0x142,  0x159,  0x17F,
                                                         0xE5, 0xF1, 0x3B1,  0x434,  0x430,  0x5D0,  0x1C6,  0x4E2D,
                                                         0xE7, 0xE9, 0x1E9E, 0xAC01, 0x20AC, 0xFB01, 0x2026, 0x0E01};
            unicode = further[Below(sizeof further / sizeof *further)];
        }
        if (codeSet == KyCodeSetUnicode) return Below(24) == 0 ? AnyCode(0xFFFF) : unicode;
        if (codeSet == KyCodeSetOrders) {
            return Below(24) == 0 ? AnyCode(0xFFFF) : KyChar(unicode, KyCodeSetUnicode, 0).GetOrder();
        }
        if (Below(24) == 0) return AnyCode(0xFF);
        const KyCodeSet& set = *KyLanguageContext::QueryCodeSet(codeSet);
        const unsigned short code = set.FromUnicode(unicode);
        return code != 0 ? code : AnyCode(0xFF);
    }

private:
    std::mt19937 random;

    unsigned short AnyCode(unsigned limit) { return static_cast<unsigned short>(1 + Below(limit)); }
};

#endif
