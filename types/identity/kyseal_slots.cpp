#include "kyseal_slots.h"

#include <cstdint>

#include "array_order.h"
#include "kybase.h"
#include "kystring.h"
#include "number_bounds.h"
#include "raw_bytes.h"
#include "record_text.h"

namespace {

constexpr unsigned kWords = 3;
constexpr long long kHighestSeal = 0xFFFFFFFFFFFF;

bool IsMemory(unsigned char flag) { return (flag & KyFormMask) == KyFormMemory; }

int CompareBytes(const void* a, const void* b) {
    const auto* x = static_cast<const unsigned char*>(a);
    const auto* y = static_cast<const unsigned char*>(b);
    int difference = 0;
    for (std::size_t i = 0; i < sizeof(KySeal) && difference == 0; ++i) difference = x[i] - y[i];
    return difference;
}

int CompareNumbers(const void* a, const void* b) { return ky::LoadAs<KySeal>(a) != ky::LoadAs<KySeal>(b); }

/// The XOR of seals is one, too, for each word and in any byte order of them.
struct XorOfSeals {
    std::uint16_t words[kWords] = {};

    XorOfSeals(const void* seals, std::size_t count) {
        // Four seals are three 8-byte words.
        constexpr std::size_t block = 4 * sizeof(KySeal);
        std::uint64_t sums[block / sizeof(std::uint64_t)] = {};
        std::size_t left = count * sizeof(KySeal);
        for (; left >= block; left -= block, seals = ky::Advance(seals, block)) {
            for (std::size_t i = 0; i < std::size(sums); ++i) {
                sums[i] ^= ky::LoadAs<std::uint64_t>(ky::Advance(seals, i * sizeof(std::uint64_t)));
            }
        }
        Add(sums, sizeof sums);
        Add(seals, left);
    }

private:
    void Add(const void* seals, std::size_t bytes) {
        for (std::size_t i = 0; i < bytes / sizeof words[0]; ++i) {
            words[i % kWords] ^= ky::LoadAs<std::uint16_t>(ky::Advance(seals, i * sizeof words[0]));
        }
    }
};

KyInt64 Load(const void* stored) {
    KySeal seal;
    SealLoad(&seal, stored, KyFormNative, 1);
    KyInt64 number;
    seal.ConvertTo(number);
    return number;
}

}  // namespace

unsigned SealStore(void* dst, const void* src, unsigned char, unsigned count) {
    return ShortStore(dst, src, KyFormReversed, kWords * count);
}

unsigned SealLoad(void* dst, const void* src, unsigned char, unsigned count) {
    return ShortStore(dst, src, KyFormReversed, kWords * count);
}

unsigned SealNullSizeGet(unsigned count) { return sizeof(KySeal) * count; }

unsigned SealSizeGet(const void*, unsigned char, unsigned char, unsigned count) { return SealNullSizeGet(count); }

unsigned SealSizeGetFromMemFile(MemFile*, unsigned char, unsigned count) { return SealNullSizeGet(count); }

int SealCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                int& err) {
    return ky::CompareArrays(sizeof(KySeal), len1, a, len2, b, count, err,
                             IsMemory(flag) ? &CompareNumbers : &CompareBytes);
}

unsigned SealHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    err = 0;
    if (count == 0) return 0;
    const std::size_t visited = ky::ElementsInside(len, sizeof(KySeal), count);
    err = ky::BufferEndError(visited, visited, count);
    XorOfSeals all(data, visited);
    if (!IsMemory(flag)) ShortStore(all.words, all.words, KyFormReversed, kWords);
    const auto [high, middle, low] = all.words;
    return ky::kHashFactor * ((std::uint32_t{middle} << 16 | low) ^ high);
}

float SealEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char, unsigned count,
                       KyIdxBounds* out) {
    float share = 0;
    if (bounds != nullptr) {
        const KyInt64 lower = bounds->lower != nullptr ? Load(bounds->lower) : 0;
        const KyInt64 upper = bounds->upper != nullptr ? Load(bounds->upper) : kHighestSeal;
        share = ky::KeptShare(op, Load(value), lower, upper);
    }
    ky::RecordLimits(out, value, op, [=] { return SealNullSizeGet(count); });
    return share;
}

KyTypeConvertData* SealConvertToKyString(void* value, unsigned count) {
    return ky::ConvertToTexts<KySeal>(value, count,
                                      [](KyString& text, const KySeal& seal) { seal.PrintToKyString(text); });
}

void* SealConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::ConvertFromTexts<KySeal>(SealCreate, SealDelete, data, count, [](const KyString* text) {
        KySeal seal;
        if (text != nullptr) seal.ScanFromKyString(*text);
        return seal;
    });
}

KyString& SealPrintToKyString(KyString& out, void* value, const char*, unsigned) {
    return ky::LoadAs<KySeal>(value).PrintToKyString(out);
}

void* SealScanFromKyString(void* value, KyString& text, const char*, unsigned) {
    if (value == nullptr) return nullptr;
    KySeal seal;
    seal.ScanFromKyString(text);
    ky::StoreAs(value, seal);
    return value;
}
