#ifndef COMPARE_TEXTS_H
#define COMPARE_TEXTS_H

/// Texts in every code set, rich in what makes comparison hard, for the tests of the comparer.

#include <cstring>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "code_sets.h"
#include "kyi18n.h"
#include "support/guarded_buffer.h"

namespace texts {

using Codes = std::vector<unsigned short>;
using Random = std::mt19937;

inline std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

/// Letters that contractions and expansions of the languages are made of, their capitals, marks, other scripts, codes
/// that are not assigned, and the wildcards.
inline constexpr char16_t kHardCharacters[] =
    u"aaAbBccCddDeEggGhhHiIjJkKllLnnNoOrRssSttTuUyyYzzZ"
    u"\u00E4\u00C4\u00F6\u00D6\u00FC\u00DF\u00E6\u00C6\u00E5\u00C5\u00F8\u00D8\u00F1\u00D1\u00E9\u00C9\u00EA\u00AA"
    u"\u00BD"
    u"\u010D\u010C\u0161\u0160\u017E\u017D\u0133\u0132\u0153\u0152\u01C6\u01C4\u01C5\u0131\u0130\u0140\u0105\u0142"
    u"\u1E9E"
    u"\uFB01\uFB03 -_'1237*?\\"
    u"\u03B1\u0391\u03AC\u0390\u0430\u0410\u0451\u0401\u05D0\u0627\u0628\u0E01\u30A2\uAC00\uAC01\uD7A3\u1100\u4E00"
    u"\u0301\u0308\u0378\uE000\uFF21\uFF0A\uFFEF\uFFF0\uFFFD\uFFFE\uFFFF";

/// What texts of a code set are made of: the codes of the hard characters that it has, and some others.
inline Codes AlphabetOf(unsigned char codeSet) {
    Codes alphabet;
    if (codeSet == KyCodeSetOrders) {
        for (const char16_t c : kHardCharacters) {
            const KyCharProps* record = ky::CodeSetOf(KyCodeSetUnicode).GetProperty(c);
            if (record != nullptr) alphabet.push_back(record->order);
        }
        for (const int order : {1, 79, 80, 16127, 16128, 16383, 0x4000, 0x7FFF, 0x8000, 65519, 65520, 65535}) {
            alphabet.push_back(static_cast<unsigned short>(order));
        }
        return alphabet;
    }
    const KyCodeSet& set = ky::CodeSetOf(codeSet);
    for (const char16_t c : kHardCharacters) {
        const unsigned short code = set.FromUnicode(c);
        if (code != 0) alphabet.push_back(code);
    }
    if (ky::CharWidth(codeSet) == 1) {
        for (unsigned short code = 0x7F; code < 0x100; code += 3) alphabet.push_back(code);
    }
    return alphabet;
}

inline Codes RandomCodes(Random& random, const Codes& alphabet, std::size_t length) {
    Codes codes;
    while (codes.size() < length) codes.push_back(alphabet[Below(random, alphabet.size())]);
    return codes;
}

/// Mostly a few characters, sometimes more than the vectors of a machine hold.
inline std::size_t RandomLength(Random& random) {
    const std::size_t kind = Below(random, 16);
    return Below(random, kind == 0 ? 150 : kind < 4 ? 40 : 8);
}

/// The other case, where there is one.
inline unsigned short OtherCase(unsigned char codeSet, unsigned short code) {
    if (codeSet == KyCodeSetOrders)
        return static_cast<unsigned short>((code & 0xC000) == 0x4000 ? code ^ 0x1000 : code);
    const KyCodeSet& set = ky::CodeSetOf(codeSet);
    const KyCharProps* record = KyCodeSet::GetUnicodeProps(&set, code, 0);
    if (record == nullptr) return code;
    const unsigned short other = set.FromUnicode(record->upper != 0 ? record->upper : record->lower);
    return other != 0 ? other : code;
}

/// A text like another one: the same, with some characters changed, or with the same beginning.
inline Codes Variation(Random& random, unsigned char codeSet, const Codes& alphabet, Codes codes) {
    const auto any = [&] { return alphabet[Below(random, alphabet.size())]; };
    switch (Below(random, 6)) {
        case 0:
            return RandomCodes(random, alphabet, RandomLength(random));
        case 1:
            codes.resize(Below(random, codes.size() + 1));
            for (std::size_t n = Below(random, 4); n != 0; --n) codes.push_back(any());
            return codes;
        case 2:
            for (unsigned short& code : codes) {
                if (Below(random, 2) == 0) code = OtherCase(codeSet, code);
            }
            break;
        default:
            break;
    }
    for (std::size_t n = Below(random, 3); n != 0 && !codes.empty(); --n) {
        const std::size_t at = Below(random, codes.size());
        const auto place = codes.begin() + static_cast<std::ptrdiff_t>(at);
        switch (Below(random, 4)) {
            case 0:
                codes[at] = any();
                break;
            case 1:
                codes[at] = OtherCase(codeSet, codes[at]);
                break;
            case 2:
                codes.insert(place, any());
                break;
            default:
                codes.erase(place);
        }
    }
    return codes;
}

/// The bytes of a text with its terminator.
inline std::string Encoded(const Codes& codes, unsigned char codeSet, unsigned char format) {
    const unsigned width = ky::CharWidth(codeSet);
    std::string bytes((codes.size() + 1) * width, '\0');
    for (std::size_t i = 0; i < codes.size(); ++i) ky::WriteCode(bytes.data() + i * width, width, codes[i], format);
    return bytes;
}

/// A place for texts whose last page is followed by one that cannot be read.
class Area {
public:
    Area() : memory(kSize) { std::memset(memory.data(), 'x', kSize); }

    /// The terminator is `before` bytes before the end of the area; what stands around is not 0.
    const char* Put(const std::string& bytes, std::size_t before) {
        unsigned char* text = memory.data() + kSize - before - bytes.size();
        std::memset(text + bytes.size(), 'x', before);
        std::memcpy(text, bytes.data(), bytes.size());
        return reinterpret_cast<const char*>(text);
    }

    static constexpr std::size_t kSize = 0x20000;

private:
    GuardedBuffer memory;
};

}  // namespace texts

#endif
