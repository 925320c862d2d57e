// Moves elements through registers whose bytes are permuted. Included by the texts that give `Vector`, `LoadVector` and
// `StoreVector`.

/// Moves elements of `fromSize` bytes to elements of `toSize` bytes as long as a whole register of either can be read
/// and written: what one writes behind its elements the next one, or the rest, overwrites. Steps `to` and `from` to the
/// rest and returns how many elements that is. `stored` is the smaller of the two sizes.
template <class Step>
KY_KERNEL_TARGET inline std::size_t MoveBlocks(const Step& step, unsigned char*& to, std::size_t toSize,
                                               const unsigned char*& from, std::size_t fromSize, std::size_t stored,
                                               std::size_t elements, std::size_t count) {
    const std::size_t toStep = elements * toSize;
    const std::size_t fromStep = elements * fromSize;
    const std::size_t storedStep = elements * stored;
    std::size_t bytes = count * stored;
    for (; bytes >= sizeof(Vector) + storedStep; bytes -= 2 * storedStep) {
        const Vector first = LoadVector(from);
        const Vector second = LoadVector(from + fromStep);
        StoreVector(to, step.Of(first));
        StoreVector(to + toStep, step.Of(second));
        from += 2 * fromStep;
        to += 2 * toStep;
        count -= 2 * elements;
    }
    if (bytes >= sizeof(Vector)) {
        StoreVector(to, step.Of(LoadVector(from)));
        from += fromStep;
        to += toStep;
        count -= elements;
    }
    return count;
}
