#include <cstdint>
#include <cstring>

#include "byte_order_kernels.h"
#include "byte_swap.h"
#include "kybase.h"

namespace {

using ky::ArrayKernel;

bool IsReversed(unsigned char flag) { return (flag & 15) == 2; }

template <class Value>
unsigned ConvertOne(void* dst, const void* src, unsigned char flag) {
    Value value;
    std::memcpy(&value, src, sizeof value);
    if (IsReversed(flag)) value = ky::ByteSwap(value);
    std::memcpy(dst, &value, sizeof value);
    return sizeof value;
}

/// Between these sizes the wide registers are faster than the C library, which knows better how to go beyond the
/// first cache and which of its ways is shortest for a few bytes.
constexpr std::size_t smallestOwnCopy = 64;
constexpr std::size_t largestOwnCopy = 8192;

unsigned Copy(unsigned char* dst, const unsigned char* src, std::size_t size) {
    if (smallestOwnCopy <= size && size <= largestOwnCopy) return ky::CopyBytes(dst, src, size);
    if (size != 0 && dst != src) std::memcpy(dst, src, size);
    return static_cast<unsigned>(size);
}

/// A single value, the commonest case, is converted without a further call. The bytes of a whole array may exceed
/// 32 bits; then all of them are converted and the result is what is left of their number.
template <class Value, ArrayKernel reverse>
unsigned Convert(void* dst, const void* src, unsigned char flag, unsigned count) {
    if (count == 1) return ConvertOne<Value>(dst, src, flag);
    auto* to = static_cast<unsigned char*>(dst);
    const auto* from = static_cast<const unsigned char*>(src);
    return IsReversed(flag) ? reverse(to, from, count) : Copy(to, from, sizeof(Value) * std::size_t{count});
}

unsigned Convert2(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert<std::uint16_t, ky::ReverseBytes2>(dst, src, flag, count);
}

unsigned Convert4(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert<std::uint32_t, ky::ReverseBytes4>(dst, src, flag, count);
}

unsigned Convert8(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert<std::uint64_t, ky::ReverseBytes8>(dst, src, flag, count);
}

}  // namespace

unsigned CharStore(void* dst, const void* src, unsigned char, unsigned count) {
    return Copy(static_cast<unsigned char*>(dst), static_cast<const unsigned char*>(src), count);
}

unsigned ShortStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert2(dst, src, flag, count);
}

unsigned LongStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned O_8BStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert8(dst, src, flag, count);
}

unsigned FloatStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned DoubleStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert8(dst, src, flag, count);
}

unsigned IntStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned IntLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned UnsignedStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned UnsignedLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Convert4(dst, src, flag, count);
}

unsigned ShortStoreOne(void* dst, const void* src, unsigned char flag) {
    return ConvertOne<std::uint16_t>(dst, src, flag);
}

unsigned LongStoreOne(void* dst, const void* src, unsigned char flag) {
    return ConvertOne<std::uint32_t>(dst, src, flag);
}

unsigned O_8BStoreOne(void* dst, const void* src, unsigned char flag) {
    return ConvertOne<std::uint64_t>(dst, src, flag);
}
