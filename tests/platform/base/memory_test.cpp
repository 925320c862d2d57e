#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>

#include "kybase.h"

/// A sanitizer's allocator answers a hopeless request as the C library does.
extern "C" KY_EXPORT const char* __asan_default_options() { return "allocator_may_return_null=1"; }
extern "C" KY_EXPORT const char* __tsan_default_options() { return "allocator_may_return_null=1"; }

namespace {

constexpr std::size_t hopeless = SIZE_MAX / 2 + 1;

std::size_t reported;

void Record(std::size_t size) { reported = size; }

TEST(Memory, HandlerIsSetAndRestored) {
    EXPECT_NE(KySetMemoryHandler(&Record), nullptr);
    reported = 0;
    KyCallMemoryHandler(77);
    EXPECT_EQ(reported, 77U);
    EXPECT_EQ(KySetMemoryHandler(nullptr), &Record);
    EXPECT_THROW(KyCallMemoryHandler(1), std::bad_alloc);
}

TEST(Memory, FailureGoesToTheHandler) {
    volatile std::size_t size = hopeless;
    EXPECT_THROW(mmKymalloc(size), std::bad_alloc);
    const KyMemoryHandler before = KySetMemoryHandler(&Record);
    reported = 0;
    EXPECT_EQ(mmKymalloc(size), nullptr);
    EXPECT_EQ(reported, hopeless);
    KySetMemoryHandler(before);
}

TEST(Memory, BlocksCanBeWrittenAndFreed) {
    void* nothing = mmKymalloc(0);
    EXPECT_NE(nothing, nullptr);
    mmKyfree(nothing);
    void* block = mmKymalloc(100);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    std::memset(block, 0xA5, 100);
    mmKyfree(block);
    mmKyfree(nullptr);
}

}  // namespace
