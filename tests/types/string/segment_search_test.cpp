#include "segment_search.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "support/guarded_buffer.h"

namespace {

constexpr unsigned char kAny = 0;

template <class Unit>
std::size_t SlowFind(const Unit* text, std::size_t places, const std::vector<Unit>& segment, Unit any) {
    for (std::size_t at = 0; at < places; ++at) {
        std::size_t i = 0;
        while (i < segment.size() && (segment[i] == any || segment[i] == text[at + i])) ++i;
        if (i == segment.size()) return at;
    }
    return places;
}

std::size_t Find(const ky::SegmentKernels& kernels, const unsigned char* text, std::size_t places,
                 const ky::Segment<unsigned char>& segment) {
    return kernels.inBytes(text, places, segment);
}
std::size_t Find(const ky::SegmentKernels& kernels, const unsigned* text, std::size_t places,
                 const ky::Segment<unsigned>& segment) {
    return kernels.inKeys(text, places, segment);
}

/// Texts that end at an inaccessible page, in every variant that this machine can run.
template <class Unit>
void Check(const std::vector<Unit>& text, const std::vector<Unit>& segment, Unit any = kAny) {
    if (segment.size() > text.size()) return;
    GuardedBuffer buffer(text.size() * sizeof(Unit));
    if (!text.empty()) std::memcpy(buffer.data(), text.data(), buffer.size());
    const auto* units = reinterpret_cast<const Unit*>(buffer.data());
    const std::size_t places = text.size() - segment.size() + 1;
    const std::size_t expected = SlowFind(units, places, segment, any);
    for (int variant = 0; variant < ky::RunnableSegmentKernels(); ++variant) {
        const ky::SegmentKernels& kernels = ky::kSegmentKernels[variant];
        ASSERT_EQ(Find(kernels, units, places, {segment, any}), expected)
            << kernels.name << ' ' << text.size() << ' ' << segment.size();
    }
    ASSERT_EQ(ky::FindSegment(units, places, {segment, any}), expected);
}

template <class Unit>
class SegmentSearch : public testing::Test {};
using UnitTypes = testing::Types<unsigned char, unsigned>;
TYPED_TEST_SUITE(SegmentSearch, UnitTypes);

TYPED_TEST(SegmentSearch, OneHitAtEveryPlaceOfEveryLength) {
    for (std::size_t length = 1; length <= 140; length += length < 40 ? 1 : 11) {
        for (std::size_t place = 0; place + 3 <= length; place += length < 40 ? 1 : 7) {
            std::vector<TypeParam> text(length, 7);
            text[place] = 1;
            text[place + 1] = 2;
            text[place + 2] = 3;
            Check(text, {1, 2, 3});
            Check(text, {1, 0, 3});
            Check(text, {0, 2});
            Check(text, {2, 0});
            Check(text, {3, 2, 1});
            Check<TypeParam>(text, {1, '?', 3}, '?');
        }
    }
}

TYPED_TEST(SegmentSearch, GeneratedTexts) {
    std::mt19937 random(17);
    for (int round = 0; round < 4000; ++round) {
        std::vector<TypeParam> text(random() % 200);
        for (TypeParam& unit : text) unit = static_cast<TypeParam>(1 + random() % 2);
        std::vector<TypeParam> segment(random() % (round % 2 == 0 ? 5 : 20));
        for (TypeParam& unit : segment) unit = static_cast<TypeParam>(random() % 3);
        Check(text, segment);
    }
}

TYPED_TEST(SegmentSearch, OnlyAnyOnesFitAtOnce) {
    const std::vector<TypeParam> text(10, 5);
    Check(text, {});
    Check(text, {0, 0, 0});
    const std::vector<TypeParam> any(3, 0);
    const ky::Segment<TypeParam> segment(any, 0);
    EXPECT_EQ(segment.first, segment.length);
    EXPECT_TRUE(segment.FitsAt(text.data()));
    EXPECT_EQ(ky::FindSegment(text.data(), 0, segment), 0u);
}

TYPED_TEST(SegmentSearch, UnitsOfFullWidth) {
    const TypeParam high = static_cast<TypeParam>(~TypeParam{0});
    std::vector<TypeParam> text(100, static_cast<TypeParam>(high - 1));
    text[77] = high;
    Check(text, {high});
    Check(text, {static_cast<TypeParam>(high - 2)});
    if (sizeof(TypeParam) == 4) {
        text[50] = static_cast<TypeParam>(0x7F000001);
        Check(text, {static_cast<TypeParam>(0x00000001)});
        Check(text, {static_cast<TypeParam>(0x7F000001), 0, static_cast<TypeParam>(high - 1)});
    }
}

}  // namespace
