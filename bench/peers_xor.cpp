#include <immintrin.h>

#include <cstring>

#include "peers.h"

namespace bench {
namespace {

/// The sums of a loop and the words behind its last block.
unsigned Fold(const unsigned (&words)[16], const unsigned char* rest, std::size_t size) {
    unsigned folded = 0;
    for (const unsigned word : words) folded ^= word;
    for (std::size_t at = 0; at < size; at += 4) {
        unsigned word;
        std::memcpy(&word, rest + at, 4);
        folded ^= word;
    }
    return folded;
}

__attribute__((target("avx512f"))) unsigned XorAvx512(const unsigned char* data, std::size_t size) {
    __m512i sums[4] = {};
    std::size_t at = 0;
    for (; at + 256 <= size; at += 256) {
        for (std::size_t lane = 0; lane < 4; ++lane) {
            sums[lane] = _mm512_xor_si512(sums[lane], _mm512_loadu_si512(data + at + 64 * lane));
        }
    }
    for (; at + 64 <= size; at += 64) sums[0] = _mm512_xor_si512(sums[0], _mm512_loadu_si512(data + at));
    const __m512i sum = _mm512_xor_si512(_mm512_xor_si512(sums[0], sums[1]), _mm512_xor_si512(sums[2], sums[3]));
    unsigned words[16];
    _mm512_storeu_si512(words, sum);
    return Fold(words, data + at, size - at);
}

__attribute__((target("avx2"))) unsigned XorAvx2(const unsigned char* data, std::size_t size) {
    __m256i sums[2] = {};
    std::size_t at = 0;
    for (; at + 64 <= size; at += 64) {
        for (std::size_t lane = 0; lane < 2; ++lane) {
            const auto* block = reinterpret_cast<const __m256i*>(data + at + 32 * lane);
            sums[lane] = _mm256_xor_si256(sums[lane], _mm256_loadu_si256(block));
        }
    }
    unsigned words[16];
    std::memcpy(words, sums, sizeof words);
    return Fold(words, data + at, size - at);
}

unsigned XorPlain(const unsigned char* data, std::size_t size) {
    unsigned words[16] = {};
    std::size_t at = 0;
    for (; at + sizeof words <= size; at += sizeof words) {
        unsigned block[16];
        std::memcpy(block, data + at, sizeof block);
        for (std::size_t i = 0; i < 16; ++i) words[i] ^= block[i];
    }
    return Fold(words, data + at, size - at);
}

}  // namespace

XorFunction BestXor() {
    if (__builtin_cpu_supports("avx512f")) return &XorAvx512;
    if (__builtin_cpu_supports("avx2")) return &XorAvx2;
    return &XorPlain;
}

}  // namespace bench
