// How far two texts are the same, over vectors of `kVectorBytes` that `StopsIn<width>` examines: a bit for every
// `kBytesPerStop<width>` bytes, set where a character differs or ends both texts, the lowest one for the first.
// Included by each variant.

template <unsigned width>
KY_KERNEL_TARGET inline std::size_t FirstStop(StopBits stops) {
    return static_cast<std::size_t>(std::countr_zero(stops)) * kBytesPerStop<width>;
}

/// Up to the end of a page that is nearer than a vector's end. Returns the offset of a stop, or `limit`, or where the
/// page ends.
template <unsigned width>
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) inline bool StopsBeforePageEnd(const char* a, const char* b,
                                                                                   std::size_t& at, std::size_t limit) {
    const std::size_t room = std::min(RoomInPage(a + at), RoomInPage(b + at)) / width * width;
    if (room != 0 && at + room >= kVectorBytes) {
        // The vector that ends with the page: what is known to be the same is examined again.
        const std::size_t first = at + room - kVectorBytes;
        const StopBits stops = StopsIn<width>(a + first, b + first);
        at = stops != 0 ? first + FirstStop<width>(stops) : at + room;
        return stops != 0;
    }
    const std::size_t end = std::min(limit, at + std::max<std::size_t>(room, width));
    for (; at < end; at += width) {
        bool ended = true;
        for (unsigned i = 0; i < width; ++i) {
            if (a[at + i] != b[at + i]) return true;
            ended = ended && a[at + i] == 0;
        }
        if (ended) return true;
    }
    return false;
}

template <unsigned width>
KY_KERNEL_TARGET __attribute__((KY_UNINSTRUMENTED)) inline std::size_t CommonFrom(const char* a, const char* b,
                                                                                  std::size_t at, std::size_t limit) {
    while (at < limit) {
        if (EitherCrossesPage(a + at, b + at, kVectorBytes)) {
            if (StopsBeforePageEnd<width>(a, b, at, limit)) break;
            continue;
        }
        if (const StopBits stops = StopsIn<width>(a + at, b + at)) {
            at += FirstStop<width>(stops);
            break;
        }
        at += kVectorBytes;
    }
    return std::min(at, limit);
}
