// How far two texts are the same, over vectors of `kVectorBytes`. What "the same" is says `Texts`:
//
//     width           bytes of a character
//     bytesPerStop    how many bytes each bit of a `StopBits` stands for
//     StopsIn         examines a vector: bits set where characters are not the same or end both texts, the lowest one
//                     for the first
//     StopsInBlock    whether there is such a place in four vectors
//     StopsAt         examines one character
//
// Included by each variant.

constexpr std::size_t kBlockBytes = 4 * kVectorBytes;

template <class Texts>
KY_KERNEL_TARGET inline std::size_t FirstStop(StopBits stops) {
    return static_cast<std::size_t>(std::countr_zero(stops)) * Texts::bytesPerStop;
}

/// Vectors one by one while `at` is below `end`. True: `at` is a stop.
template <class Texts>
KY_UNCHECKED_KERNEL inline bool StopsInVectors(const Texts& texts, const char* a, const char* b, std::size_t& at,
                                               std::size_t end) {
    for (; at < end; at += kVectorBytes) {
        if (const StopBits stops = texts.StopsIn(a + at, b + at)) {
            at += FirstStop<Texts>(stops);
            return true;
        }
    }
    return false;
}

/// A vector of which a part lies on the next page of a text. True: `at` is a stop; false: it has moved on.
template <class Texts>
KY_UNCHECKED_KERNEL inline bool StopsAtPageEnd(const Texts& texts, const char* a, const char* b, std::size_t& at,
                                               std::size_t limit, std::size_t room) {
    constexpr std::size_t width = Texts::width;
    room = room / width * width;
    if (room == 0 || at + room < kVectorBytes) {
        for (const std::size_t end = std::min(limit, at + std::max(room, width)); at < end; at += width) {
            if (texts.StopsAt(a + at, b + at)) return true;
        }
        return false;
    }
    // The vector that ends with the page. Its first characters are known to be the same, which `texts` need not see.
    const std::size_t known = kVectorBytes - room;
    const StopBits stops = texts.StopsIn(a + at - known, b + at - known) >> (known / Texts::bytesPerStop);
    at += stops != 0 ? FirstStop<Texts>(stops) : room;
    return stops != 0;
}

template <class Texts>
KY_UNCHECKED_KERNEL inline std::size_t Common(const Texts& texts, const char* a, const char* b, std::size_t limit) {
    std::size_t at = 0;
    while (at < limit) {
        const std::size_t room = std::min(RoomInPage(a + at), RoomInPage(b + at));
        if (room < kVectorBytes) {
            if (StopsAtPageEnd(texts, a, b, at, limit, room)) break;
            continue;
        }
        // Vectors may begin before this place.
        const std::size_t end = std::min(limit, at + room - (kVectorBytes - 1));
        if (StopsInVectors(texts, a, b, at, std::min(end, std::max(at + 1, kBlockBytes)))) break;
        if (at >= end) continue;
        if (end - at > kBlockBytes) {
            // The rest of the page, in which one of the texts is read along the lines of the cache.
            at -= reinterpret_cast<std::uintptr_t>(a + at) % kVectorBytes / Texts::width * Texts::width;
            while (end > at + kBlockBytes && !texts.StopsInBlock(a + at, b + at)) at += kBlockBytes;
        }
        if (StopsInVectors(texts, a, b, at, end)) break;
    }
    return std::min(at, limit);
}
