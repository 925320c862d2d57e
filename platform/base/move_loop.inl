// The loop of the byte-order kernels, compiled once for each instruction set. The including file provides
//
//   KY_KERNEL_TARGET         the function attribute that selects the instruction set
//   Vector                   its widest register
//   LoadVector, StoreVector  unaligned access
//   ReverseVector<Width>     the bytes of each element of a register reversed; one byte stays as it is
//   MoveShort<Width>         whole arrays that are shorter than a register
//
// and includes this text inside its unnamed namespace.

/// The first and the last register are read before anything is written and written after everything else: they
/// overlap the middle, which must not be reversed twice when the array is converted in place. The middle is written
/// along the lines of the cache, or, where elements lie across these, read along them if it can be.
template <unsigned Width>
KY_KERNEL_TARGET inline unsigned MoveArray(unsigned char* dst, const unsigned char* src, std::size_t count) {
    constexpr std::size_t step = sizeof(Vector);
    constexpr std::size_t stride = 4 * step;
    const std::size_t size = count * Width;
    if (size < step) return MoveShort<Width>(dst, src, count);
    const Vector first = ReverseVector<Width>(LoadVector(src));
    const Vector last = ReverseVector<Width>(LoadVector(src + size - step));

    const auto dstAddress = reinterpret_cast<std::uintptr_t>(dst);
    const auto srcAddress = reinterpret_cast<std::uintptr_t>(src);
    std::size_t skipped = step - (dstAddress % Width == 0 ? dstAddress : srcAddress) % step;
    skipped -= skipped % Width;
    unsigned char* to = dst + skipped;
    const unsigned char* from = src + skipped;
    std::size_t rest = size - skipped;
    for (; rest >= stride; rest -= stride, to += stride, from += stride) {
        const Vector a = LoadVector(from);
        const Vector b = LoadVector(from + step);
        const Vector c = LoadVector(from + 2 * step);
        const Vector d = LoadVector(from + 3 * step);
        StoreVector(to, ReverseVector<Width>(a));
        StoreVector(to + step, ReverseVector<Width>(b));
        StoreVector(to + 2 * step, ReverseVector<Width>(c));
        StoreVector(to + 3 * step, ReverseVector<Width>(d));
    }
    for (; rest >= step; rest -= step, to += step, from += step) {
        StoreVector(to, ReverseVector<Width>(LoadVector(from)));
    }

    StoreVector(dst, first);
    StoreVector(dst + size - step, last);
    return static_cast<unsigned>(size);
}
