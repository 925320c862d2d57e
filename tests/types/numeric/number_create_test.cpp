/// Arrays of numbers as the allocator gives them. Array new and delete are replaced in this program.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "kytypmgr.h"
#include "number_roster.h"
#include "support/hex.h"

namespace {

/// What a new block holds.
constexpr unsigned char kFilling = 0xA5;

/// Longer blocks cannot be had.
std::size_t longestBlock = std::numeric_limits<std::size_t>::max();

void* Take(std::size_t size) {
    if (size > longestBlock) return nullptr;
    void* block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) std::memset(block, kFilling, size);
    return block;
}

}  // namespace

void* operator new[](std::size_t size) {
    void* block = Take(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Take(size); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace {

TEST(NumberCreate, ZeroesNumbersOfOneByteAndLeavesWiderOnesAsTheyCome) {
    for (const NumberType& type : NumberTypes()) {
        const unsigned char expected = type.width == 1 ? 0x00 : kFilling;
        for (const unsigned count : {1u, 3u, 100u}) {
            void* values = type.row->Create(count);
            const ByteVector filled(count * type.width, expected);
            EXPECT_EQ(Hex(values, filled.size()), Hex(filled.data(), filled.size())) << type.name();
            type.row->Delete(values, count);
        }
    }
}

TEST(NumberCreate, DefaultsAreZerosWhateverTheAllocatorGives) {
    for (const NumberType& type : NumberTypes()) {
        const ByteVector zeros(3 * type.width);
        void* values = type.row->DefaultValue(3, 0);
        EXPECT_EQ(Hex(values, zeros.size()), Hex(zeros.data(), zeros.size())) << type.name();
        type.row->Delete(values, 3);
    }
}

TEST(NumberCreate, MemoryThatCannotBeHadIsANullPointer) {
    KyTypeConvertData noTexts;
    for (const NumberType& type : NumberTypes()) {
        longestBlock = 3 * type.width;
        void* fitting = type.row->Create(3);
        void* tooLong = type.row->Create(4);
        void* noDefault = type.row->DefaultValue(4, 0);
        void* noValues = type.row->ConvertFromKyString(&noTexts, 4);
        void* sizesDoNotWrap = type.row->Create(0xFFFFFFFFu);
        longestBlock = std::numeric_limits<std::size_t>::max();
        EXPECT_NE(fitting, nullptr) << type.name();
        EXPECT_EQ(tooLong, nullptr) << type.name();
        EXPECT_EQ(noDefault, nullptr) << type.name();
        EXPECT_EQ(noValues, nullptr) << type.name();
        EXPECT_EQ(sizesDoNotWrap, nullptr) << type.name();
        type.row->Delete(fitting, 3);
    }
}

}  // namespace
