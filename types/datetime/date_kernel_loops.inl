// The loops of the date kernels, compiled once for each instruction set that can permute bytes. The including file
// provides, besides a text byte_vectors_*.inl and the plans of its register,
//
//   MoveRest(any, plan, record, form, step, to, from, count)   moves less than a register; `any`: the kernel without
//   HashRest(plan, record, form, step, sum, from, count)       adds the words of less than a register
//
// and includes this text inside its unnamed namespace.

constexpr DatePlans<sizeof(Vector)> kPlans;

typedef std::uint32_t Words __attribute__((vector_size(sizeof(Vector))));

struct MoveStep {
    Vector index;

    KY_KERNEL_TARGET explicit MoveStep(const MovePlan& plan) : index(LoadVector(plan.index.data())) {}
    KY_KERNEL_TARGET Vector Of(Vector elements) const { return PermuteOrZero(elements, index); }
};

struct HashStep {
    Vector index;
    Vector signs;

    KY_KERNEL_TARGET explicit HashStep(const HashPlan& plan)
        : index(LoadVector(plan.index.data())), signs(LoadVector(plan.signs.data())) {}
    /// With its sign bit turned over, a byte that is widened is too large by what the bit was worth.
    KY_KERNEL_TARGET Words Of(Vector elements) const {
        const auto words = reinterpret_cast<Words>(PermuteOrZero(elements, index));
        const auto bits = reinterpret_cast<Words>(signs);
        return (words ^ bits) - bits;
    }
};

KY_KERNEL_TARGET inline std::uint32_t XorOf(const Words& words) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < sizeof(Words) / sizeof sum; ++i) sum ^= words[i];
    return sum;
}

KY_KERNEL_TARGET inline void Move(DateMoveKernel* any, const MovePlan& plan, DateRecord record, DateForm form,
                                  void* dst, const void* src, std::size_t count) {
    const MoveStep step(plan);
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    const std::size_t smaller = std::min(plan.from, plan.to);
    count = MoveBlocks(step, to, plan.to, from, plan.from, smaller, plan.elements, count);
    MoveRest(any, plan, record, form, step, to, from, count);
}

KY_KERNEL_TARGET inline std::uint32_t Hash(DateRecord record, DateForm form, const void* data, std::size_t count) {
    const HashPlan& plan = kPlans.Hashing(record, form);
    const HashStep step(plan);
    const std::size_t bytes = plan.elements * plan.from;
    const unsigned char* from = Advance(data, 0);
    std::size_t left = count * plan.from;
    Words sum = {};
    for (; left >= sizeof(Vector) + bytes; left -= 2 * bytes) {
        sum ^= step.Of(LoadVector(from)) ^ step.Of(LoadVector(from + bytes));
        from += 2 * bytes;
    }
    if (left >= sizeof(Vector)) {
        sum ^= step.Of(LoadVector(from));
        from += bytes;
        left -= bytes;
    }
    HashRest(plan, record, form, step, sum, from, left / plan.from);
    return XorOf(sum);
}
