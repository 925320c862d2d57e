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
//   PackRest, UnpackRest      arrays that are shorter than a register outside of memory form
//
// and includes this text inside its unnamed namespace.

using Plan = NullPlan<sizeof(Vector)>;
constexpr NullPlans<sizeof(Vector)> kPlans;

/// Whole registers are read and written; what one writes behind its elements the next one, or the rest, overwrites.
KY_KERNEL_TARGET void Pack(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const Vector index = LoadVector(plan.packIndex.data());
    const Vector limit = LoadVector(plan.flagLimit.data());
    const std::size_t elements = plan.elements;
    const std::size_t srcStep = elements * plan.memory;
    const std::size_t dstStep = elements * plan.stored;
    const unsigned char* from = Advance(src, 0);
    unsigned char* to = Advance(dst, 0);
    for (std::size_t bytes = count * plan.stored; bytes >= sizeof(Vector); bytes -= dstStep) {
        StoreVector(to, Permute(Least(LoadVector(from), limit), index));
        from += srcStep;
        to += dstStep;
        count -= elements;
    }
    PackRest(layout, order, to, from, count);
}

KY_KERNEL_TARGET void Unpack(NullLayout layout, NullOrder order, void* dst, const void* src, std::size_t count) {
    const Plan& plan = kPlans.Of(layout, order);
    const Vector numberIndex = LoadVector(plan.numberIndex.data());
    const Vector nullIndex = LoadVector(plan.nullIndex.data());
    const Vector null = LoadVector(plan.null.data());
    const std::size_t elements = plan.elements;
    const std::size_t srcStep = elements * plan.stored;
    const std::size_t dstStep = elements * plan.memory;
    const unsigned char* from = Advance(src, 0);
    unsigned char* to = Advance(dst, 0);
    for (std::size_t bytes = count * plan.stored; bytes >= sizeof(Vector); bytes -= srcStep) {
        const Vector stored = LoadVector(from);
        const Vector numbers = PermuteOrZero(stored, numberIndex);
        StoreVector(to, SelectWhereOne(Permute(stored, nullIndex), null, numbers));
        from += srcStep;
        to += dstStep;
        count -= elements;
    }
    UnpackRest(layout, order, to, from, count);
}
