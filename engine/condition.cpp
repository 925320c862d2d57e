#include "condition.h"

#include <algorithm>

#include "pattern.h"
#include "types.h"
#include "value.h"

namespace engine {

Bytes ElementAt(const Attribute& attribute, unsigned char form, Bytes array, std::size_t element,
                std::vector<unsigned char>& scratch) {
    if (attribute.count == 1) return array;
    if (Types().IsFixed(attribute.type) != 0) {
        const std::size_t size = array.size() / attribute.count;
        return array.subspan(element * size, size);
    }
    if (attribute.type == KySTRING_T) {
        const auto sizeOfFirst = [&](Bytes rest) {
            return Types().DiskLenGet(attribute.type, const_cast<unsigned char*>(rest.data()), form, 1, form);
        };
        for (; element > 0; --element) array = array.subspan(sizeOfFirst(array));
        return array.first(sizeOfFirst(array));
    }
    Value values(attribute.type, attribute.count);
    values.Load(array, form);
    void* const wanted =
        Types().GetArrayElement(attribute.type, values.Get(), static_cast<unsigned>(element), attribute.count);
    scratch.resize(Types().DiskLenGet(attribute.type, wanted, form, 1, KyFormMemory));
    scratch.resize(Types().Store(attribute.type, scratch.data(), wanted, form, 1));
    return scratch;
}

ComparisonTest::ComparisonTest(const RecordLayout& aLayout, const Comparison& aComparison,
                               const StoredConstant& aConstant)
    : layout(&aLayout),
      comparison(&aComparison),
      constant(&aConstant),
      compare(Types().CmpFuncPtrGet(aLayout.Of().attributes[aComparison.attribute].type)),
      isPattern(
          IsPattern(aLayout.Of().attributes[aComparison.attribute].type, aLayout.Form(), aConstant, aComparison.op)) {}

bool ComparisonTest::Holds(Bytes record) const {
    const Attribute& attribute = layout->Of().attributes[comparison->attribute];
    return HoldsFor(
        ElementAt(attribute, layout->Form(), layout->At(record, comparison->attribute), comparison->element, scratch));
}

bool ComparisonTest::HoldsFor(Bytes value) const {
    constexpr unsigned relationBits = KyCmpEqual | KyCmpLess | KyCmpGreater;
    const char type = layout->Of().attributes[comparison->attribute].type;
    int err = 0;
    const int order = compare(layout->Form(), static_cast<unsigned>(value.size()),
                              const_cast<unsigned char*>(value.data()), static_cast<unsigned>(constant->size()),
                              const_cast<unsigned char*>(constant->data()), comparison->op, 1, err);
    bool equal = order == 0;
    // A pattern has been looked at up to its first wildcard only, and not at all for a text without characters, which
    // orders before it without that error.
    if (isPattern && (equal || err != KyErrBufferEnd))
        equal = MatchesPattern(type, layout->Form(), value, *constant, comparison->op);
    const unsigned relation = comparison->op & relationBits;
    if (relation == (KyCmpLess | KyCmpGreater)) return !equal;
    return ((relation & KyCmpEqual) != 0 && equal) || ((relation & KyCmpLess) != 0 && order < 0) ||
           ((relation & KyCmpGreater) != 0 && order > 0);
}

ConditionTest::ConditionTest(const RecordLayout& layout, const Condition& aCondition,
                             const std::vector<StoredConstant>& constants)
    : condition(&aCondition) {
    Collect(layout, aCondition, constants);
}

void ConditionTest::Collect(const RecordLayout& layout, const Condition& part,
                            const std::vector<StoredConstant>& constants) {
    if (part.kind == Condition::Kind::comparison)
        tests.emplace_back(layout, part.comparison, constants[part.comparison.constant]);
    for (const Condition& inner : part.parts) Collect(layout, inner, constants);
}

bool ConditionTest::Holds(const Condition& part, Bytes record) const {
    const auto holds = [this, record](const Condition& inner) { return Holds(inner, record); };
    switch (part.kind) {
        case Condition::Kind::comparison:
            return tests[part.comparison.constant].Holds(record);
        case Condition::Kind::all:
            return std::ranges::all_of(part.parts, holds);
        default:
            return std::ranges::any_of(part.parts, holds);
    }
}

}  // namespace engine
