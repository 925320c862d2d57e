#ifndef INPUT_H
#define INPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/// Takes a fuzzer's input apart from the front. What is asked for beyond the end is zero or empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : at(data), left(size) {}

    std::uint8_t Byte() {
        if (left == 0) return 0;
        --left;
        return *at++;
    }

    /// Up to 255 bytes, the length taken from the input, without zero bytes.
    std::string Text() {
        std::size_t n = Byte();
        if (n > left) n = left;
        std::string text;
        for (std::size_t i = 0; i < n; ++i) {
            if (at[i] != 0) text += static_cast<char>(at[i]);
        }
        at += n;
        left -= n;
        return text;
    }

    const std::uint8_t* Rest() const { return at; }
    std::size_t RestSize() const { return left; }

private:
    const std::uint8_t* at;
    std::size_t left;
};

/// The plain number types.
inline constexpr char kNumberIds[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 42, 43};

inline char NumberId(Input& input) { return kNumberIds[input.Byte() % sizeof kNumberIds]; }

/// The same, the 64-bit integer class, the boolean and the nullable numbers.
inline constexpr char kAnyNumberIds[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 14, 26, 27, 28,
                                         29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 42, 43, 44, 45};

inline char AnyNumberId(Input& input) { return kAnyNumberIds[input.Byte() % sizeof kAnyNumberIds]; }

#endif
