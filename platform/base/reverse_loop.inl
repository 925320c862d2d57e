// The loop of the byte-order kernels, compiled once for each instruction set. The including file provides
//
//   KY_KERNEL_TARGET         the function attribute that selects the instruction set
//   Vector                   its widest register
//   LoadVector, StoreVector  unaligned access
//   ReverseVector<Width>     the bytes of each element of a register reversed
//   ReverseShort<Width>      whole arrays that are shorter than a register
//
// and includes this text inside its unnamed namespace.

/// The first and the last register are read before anything is written and written after everything else: they
/// overlap the aligned middle, which must not be reversed twice when the array is converted in place.
template <unsigned Width>
KY_KERNEL_TARGET inline void ReverseArray(unsigned char* dst, const unsigned char* src, std::size_t count) {
    constexpr std::size_t step = sizeof(Vector);
    constexpr std::size_t stride = 4 * step;
    const std::size_t size = count * Width;
    if (size < step) {
        ReverseShort<Width>(dst, src, count);
        return;
    }
    const Vector first = ReverseVector<Width>(LoadVector(src));
    const Vector last = ReverseVector<Width>(LoadVector(src + size - step));

    std::size_t at = step - reinterpret_cast<std::uintptr_t>(dst) % step;
    at -= at % Width;
    for (; size - at >= stride; at += stride) {
        const Vector a = LoadVector(src + at);
        const Vector b = LoadVector(src + at + step);
        const Vector c = LoadVector(src + at + 2 * step);
        const Vector d = LoadVector(src + at + 3 * step);
        StoreVector(dst + at, ReverseVector<Width>(a));
        StoreVector(dst + at + step, ReverseVector<Width>(b));
        StoreVector(dst + at + 2 * step, ReverseVector<Width>(c));
        StoreVector(dst + at + 3 * step, ReverseVector<Width>(d));
    }
    for (; size - at >= step; at += step) StoreVector(dst + at, ReverseVector<Width>(LoadVector(src + at)));

    StoreVector(dst, first);
    StoreVector(dst + size - step, last);
}
