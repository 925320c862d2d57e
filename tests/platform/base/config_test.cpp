#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "kybase.h"

namespace {

KyConfig* const query = reinterpret_cast<KyConfig*>(UINTPTR_MAX);

class OneNumber final : public KyConfig {
public:
    int GetText(const char*, const char**, const char*) override { return 0; }
    int GetNumber(const char*, double*, const char*) override { return 0; }
    int HasSection(const char*) override { return 0; }
    int GetInteger(const char* key, int* value, const char* section) override {
        if (std::strcmp(key, "answer") != 0 || section != nullptr) return 0;
        *value = 42;
        return 1;
    }
};

TEST(Config, IsInstalledAndQueried) {
    OneNumber first;
    OneNumber second;
    EXPECT_EQ(DefaultConfig(query), nullptr);
    EXPECT_EQ(DefaultConfig(&first), nullptr);
    EXPECT_EQ(DefaultConfig(query), &first);
    EXPECT_EQ(DefaultConfig(&second), &first);
    EXPECT_EQ(DefaultConfig(query), &second);
    EXPECT_EQ(DefaultConfig(nullptr), &second);
    EXPECT_EQ(DefaultConfig(query), nullptr);
    EXPECT_EQ(DefaultConfig(nullptr), nullptr);
}

/// Callers that were built elsewhere reach the look-up by its place.
TEST(Config, IntegerLookUpIsEntryThreeOfTheOperationTable) {
    OneNumber config;
    using LookUp = int (*)(KyConfig*, const char*, int*, const char*);
    LookUp* table = nullptr;
    std::memcpy(&table, static_cast<void*>(&config), sizeof table);
    int value = 7;
    EXPECT_EQ(table[3](&config, "question", &value, nullptr), 0);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(table[3](&config, "answer", &value, nullptr), 1);
    EXPECT_EQ(value, 42);
}

}  // namespace
