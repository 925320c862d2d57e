// The search with vectors of a fixed width. The file that includes this defines KY_KERNEL_TARGET,
//   Lanes<Unit>           how many units a vector holds
//   Equal(from, unit)     a bit for each of the Lanes<Unit> units from `from` on: whether it is `unit`

/// Bits of the places from `text` on, as many as a vector holds, at which the segment fits.
template <class Unit>
KY_KERNEL_TARGET inline unsigned FittingPlaces(const Unit* text, const Segment<Unit>& segment) {
    unsigned fitting = Equal(text + segment.first, segment.units[segment.first]);
    if (fitting == 0) return 0;
    fitting &= Equal(text + segment.last, segment.units[segment.last]);
    for (std::size_t i = segment.first + 1; fitting != 0 && i < segment.last; ++i) {
        if (segment.units[i] != segment.any) fitting &= Equal(text + i, segment.units[i]);
    }
    return fitting;
}

template <class Unit>
KY_KERNEL_TARGET inline std::size_t Find(const Unit* text, std::size_t places, const Segment<Unit>& segment) {
    constexpr std::size_t lanes = Lanes<Unit>;
    if (places == 0 || segment.first == segment.length) return 0;
    std::size_t at = 0;
    if (places >= lanes) {
        for (; at < places; at += lanes) {
            // The last vector begins among places that were tried already.
            if (places - at < lanes) at = places - lanes;
            const unsigned fitting = FittingPlaces(text + at, segment);
            if (fitting != 0) return at + static_cast<std::size_t>(__builtin_ctz(fitting));
        }
        return places;
    }
    const Unit first = segment.units[segment.first];
    for (; at < places; ++at) {
        if (text[at + segment.first] == first && segment.FitsAt(text + at)) break;
    }
    return at;
}
