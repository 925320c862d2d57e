// The loops of the nullable kernels, compiled once for each instruction set that can permute bytes. The including file
// provides, besides a text byte_vectors_*.inl,
//
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
