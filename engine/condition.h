#ifndef ENGINE_CONDITION_H
#define ENGINE_CONDITION_H

/// Whether an object fulfils a query's condition.

#include <vector>

#include "query.h"
#include "record.h"

namespace engine {

/// A constant in the persistent form of the store; one value.
using StoredConstant = std::vector<unsigned char>;

/// The bytes of one element of an array's bytes.
Bytes ElementAt(const Attribute& attribute, unsigned char form, Bytes array, std::size_t element);

/// One comparison over records of a class. Refers to all it is made from.
class ComparisonTest {
public:
    ComparisonTest(const RecordLayout& aLayout, const Comparison& aComparison, const StoredConstant& aConstant);

    bool Holds(Bytes record) const;

private:
    const RecordLayout* layout;
    const Comparison* comparison;
    const StoredConstant* constant;
    KyCompareFunc* compare;
    bool isPattern;  ///< a string with wildcards that count as such
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
