#ifndef FAIL_WITHOUT_LEAKS_H
#define FAIL_WITHOUT_LEAKS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

#include "counted_memory.h"

/// Runs `action` with memory for none, one, ... blocks until it succeeds; no block may be left behind.
template <class Action>
void FailWithoutLeaks(const char* name, bool takesBlocks, Action action) {
    action();  // tables that are made on first use stay
    bool succeeded = false;
    for (int blocks = 0; !succeeded && blocks < 40; ++blocks) {
        const std::ptrdiff_t before = blocksHeld;
        blocksLeft = blocks;
        try {
            action();
            succeeded = true;
        } catch (const std::bad_alloc&) {
        }
        blocksLeft = -1;
        EXPECT_EQ(blocksHeld, before) << name << ' ' << blocks;
        if (succeeded) {
            EXPECT_EQ(blocks > 0, takesBlocks) << name;
        }
    }
    EXPECT_TRUE(succeeded) << name;
}

#endif
