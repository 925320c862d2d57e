#include <gtest/gtest.h>

#include <cstring>

#include "kytypes.h"
#include "kytypinf.h"
#include "kytypmgr.h"

namespace {

/// Behind the address of its rows in the memory of a manager.
unsigned FactoryOf(const KyTypeMgr& manager) {
    unsigned factory = 0;
    std::memcpy(&factory, reinterpret_cast<const char*>(&manager) + sizeof(void*), sizeof factory);
    return factory;
}

TEST(KyTypemgrContext, TheDefaultManagerLivesFromAttachToDetach) {
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
    ___KyTypemgrContext(1);
    KyTypeMgr* manager = DefaultTypeMgr(nullptr);
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(FactoryOf(*manager), 5U);
    char id = 0;
    EXPECT_EQ(manager->Name2KyTypeId("KyDateTimeN", id), 0);
    EXPECT_EQ(id, KyDATIME_N_T);
    ___KyTypemgrContext(0);
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
    ___KyTypemgrContext(0);
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
}

TEST(KyTypemgrContext, Kept_AttachingTwiceLeavesTheFirstManagerToItsUsers) {
    ___KyTypemgrContext(1);
    KyTypeMgr* first = DefaultTypeMgr(nullptr);
    ___KyTypemgrContext(2);
    KyTypeMgr* second = DefaultTypeMgr(nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(FactoryOf(*first), 5U);
    ___KyTypemgrContext(0);
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
    delete first;
}

TEST(KyTypemgrContext, Kept_DetachingDeletesTheManagerThatIsRegistered) {
    ___KyTypemgrContext(1);
    auto* own = new KyTypeMgr(3);
    delete DefaultTypeMgr(own);
    EXPECT_EQ(DefaultTypeMgr(nullptr), own);
    ___KyTypemgrContext(0);  // a leak of `own` is the address sanitizer's to find
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
}

}  // namespace
