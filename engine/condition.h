#ifndef ENGINE_CONDITION_H
#define ENGINE_CONDITION_H

/// Whether an object fulfils a query's condition.

#include <vector>

#include "query.h"
#include "record.h"

namespace engine {

/// A constant in the persistent form of the store; one value.
using StoredConstant = std::vector<unsigned char>;

/// The persistent form of one element of a stored array: its part of the array's bytes, or, for types whose arrays have
/// a head in common (blobs, dictionary strings), made in `scratch`.
Bytes ElementAt(const Attribute& attribute, unsigned char form, Bytes array, std::size_t element,
                std::vector<unsigned char>& scratch);

/// One comparison over records of a class. Refers to all it is made from.
class ComparisonTest {
public:
    ComparisonTest(const RecordLayout& aLayout, const Comparison& aComparison, const StoredConstant& aConstant);

    bool Holds(Bytes record) const;
    /// Of one stored value.
    bool HoldsFor(Bytes value) const;

private:
    const RecordLayout* layout;
    const Comparison* comparison;
    const StoredConstant* constant;
    KyCompareFunc* compare;
    bool isPattern;  ///< a string with wildcards that count as such
    mutable std::vector<unsigned char> scratch;
};

/// The whole condition.
class ConditionTest {
public:
    ConditionTest(const RecordLayout& layout, const Condition& aCondition,
                  const std::vector<StoredConstant>& constants);

    bool Holds(Bytes record) const { return Holds(*condition, record); }

private:
    const Condition* condition;
    std::vector<ComparisonTest> tests;  ///< by the comparison's constant, of which each has its own

    bool Holds(const Condition& part, Bytes record) const;
    void Collect(const RecordLayout& layout, const Condition& part, const std::vector<StoredConstant>& constants);
};

}  // namespace engine

#endif
