#ifndef CREATED_ARRAYS_H
#define CREATED_ARRAYS_H

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "kytypes.h"

/// Arrays of no, of one and of several elements, by Create and by DefaultValue of each of `defaults`, as `check(values,
/// count)` expects them. In front of several elements stands their count. Delete takes each array, and null.
template <class Check>
void ExpectCreatedArrays(const KyTypeTab& row, std::initializer_list<int> defaults, const Check& check) {
    for (const unsigned count : {0u, 1u, 2u, 3u, 1000u}) {
        SCOPED_TRACE(row.typeName + (' ' + std::to_string(count)));
        std::vector<void*> arrays = {row.Create(count)};
        for (const int which : defaults) arrays.push_back(row.DefaultValue(count, which));
        for (void* values : arrays) {
            ASSERT_NE(values, nullptr);
            check(values, count);
            if (count > 1) {
                std::size_t header = 0;
                std::memcpy(&header, static_cast<const char*>(values) - sizeof header, sizeof header);
                EXPECT_EQ(header, count);
            }
            EXPECT_EQ(row.Delete(values, count), 0);
        }
        EXPECT_EQ(row.Delete(nullptr, count), 0);
    }
}

#endif
