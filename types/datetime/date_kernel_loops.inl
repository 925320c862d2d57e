// The loops of the date kernels, compiled once for each instruction set that can permute bytes. The including file
// provides, besides a text byte_vectors_*.inl and the plans of its register,
//
//   MoveRest(any, plan, record, form, step, to, from, count)   moves less than a register; `any`: the kernel without
//   HashRest(plan, record, form, step, sum, from, count)       adds the words of less than a register
//
// and includes this text inside its unnamed namespace.

constexpr DatePlans<sizeof(Vector)> kPlans;
using Rounds = DateRounds<sizeof(Vector)>;
constexpr Rounds kRounds;

typedef std::uint32_t Words __attribute__((vector_size(sizeof(Vector))));

struct MoveStep {
    Vector index;

    KY_KERNEL_TARGET explicit MoveStep(const Rounds::Bytes& bytes) : index(LoadVector(bytes.data())) {}
    KY_KERNEL_TARGET Vector Of(Vector elements) const { return PermuteOrZero(elements, index); }
};

struct HashStep {
    Vector index;
    Vector signs;

    KY_KERNEL_TARGET HashStep(const Rounds::Bytes& bytes, const Rounds::Bytes& signBits)
        : index(LoadVector(bytes.data())), signs(LoadVector(signBits.data())) {}
    KY_KERNEL_TARGET explicit HashStep(const Rounds::Plan& plan) : HashStep(plan.words, plan.signs) {}
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

/// How many elements of 12 bytes stand before the next line of the cache that begins with an element; 0 where there is
/// none.
inline std::size_t ElementsBeforeLine(const unsigned char* at) {
    const auto address = reinterpret_cast<std::uintptr_t>(at);
    return address % 4 == 0 ? address / 4 * 5 % 16 : 0;  // 3 * 5 words of 4 bytes are one short of a line
}

/// Moves rounds as long as whole registers can be read and written, those of the memory form lines of the cache where
/// they can be. Steps `to` and `from` to the rest and returns how many elements that is.
template <bool packs>
KY_KERNEL_TARGET inline std::size_t MoveRounds(DateForm form, unsigned char*& to, const unsigned char*& from,
                                               std::size_t count) {
    constexpr DateForm toForm = packs ? DateForm::native : DateForm::memory;
    constexpr DateForm fromForm = packs ? DateForm::memory : DateForm::native;
    constexpr auto bytes = packs ? &Rounds::Plan::pack : &Rounds::Plan::unpack;
    constexpr std::size_t size = DateLayout(DateRecord::dateTimeN, DateForm::native).size;
    const MoveStep first(kRounds.Of(form, 0).*bytes);
    const MoveStep second(kRounds.Of(form, 1).*bytes);
    const MoveStep third(kRounds.Of(form, 2).*bytes);
    for (; count * size >= Rounds::Reach(DateForm::native); count -= Rounds::kElements) {
        const Vector a = LoadVector(from + Rounds::InForm(fromForm, 0));
        const Vector b = LoadVector(from + Rounds::InForm(fromForm, 1));
        const Vector c = LoadVector(from + Rounds::InForm(fromForm, 2));
        StoreVector(to + Rounds::InForm(toForm, 0), first.Of(a));
        StoreVector(to + Rounds::InForm(toForm, 1), second.Of(b));
        StoreVector(to + Rounds::InForm(toForm, 2), third.Of(c));
        from += Rounds::kElements * DateLayout(DateRecord::dateTimeN, fromForm).size;
        to += Rounds::kElements * DateLayout(DateRecord::dateTimeN, toForm).size;
    }
    return count;
}

/// Fewer elements of the whole record are moved one register after the other.
constexpr std::size_t kManyElements = 2 * 16 + Rounds::kElements;

template <bool packs>
KY_KERNEL_TARGET inline void Move(DateMoveKernel* any, const MovePlan& plan, DateRecord record, DateForm form,
                                  void* dst, const void* src, std::size_t count) {
    const MoveStep step(plan.index);
    unsigned char* to = Advance(dst, 0);
    const unsigned char* from = Advance(src, 0);
    if (record == DateRecord::dateTimeN && form != DateForm::memory && count >= kManyElements) {
        const std::size_t before = ElementsBeforeLine(packs ? from : to);
        MoveRest(any, plan, record, form, step, to, from, before);
        to += before * plan.to;
        from += before * plan.from;
        count = MoveRounds<packs>(form, to, from, count - before);
    }
    const std::size_t smaller = std::min(plan.from, plan.to);
    count = MoveBlocks(step, to, plan.to, from, plan.from, smaller, plan.elements, count);
    MoveRest(any, plan, record, form, step, to, from, count);
}

/// Adds the words of rounds as long as whole registers can be read. Steps `from` to the rest and returns how many
/// elements that is.
template <DateForm place>
KY_KERNEL_TARGET inline std::size_t HashRounds(DateForm form, Words& sum, const unsigned char*& from,
                                               std::size_t count) {
    constexpr std::size_t size = DateLayout(DateRecord::dateTimeN, place).size;
    const HashStep first(kRounds.Of(form, 0));
    const HashStep second(kRounds.Of(form, 1));
    const HashStep third(kRounds.Of(form, 2));
    Words other = {};
    for (; count * size >= Rounds::Reach(place); count -= Rounds::kElements) {
        const Vector a = LoadOperand(from + Rounds::InForm(place, 0));
        const Vector b = LoadOperand(from + Rounds::InForm(place, 1));
        const Vector c = LoadOperand(from + Rounds::InForm(place, 2));
        sum ^= first.Of(a) ^ second.Of(b);
        other ^= third.Of(c);
        from += Rounds::kElements * size;
    }
    sum ^= other;
    return count;
}

KY_KERNEL_TARGET inline std::uint32_t Hash(DateRecord record, DateForm form, const void* data, std::size_t count) {
    const unsigned char* from = Advance(data, 0);
    const HashPlan& plan = kPlans.Hashing(record, form);
    const HashStep step(plan.index, plan.signs);
    const std::size_t bytes = plan.elements * plan.from;
    Words sum = {};
    if (record == DateRecord::dateTimeN && count >= kManyElements) {
        if (form == DateForm::memory) {
            const std::size_t before = ElementsBeforeLine(from);
            HashRest(plan, record, form, step, sum, from, before);
            from += before * plan.from;
            count = HashRounds<DateForm::memory>(form, sum, from, count - before);
        } else {
            count = HashRounds<DateForm::native>(form, sum, from, count);
        }
    }
    std::size_t left = count * plan.from;
    for (; left >= sizeof(Vector) + 3 * bytes; left -= 4 * bytes) {
        const Words a = step.Of(LoadOperand(from));
        const Words b = step.Of(LoadOperand(from + bytes));
        const Words c = step.Of(LoadOperand(from + 2 * bytes));
        const Words d = step.Of(LoadOperand(from + 3 * bytes));
        sum ^= (a ^ b ^ c) ^ d;
        from += 4 * bytes;
    }
    for (; left >= sizeof(Vector); left -= bytes) {
        sum ^= step.Of(LoadOperand(from));
        from += bytes;
    }
    HashRest(plan, record, form, step, sum, from, left / plan.from);
    return XorOf(sum);
}
