#ifndef INPUT_H
#define INPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "kytypes.h"

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

/// Memory without a spare byte behind it, in which the sanitizer sees every access past the end: a copy of the data,
/// over and over up to `bytes`.
inline std::unique_ptr<unsigned char[]> ExactBytes(const std::uint8_t* data, std::size_t size, std::size_t bytes) {
    auto copy = std::make_unique<unsigned char[]>(bytes);
    for (std::size_t i = 0; i < bytes; ++i) copy[i] = size == 0 ? 0 : data[i % size];
    return copy;
}

/// The plain number types.
inline constexpr char kNumberIds[] = {Ky1B_T,  Ky2B_T,       Ky4B_T,   KyDOUBLE_T, KyFLOAT_T,   KyU2B_T, KyU4B_T,
                                      KyINT_T, KyUNSIGNED_T, KyENUM_T, KyU1B_T,    KyBLOCKID_T, Ky8B_T,  KyU8B_T};

inline char NumberId(Input& input) { return kNumberIds[input.Byte() % sizeof kNumberIds]; }

/// The same, the 64-bit integer class, the boolean and the nullable numbers.
inline constexpr char kAnyNumberIds[] = {Ky1B_T,       Ky2B_T,       Ky4B_T,         KyDOUBLE_T,      KyFLOAT_T,
                                         KyU2B_T,      KyU4B_T,      KyINT_T,        KyUNSIGNED_T,    KyENUM_T,
                                         KyU1B_T,      KyBLOCKID_T,  KyINT64_T,      KyBOOLEAN_T,     KyNULL_1B_T,
                                         KyNULL_U1B_T, KyNULL_2B_T,  KyNULL_U2B_T,   KyNULL_INT_T,    KyNULL_UNSIGNED_T,
                                         KyNULL_4B_T,  KyNULL_U4B_T, KyNULL_FLOAT_T, KyNULL_DOUBLE_T, KyNULL_KYINT64_T,
                                         Ky8B_T,       KyU8B_T,      KyNULL_8B_T,    KyNULL_U8B_T};

inline char AnyNumberId(Input& input) { return kAnyNumberIds[input.Byte() % sizeof kAnyNumberIds]; }

#endif
