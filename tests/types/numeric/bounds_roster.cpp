#include "bounds_roster.h"

#include <gtest/gtest.h>

#include "null_roster.h"

const std::vector<BoundedType>& BoundedTypes() {
    static const std::vector<BoundedType> types = [] {
        std::vector<BoundedType> all;
        for (const NumberType& type : NumberTypes()) all.push_back({type.row, type.width});
        all.push_back({&KyInt64Tab, 8});
        all.push_back({&KyBooleanTab, 1, true});
        for (const NullType& type : NullTypes()) {
            all.push_back({type.row, static_cast<unsigned>(type.shape.Stored())});
        }
        return all;
    }();
    return types;
}

float BoundsOperands::Share(const KyTypeTab& row, unsigned short op, unsigned char flag) {
    unsigned short word = op;
    const float share = row.EvalAndBound(&bounds, word, value.data(), flag, 1, nullptr);
    EXPECT_EQ(word, op);
    return share;
}
