#ifndef PEER_COLLATOR_H
#define PEER_COLLATOR_H

/// The peer's collation at its first level.

#include <unicode/ucol.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace peer {

inline int Sign(long long number) { return (number > 0) - (number < 0); }

class Collator {
public:
    explicit Collator(const char* locale) {
        UErrorCode status = U_ZERO_ERROR;
        collator.reset(ucol_open(locale, &status));
        if (U_FAILURE(status)) throw std::runtime_error(u_errorName(status));
        ucol_setStrength(collator.get(), UCOL_PRIMARY);
    }

    int Compare(const std::u16string& a, const std::u16string& b) const {
        return ucol_strcoll(collator.get(), a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()));
    }

    std::string Key(const std::u16string& text) const {
        std::string key(8 * text.size() + 16, '\0');
        const int length = ucol_getSortKey(collator.get(), text.data(), static_cast<int>(text.size()),
                                           reinterpret_cast<unsigned char*>(key.data()), static_cast<int>(key.size()));
        if (length > static_cast<int>(key.size())) throw std::runtime_error("sort key");
        key.resize(static_cast<std::size_t>(length));
        return key;
    }

private:
    struct Close {
        void operator()(UCollator* c) const { ucol_close(c); }
    };
    std::unique_ptr<UCollator, Close> collator;
};

/// How often two orders agree about pairs of texts.
struct Tally {
    unsigned long pairs = 0;
    unsigned long equalHere = 0;   ///< the peer tells them apart
    unsigned long equalThere = 0;  ///< told apart here only
    unsigned long reversed = 0;

    void Add(int here, int there) {
        ++pairs;
        if (here == there) return;
        ++(here == 0 ? equalHere : there == 0 ? equalThere : reversed);
    }
    unsigned long Disagreements() const { return equalHere + equalThere + reversed; }
    double Agreement() const {
        return 100.0 - 100.0 * static_cast<double>(Disagreements()) / static_cast<double>(pairs);
    }
};

inline std::string Utf8(const std::u16string& text) {
    std::string result;
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            result.push_back(static_cast<char>(unit));
            continue;
        }
        if (unit < 0x800) {
            result.push_back(static_cast<char>(0xC0 | unit >> 6));
        } else {
            result.push_back(static_cast<char>(0xE0 | unit >> 12));
            result.push_back(static_cast<char>(0x80 | ((unit >> 6) & 0x3F)));
        }
        result.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
    }
    return result;
}

}  // namespace peer

#endif
