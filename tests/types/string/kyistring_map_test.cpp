#include "kyistring_map.h"

#include <gtest/gtest.h>

#include <string>

#include "support/hex.h"

namespace {

struct Order {
    const char* name;
    unsigned char (*map)(unsigned char, unsigned char&);
    const char* from40;
    const char* fromC0;
    const char* extrasFromC0;
    int keyOf9C;
    int extraOf9C;
};

// Frozen: what indexes of these types hold.
const Order kOrders[] = {
    {"KyIString", _KyIMapByte,
     "40 54 5b 5e 61 69 6f 71 73 79 7f 81 83 85 87 90 97 99 9b 9d 9f a5 ab ad af b3 b7 42 43 44 45 46"
     " 41 4e 5a 5c 60 64 6e 70 72 74 7e 80 82 84 86 8a 96 98 9a 9c 9e a0 aa ac ae b0 b6 47 48 49 4a 4b",
     "54 54 54 54 54 bd b9 5e 69 69 69 69 79 79 79 79 63 89 90 90 90 90 90 4c bb a5 a5 a5 a5 b3 bf 9c"
     " 4e 4e 4e 4e 4e bc b8 5c 64 64 64 64 74 74 74 74 62 88 8a 8a 8a 8a 8a 4d ba a0 a0 a0 a0 b0 be b0",
     "03 02 04 05 01 00 00 01 03 02 04 01 03 02 04 01 00 00 03 02 04 05 01 00 00 03 02 04 01 02 00 9c"
     " 03 02 04 05 01 00 00 01 03 02 04 01 03 02 04 01 00 00 03 02 04 05 01 00 00 03 02 04 01 02 00 01",
     0x8A, 0x64},
    {"KyCaseIString", _KyCaseIMapByte,
     "40 54 5b 5e 61 69 6f 71 73 79 7f 81 83 85 87 90 97 99 9b 9d 9f a5 ab ad af b3 b7 42 43 44 45 46"
     " 41 54 5b 5e 61 69 6f 71 73 79 7f 81 83 85 87 90 97 99 9b 9d 9f a5 ab ad af b3 b7 47 48 49 4a 4b",
     "54 54 54 54 54 bd b9 5e 69 69 69 69 79 79 79 79 63 89 90 90 90 90 90 4c bb a5 a5 a5 a5 b3 bf 9d"
     " 54 54 54 54 54 bd b9 5e 69 69 69 69 79 79 79 79 63 89 90 90 90 90 90 4d bb a5 a5 a5 a5 b3 bf b3",
     "03 02 04 05 01 00 00 01 03 02 04 01 03 02 04 01 00 00 03 02 04 05 01 00 00 03 02 04 01 02 00 9d"
     " 03 02 04 05 01 00 00 01 03 02 04 01 03 02 04 01 00 00 03 02 04 05 01 00 00 03 02 04 01 02 00 01",
     0x90, 0x69},
};

TEST(DictionaryKeys, OfEveryByte) {
    for (const Order& order : kOrders) {
        const auto from40 = Bytes(order.from40);
        const auto fromC0 = Bytes(order.fromC0);
        const auto extras = Bytes(order.extrasFromC0);
        ASSERT_EQ(from40.size() + fromC0.size() + extras.size(), 3u * 64);
        for (int c = 0; c < 256; ++c) {
            int key = c;
            int expectedExtra = 0;
            const auto at = static_cast<std::size_t>(c) % 64;
            if (c >= 0x40) key = from40[at];
            if (c >= 0x80) key = c + 0x60;
            if (c >= 0xA0) key = c + 0x10;
            if (c >= 0xC0) {
                key = fromC0[at];
                expectedExtra = extras[at];
            }
            if (c == 0x8C) key = 0x90, expectedExtra = 0x69;
            if (c == 0x9C) key = order.keyOf9C, expectedExtra = order.extraOf9C;
            if (c == 0x9F) key = 0xB3, expectedExtra = 1;
            unsigned char extra = 0xEE;
            EXPECT_EQ(order.map(static_cast<unsigned char>(c), extra), key) << order.name << ' ' << c;
            EXPECT_EQ(extra, expectedExtra) << order.name << ' ' << c;
        }
    }
}

TEST(DictionaryKeys, LettersOfOneKindStandTogether) {
    unsigned char extra;
    EXPECT_EQ(_KyCaseIMapByte('a', extra), _KyCaseIMapByte('A', extra));
    EXPECT_LT(_KyIMapByte('a', extra), _KyIMapByte('A', extra));
    EXPECT_LT(_KyIMapByte('A', extra), _KyIMapByte('b', extra));
    EXPECT_LT(_KyIMapByte('_', extra), _KyIMapByte('a', extra)) << "punctuation is below the letters";
}

}  // namespace
