#ifndef BROKEN_TEXTS_H
#define BROKEN_TEXTS_H

#include <cstddef>
#include <random>
#include <string>

#include "oracle/slow_utf8.h"

/// Generates UTF-8 of all kinds: whole texts of one or several alphabets, and texts with every kind of mistake.
class TextGenerator {
public:
    explicit TextGenerator(unsigned seed) : random(seed) {}

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random()) % limit; }

    /// A text without mistakes and without zero characters, in 16-bit characters.
    std::string Whole(std::size_t characters) {
        const unsigned kind = Below(7);
        std::string text;
        for (std::size_t i = 0; i < characters; ++i) text += SlowUtf8OfUnit(Character(kind));
        return text;
    }

    /// A text with up to three mistakes.
    std::string Broken(std::size_t characters) {
        std::string text = Whole(characters);
        for (unsigned mistakes = Below(4); mistakes != 0; --mistakes) Damage(text);
        return text;
    }

private:
    unsigned Character(unsigned kind) {
        switch (kind) {
            case 0:
                return 1 + Below(0x7F);
            case 1:  // German
                return Below(30) == 0 ? 0xC0 + Below(64) : 0x20 + Below(0x5F);
            case 2:  // Russian
                return Below(7) == 0 ? ' ' : 0x410 + Below(64);
            case 3:  // Chinese
                return Below(20) == 0 ? '.' : 0x4E00 + Below(0x5000);
            case 4:  // at the borders of the forms
                return borders[Below(sizeof borders / sizeof *borders)];
            case 5:
                return 1 + Below(0x7FF);
            default:
                return 1 + Below((1u << (7 + Below(10))) - 1);
        }
    }

    void Damage(std::string& text) {
        const std::size_t at = text.empty() ? 0 : Below(static_cast<unsigned>(text.size()));
        switch (Below(10)) {
            case 0:  // any byte in place of one
                if (!text.empty()) text[at] = static_cast<char>(Below(256));
                break;
            case 1:
                if (!text.empty()) text.erase(at, 1);
                break;
            case 2:
                text.insert(at, 1, static_cast<char>(Below(256)));
                break;
            case 3:  // a byte that begins or continues where none does
                text.insert(at, 1, static_cast<char>(0x80 + Below(128)));
                break;
            case 4:  // one bit
                if (!text.empty()) text[at] = static_cast<char>(text[at] ^ 1 << Below(8));
                break;
            case 5:  // cut off
                text.resize(at);
                break;
            case 6: {  // longer than needed
                const int length = 2 + static_cast<int>(Below(5));
                text.insert(at, SlowUtf8(Below(1u << SlowUtf8Bits(length - 1)), length));
                break;
            }
            case 7:  // a form of four to six bytes
                text.insert(at, SlowUtf8(static_cast<unsigned>(random()) >> 1 >> Below(15)));
                break;
            case 8:
                text.insert(at, 1, '\0');
                break;
            default:  // low 16 bits zero
                text.insert(at, SlowUtf8((1 + Below(0x10)) << 16));
                break;
        }
    }

    static constexpr unsigned borders[] = {1,     0x7E,  0x7F,   0x80,   0xFF,   0x7FE,  0x7FF,
                                           0x800, 0xFFF, 0x1000, 0xD7FF, 0xD800, 0xDFFF, 0xFFFF};
    std::mt19937 random;
};

#endif
