#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>

#include "kytypmgr.h"
#include "type_table.h"

namespace {

bool IsIn(std::initializer_list<int> ids, int id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

const char* ExpectedName(unsigned factory, int id) {
    const int limit = factory == 0 ? 28 : 47;
    return id >= 0 && id < limit ? expectedTypes[id].name : "illegal";
}

const char* ExpectedCodeName(unsigned factory, int id) {
    const int limit = factory == 0 ? 28 : 47;
    return id >= 0 && id < limit ? expectedTypes[id].codeName : "KyRES_T";
}

TEST(Names, OfEveryIdUnderBothArrays) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number = -128; number < 128; ++number) {
            SCOPED_TRACE(number);
            const char id = static_cast<char>(number);
            EXPECT_STREQ(manager.NameGet(id, nullptr), ExpectedName(factory, number));
            EXPECT_STREQ(manager.TypeIdNameGet(id, nullptr), ExpectedCodeName(factory, number));

            char copied[64];
            std::memset(copied, '#', sizeof copied);
            EXPECT_EQ(manager.NameGet(id, copied), copied);
            EXPECT_STREQ(copied, ExpectedName(factory, number));
            EXPECT_EQ(manager.TypeIdNameGet(id, copied), copied);
            EXPECT_STREQ(copied, ExpectedCodeName(factory, number));
        }
    }
}

TEST(Names, WithoutADestinationTheRowsOwnTextIsGiven) {
    KyTypeMgr manager(5);
    EXPECT_EQ(manager.NameGet(7, nullptr), KyIntTab.typeName);
    EXPECT_EQ(manager.TypeIdNameGet(7, nullptr), KyIntTab.typeCodeName);
}

TEST(Names, LeadToTheirIdsUnderTheNewArray) {
    KyTypeMgr manager(5);
    for (const ExpectedType& type : expectedTypes) {
        char id = 99;
        EXPECT_EQ(manager.Name2KyTypeId(type.name, id), 0) << type.name;
        EXPECT_EQ(id, type.id) << type.name;
    }
}

TEST(Names, OfTypesTheOldArrayLacksAreUnknownThere) {
    KyTypeMgr manager(0);
    for (const ExpectedType& type : expectedTypes) {
        SCOPED_TRACE(type.name);
        const bool known = type.id < 28 || type.id == 46;
        char id = 99;
        EXPECT_EQ(manager.Name2KyTypeId(type.name, id), known ? 0 : 1);
        EXPECT_EQ(id, known ? type.id : 47);
    }
}

TEST(Names, MustMatchExactly) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (const char* unknown :
             {"", "INT", "Int", "int ", " int", "in", "kystring", "KyINT_T", "KyRES_T", "o_16b"}) {
            char id = 0;
            EXPECT_EQ(manager.Name2KyTypeId(unknown, id), 1) << unknown;
            EXPECT_EQ(id, 47) << unknown;
        }
        char id = 0;
        EXPECT_EQ(manager.Name2KyTypeId(nullptr, id), 1);
        EXPECT_EQ(id, 47);
    }
}

TEST(Capabilities, HasANullValue) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number = -128; number < 128; ++number) {
            bool expected = number >= 0 && number < (factory == 0 ? 28 : 47) && expectedTypes[number].hasNull;
            if (factory == 0 && number == 11) expected = false;  // strings of the older layout have no null
            const char id = static_cast<char>(number);
            EXPECT_EQ(manager.SupportsCapability(id, 1), expected ? 1 : 0) << number;
            EXPECT_EQ(manager.SupportsNullValue(id), expected ? 1 : 0) << number;
        }
    }
}

TEST(Capabilities, Kept_CountersAreAFixedListUnderEveryArray) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number = -128; number < 128; ++number) {
            const bool expected = IsIn({0, 1, 2, 5, 6, 7, 8, 9, 10, 15, 26, 42, 43}, number);
            EXPECT_EQ(manager.SupportsCapability(static_cast<char>(number), 2), expected ? 1 : 0) << number;
        }
    }
}

TEST(Capabilities, TimeStampsAreAFixedListUnderEveryArray) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number = -128; number < 128; ++number) {
            const bool expected = IsIn({12, 13, 19, 22, 23, 24, 40}, number);
            EXPECT_EQ(manager.SupportsCapability(static_cast<char>(number), 3), expected ? 1 : 0) << number;
        }
    }
}

TEST(Capabilities, TheWordIsANumberNotBits) {
    KyTypeMgr manager(5);
    for (int number = -128; number < 128; ++number) {
        for (unsigned capability : {0U, 4U, 5U, 7U, 0x101U, 0x102U, 0x8001U, 0xFFFFU}) {
            EXPECT_EQ(manager.SupportsCapability(static_cast<char>(number), static_cast<unsigned short>(capability)),
                      0);
        }
    }
}

TEST(Sizes, OfEveryIdUnderBothArrays) {
    for (unsigned factory : {0U, 5U}) {
        KyTypeMgr manager(factory);
        for (int number = -128; number < 128; ++number) {
            SCOPED_TRACE(number);
            const bool hasRow = number >= 0 && number < (factory == 0 ? 28 : 47);
            const ExpectedType& type = expectedTypes[hasRow ? number : 46];
            const char id = static_cast<char>(number);
            EXPECT_EQ(manager.MemLenGet(id, 0), 0U);
            EXPECT_EQ(manager.MemLenGet(id, 1), type.size);
            EXPECT_EQ(manager.MemLenGet(id, 1000), type.size * 1000);
            EXPECT_EQ(manager.IsFixed(id), type.fixed ? 1 : 0);
        }
    }
}

TEST(Arrays, ElementAddressesAreBoundedByTheCountUnlessItIsZero) {
    KyTypeMgr manager(5);
    unsigned char base[16 * 1001];
    for (const ExpectedType& type : expectedTypes) {
        SCOPED_TRACE(type.name);
        const char id = static_cast<char>(type.id);
        EXPECT_EQ(manager.GetArrayElement(id, base, 0, 3), base);
        EXPECT_EQ(manager.GetArrayElement(id, base, 2, 3), base + std::size_t{2} * type.size);
        EXPECT_EQ(manager.GetArrayElement(id, base, 3, 3), nullptr);
        EXPECT_EQ(manager.GetArrayElement(id, base, 0xFFFFFFFF, 3), nullptr);
        EXPECT_EQ(manager.GetArrayElement(id, base, 1000, 0), base + std::size_t{1000} * type.size);
    }
}

TEST(Arrays, ElementAddressesGoBeyondFourGigabytes) {
    KyTypeMgr manager(5);
    const std::size_t base = 0x10000;  // an address is computed, nothing is read
    void* const element = manager.GetArrayElement(11, reinterpret_cast<void*>(base), 0x80000000, 0);
    EXPECT_EQ(reinterpret_cast<std::size_t>(element), base + 0x800000000);
}

}  // namespace
