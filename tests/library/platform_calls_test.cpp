/// What the type manager asks of its platform libraries. This program answers in their place, as an engine does that
/// has platform libraries of its own.

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "kybase.h"
#include "kyi18n.h"
#include "kytypinf.h"
#include "kytypmgr.h"

namespace {

struct VersionCheck {
    std::array<int, 5> version;
    unsigned flags;
};
std::vector<VersionCheck> versionChecks;
int verdict = 0;

struct Attachment {
    int attach;
    const KyTypeMgr* managerAtThatTime;
};
std::vector<Attachment> attachments;

}  // namespace

int CheckKyVersionNumber(int major, int minor, int release, int build, int patch, unsigned flags) {
    versionChecks.push_back({{major, minor, release, build, patch}, flags});
    return verdict;
}

void ___KyI18NContext(int attach) { attachments.push_back({attach, DefaultTypeMgr(nullptr)}); }

namespace {

TEST(KyCheckDll, AsksForItsVersionWithMajorMinorAndRelease) {
    constexpr std::array version = {12, 0, 2, 229, 0};
    struct {
        unsigned given;
        unsigned passed;
    } const cases[] = {{0, 3}, {1, 3}, {2, 3}, {3, 3}, {4, 7}, {0xFFFFFFF8U, 0xFFFFFFFBU}};
    for (const auto& c : cases) {
        versionChecks.clear();
        KyCheckDll(c.given);
        ASSERT_EQ(versionChecks.size(), 1U);
        EXPECT_EQ(versionChecks[0].version, version);
        EXPECT_EQ(versionChecks[0].flags, c.passed) << c.given;
    }
}

TEST(KyCheckDll, PassesTheVerdictOn) {
    for (const int answer : {0, 1, -5, 77}) {
        verdict = answer;
        EXPECT_EQ(KyCheckDll(0), answer);
    }
    verdict = 0;
}

TEST(KyTypemgrContext, InternationalisationIsAttachedAndDetachedFirst) {
    attachments.clear();
    ___KyTypemgrContext(7);
    const KyTypeMgr* manager = DefaultTypeMgr(nullptr);
    ASSERT_NE(manager, nullptr);
    ASSERT_EQ(attachments.size(), 1U);
    EXPECT_EQ(attachments[0].attach, 7);
    EXPECT_EQ(attachments[0].managerAtThatTime, nullptr);

    ___KyTypemgrContext(0);
    ASSERT_EQ(attachments.size(), 2U);
    EXPECT_EQ(attachments[1].attach, 0);
    EXPECT_EQ(attachments[1].managerAtThatTime, manager);
    EXPECT_EQ(DefaultTypeMgr(nullptr), nullptr);
}

}  // namespace
