// Store, and Load, of the ODMG types that are records of their own.

#include <array>
#include <cstdint>
#include <numeric>

#include "date_fields.h"
#include "kybase.h"
#include "odmg_fields.h"
#include "odmg_slots.h"
#include "raw_bytes.h"

namespace {

typedef std::uint16_t YearVector __attribute__((vector_size(16)));

constexpr std::size_t kRecord = ky::kOdmgTimestampBytes;
constexpr std::size_t kUnits = sizeof(YearVector) / 2;
/// So many vectors are a whole number of records.
constexpr std::size_t kVectors = std::lcm(kRecord, sizeof(YearVector)) / sizeof(YearVector);
using YearMasks = std::array<std::array<std::uint16_t, kUnits>, kVectors>;

/// All ones where the years of consecutive time stamps stand, zeros elsewhere. Because the size of a record is even, no
/// year lies in two vectors.
constexpr YearMasks MasksOfYears() {
    YearMasks masks{};
    for (std::size_t unit = 0; unit < kVectors * kUnits; unit += kRecord / 2) {
        masks[unit / kUnits][unit % kUnits] = 0xFFFF;
    }
    return masks;
}
constexpr YearMasks kYearMasks = MasksOfYears();

void SwapYearIn(unsigned char* dst, const unsigned char* src) {
    const auto year = ky::LoadAs<std::uint16_t>(src);
    ky::CopyBytes(dst + 2, src + 2, kRecord - 2);
    ky::StoreAs(dst, ky::ByteSwap(year));
}

void SwapYears(unsigned char* dst, const unsigned char* src, std::size_t bytes) {
    std::size_t at = 0;
    for (; bytes - at >= sizeof kYearMasks; at += sizeof kYearMasks) {
        for (std::size_t i = 0; i < kVectors; ++i) {
            const std::size_t place = at + i * sizeof(YearVector);
            const auto fields = ky::LoadAs<YearVector>(src + place);
            const auto mask = ky::LoadAs<YearVector>(kYearMasks[i].data());
            const YearVector swapped = fields << 8 | fields >> 8;
            ky::StoreAs<YearVector>(dst + place, (fields & ~mask) | (swapped & mask));
        }
    }
    for (; at < bytes; at += kRecord) SwapYearIn(dst + at, src + at);
}

}  // namespace

unsigned d_TimeStore(void* dst, const void* src, unsigned char, unsigned count) {
    ky::CopyBytes(dst, src, ky::kOdmgTimeBytes * count);
    return static_cast<unsigned>(ky::kOdmgTimeBytes * count);
}

unsigned d_TimestampStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    const std::size_t bytes = kRecord * count;
    if (ky::IsReversedForm(flag)) {
        SwapYears(ky::Advance(dst, 0), ky::Advance(src, 0), bytes);
    } else {
        ky::CopyBytes(dst, src, bytes);
    }
    return static_cast<unsigned>(bytes);
}
