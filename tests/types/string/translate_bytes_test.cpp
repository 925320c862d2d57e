#include "translate_bytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "support/guarded_buffer.h"

namespace {

TEST(TranslateBytes, EveryVariantAndSize) {
    std::mt19937 random(5);
    for (int variant = 0; variant < ky::RunnableTranslateBytes(); ++variant) {
        for (std::size_t size = 0; size <= 200; ++size) {
            ky::ByteMap map;
            for (unsigned char& mapped : map.of) mapped = static_cast<unsigned char>(random() % 255);
            map.unclear = 255;
            GuardedBuffer src(size);
            GuardedBuffer dst((size + 63) / 64 * 64);
            for (unsigned char& byte : src.bytes()) byte = static_cast<unsigned char>(1 + random() % 255);
            const auto translate = [&] {
                return ky::kTranslateBytes[variant].translate(dst.data(), reinterpret_cast<const char*>(src.data()),
                                                              size, map);
            };
            EXPECT_FALSE(translate());
            for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(dst.data()[i], map.of[src.data()[i]]);
            if (size == 0) continue;
            map.of[src.data()[random() % size]] = 255;
            EXPECT_TRUE(translate()) << ky::kTranslateBytes[variant].name << ' ' << size;
        }
    }
}

TEST(TranslateBytes, WhatIsBehindTheTextIsNotLookedOutFor) {
    ky::ByteMap map{};
    map.of[0] = 255;
    map.unclear = 255;
    unsigned char out[64];
    EXPECT_FALSE(ky::TranslateBytes(out, "abc", 3, map));
}

}  // namespace
