// The loops of the nullable kernels, compiled once for each instruction set that can permute bytes. The including file
// provides
//
//   KY_KERNEL_TARGET          the function attribute that selects the instruction set
//   Vector                    its widest register whose bytes can be permuted
//   LoadVector, StoreVector   unaligned access
//   Permute(vector, index)    the bytes that the index names
//   PermuteOrZero             the same with zeros where the index is `NullPlan::kNone`
//   Least(a, b)               the smaller of each two unsigned bytes
//   SelectWhereOne(v, a, b)   the bytes of a where v is 1, of b elsewhere
//   Plan                      `NullPlan` of such a register
//   PackRest, UnpackRest      arrays that are shorter than a register outside of memory form
//
// and includes this text inside its unnamed namespace.

constexpr NullPlans<sizeof(Vector)> kPlans;

struct PackStep {
    Vector index;
    Vector limit;

    KY_KERNEL_TARGET explicit PackStep(const Plan& plan)
        : index(LoadVector(plan.packIndex.data())), limit(LoadVector(plan.flagLimit.data())) {}
    KY_KERNEL_TARGET Vector Of(Vector memory) const { return Permute(Least(memory, limit), index); }
};

struct UnpackStep {
    Vector numberIndex;
    Vector nullIndex;
    Vector null;

    KY_KERNEL_TARGET explicit UnpackStep(const Plan& plan)
        : numberIndex(LoadVector(plan.numberIndex.data())),
          nullIndex(LoadVector(plan.nullIndex.data())),
          null(LoadVector(plan.null.data())) {}
    KY_KERNEL_TARGET Vector Of(Vector stored) const {
        return SelectWhereOne(Permute(stored, nullIndex), null, PermuteOrZero(stored, numberIndex));
    }
};

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

KY_KERNEL_TARGET inline void Pack(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const PackStep step(plan);
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    count = MoveBlocks(step, to, plan.stored, from, plan.memory, plan.stored, plan.elements, count);
    PackRest(layout, order, plan, step, to, from, count);
}

KY_KERNEL_TARGET inline void Unpack(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const UnpackStep step(plan);
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    count = MoveBlocks(step, to, plan.memory, from, plan.stored, plan.stored, plan.elements, count);
    UnpackRest(layout, order, plan, step, to, from, count);
}
