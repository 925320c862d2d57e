#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kybase.h"
#include "number_arrays.h"
#include "number_bounds.h"
#include "number_order.h"
#include "raw_bytes.h"

// What the slots ask of the base library, seen through a number type whose base library has a form of its own.

namespace {

std::string asked;

/// In form 5 the bits of a number are inverted, and its elements stand 6 bytes apart.
struct InvertedLSHelper {
    using Element = std::int32_t;

    static constexpr unsigned char kOwnForm = 5;
    static constexpr std::size_t Stride(unsigned char form) { return form == kOwnForm ? 6 : 4; }

    static unsigned StoreOne(void* dst, const void* src, unsigned char flag) {
        asked += "StoreOne " + std::to_string(flag) + ";";
        ky::StoreAs(dst, ~ky::LoadAs<std::uint32_t>(src));
        return sizeof(Element);
    }

    static unsigned SizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count) {
        asked += std::string("SizeGet ") + (value == nullptr ? "nothing " : "value ") + std::to_string(fromFlag) + " " +
                 std::to_string(toFlag) + " " + std::to_string(count) + ";";
        return 77;
    }
};

/// Array of numbers in form 5.
std::vector<unsigned char> Inverted(const std::vector<std::int32_t>& values) {
    std::vector<unsigned char> bytes(6 * values.size());
    for (std::size_t i = 0; i < values.size(); ++i) ky::StoreAs(bytes.data() + 6 * i, ~values[i]);
    return bytes;
}

int Compare(std::vector<unsigned char> a, std::vector<unsigned char> b, unsigned char flag, unsigned length,
            unsigned count, int expectedError = 0) {
    int err = -1;
    const int result = ky::NumberCompare<InvertedLSHelper>(flag, length, a.data(), length, b.data(), 0, count, err);
    EXPECT_EQ(err, expectedError);
    return result;
}

TEST(NumberBaseCalls, OtherFormsAreComparedThroughStoreOne) {
    const auto a = Inverted({7, -5, 9});
    const auto b = Inverted({7, 3, 1});
    for (const unsigned char flag : std::vector<unsigned char>{0x05, 0x15, 0xF5}) {
        asked.clear();
        EXPECT_EQ(Compare(a, b, flag, 0, 3), -1);
        EXPECT_EQ(Compare(b, a, flag, 0, 3), 1);
        EXPECT_EQ(Compare(a, a, flag, 0, 3), 0);
        EXPECT_EQ(Compare(a, b, flag, 0, 1), 0);
        EXPECT_EQ(Compare(a, b, flag, 6, 3, KyErrBufferEnd), 0) << "the next element stands 6 bytes further on";
        EXPECT_NE(asked, "");
        EXPECT_EQ(asked.find_first_not_of("StoreOne 5;"), std::string::npos) << asked;
    }
}

TEST(NumberBaseCalls, OtherFormsAreHashedThroughStoreOne) {
    auto values = Inverted({7, -5, 9});
    int err = -1;
    EXPECT_EQ(ky::NumberHash<InvertedLSHelper>(0x85, 0, values.data(), 3, err),
              static_cast<unsigned>(7 ^ -5 ^ 9) * 1103515245u);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(ky::NumberHash<InvertedLSHelper>(0x85, 7, values.data(), 3, err),
              static_cast<unsigned>(7 ^ -5) * 1103515245u);
    EXPECT_EQ(err, KyErrBufferEnd);
    EXPECT_EQ(ky::NumberHash<InvertedLSHelper>(0x85, 0, values.data(), 1, err), 7 * 1103515245u);
}

TEST(NumberBaseCalls, OtherFormsAreBoundedThroughStoreOne) {
    auto value = Inverted({9, 50});
    auto lower = Inverted({0});
    auto upper = Inverted({99});
    KyIdxBounds range{lower.data(), upper.data(), 6, 6};
    unsigned short less = KyCmpLess;
    asked.clear();
    EXPECT_EQ(ky::NumberEvalAndBound<InvertedLSHelper>(&range, less, value.data(), 0x85, 2, nullptr), 0.09F);
    EXPECT_EQ(asked, "StoreOne 5;StoreOne 5;StoreOne 5;");
    // What is recorded is as long as the base library says.
    value.resize(77);
    KyIdxBounds out;
    asked.clear();
    EXPECT_EQ(ky::NumberEvalAndBound<InvertedLSHelper>(nullptr, less, value.data(), 0x85, 2, &out), 0.0F);
    EXPECT_EQ(asked, "SizeGet nothing 5 5 2;");
    EXPECT_EQ(out.upperLen, 77);
    mmKyfree(out.upper);
}

TEST(NumberBaseCalls, ThePlainFormsAskNothing) {
    std::vector<unsigned char> numbers = {7, 0, 0, 0, 9, 0, 0, 0};
    int err = -1;
    asked.clear();
    for (const unsigned char flag : std::vector<unsigned char>{0x01, 0x02, 0x08, 0x81, 0xF2, 0x18}) {
        EXPECT_EQ(Compare(numbers, numbers, flag, 0, 2), 0);
        ky::NumberHash<InvertedLSHelper>(flag, 0, numbers.data(), 1, err);
        ky::NumberHash<InvertedLSHelper>(flag, 0, numbers.data(), 2, err);
        KyIdxBounds range{numbers.data(), numbers.data() + 4, 4, 4};
        unsigned short op = KyCmpEqual;
        ky::NumberEvalAndBound<InvertedLSHelper>(&range, op, numbers.data(), flag, 1, nullptr);
    }
    EXPECT_EQ(asked, "");
}

TEST(NumberBaseCalls, SizesInAMemoryFileAreThoseOfTheForm) {
    asked.clear();
    EXPECT_EQ(ky::FormSizeFromMemFile<InvertedLSHelper>(nullptr, 0xF2, 3), 77u);
    EXPECT_EQ(asked, "SizeGet nothing 8 2 3;");
    asked.clear();
    EXPECT_EQ(ky::FlagSizeFromMemFile<InvertedLSHelper>(nullptr, 0xF2, 3), 77u);
    EXPECT_EQ(asked, "SizeGet nothing 8 242 3;");
    asked.clear();
    EXPECT_EQ(ky::WidthFromMemFile<InvertedLSHelper>(nullptr, 0xF2, 3), 12u);
    EXPECT_EQ(asked, "");
}

TEST(NumberBaseCalls, EachFamilyMeasuresAFileInItsOwnWay) {
    EXPECT_EQ(KyFloatTab.SizeGetFromMemFile, &ky::FormSizeFromMemFile<FloatLSHelper>);
    EXPECT_EQ(KyDoubleTab.SizeGetFromMemFile, &ky::FormSizeFromMemFile<DoubleLSHelper>);
    for (const KyTypeTab* row : {&KyIntTab, &KyUnsignedTab, &KyEnumTab}) {
        EXPECT_EQ(row->SizeGetFromMemFile, &ky::FlagSizeFromMemFile<IntLSHelper>);
    }
}

}  // namespace
