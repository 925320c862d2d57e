// What belongs to the whole process and may change while other threads use it: each of them sees one of the settings,
// never half of two.

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <vector>

#include "kybase.h"
#include "kyodmg.h"
#include "kytypinf.h"
#include "kytypmgr.h"
#include "many_threads.h"

namespace {

constexpr int kRounds = 1000;

TEST(SharedSettings, EachDefaultManagerComesBackOnce) {
    ASSERT_EQ(DefaultTypeMgr(nullptr), nullptr);
    std::vector<std::vector<KyTypeMgr*>> installed(kThreads);
    std::vector<std::vector<KyTypeMgr*>> returned(kThreads);
    AtTheSameTime([&](unsigned number) {
        for (int i = 0; i < kRounds; ++i) {
            installed[number].push_back(new KyTypeMgr(5));
            KyTypeMgr* before = DefaultTypeMgr(installed[number].back());
            if (before != nullptr) returned[number].push_back(before);
            EXPECT_EQ(DefaultTypeMgr(nullptr)->IsValidType(KyINT_T), 1);
        }
    });
    std::multiset<KyTypeMgr*> all;
    std::multiset<KyTypeMgr*> seen{DefaultTypeMgr(nullptr)};
    for (const auto& mine : installed) all.insert(mine.begin(), mine.end());
    for (const auto& mine : returned) seen.insert(mine.begin(), mine.end());
    EXPECT_EQ(seen, all);
    KyTypeMgr* const last = DefaultTypeMgr(nullptr);
    ___KyTypemgrContext(0);
    for (KyTypeMgr* manager : all) {
        if (manager != last) delete manager;
    }
}

TEST(SharedSettings, ATimeTakesOneOfTheDefaultZones) {
    d_Time::set_default_Time_Zone(d_Time::GMT2);
    AtTheSameTime([](unsigned number) {
        for (int i = 0; i < kRounds; ++i) {
            if (number == 0) {
                d_Time::set_default_Time_Zone(i % 2 == 0 ? d_Time::GMT_5 : d_Time::GMT2);
                continue;
            }
            const d_Time time(12, 30, 15.0F);
            EXPECT_TRUE(time.tz_hour() == 2 || time.tz_hour() == -5) << time.tz_hour();
            EXPECT_EQ(time.hour(), 12);
        }
    });
    d_Time::set_default_Time_Zone(d_Time::GMT);
}

std::atomic<int> heardByFirst;
std::atomic<int> heardBySecond;

void FirstAssertHandler(const char*, const char*, int) { ++heardByFirst; }
void SecondAssertHandler(const char*, const char*, int) { ++heardBySecond; }
void FirstMemoryHandler(std::size_t) { ++heardByFirst; }
void SecondMemoryHandler(std::size_t) { ++heardBySecond; }

/// One thread sets two handlers in turn, the others raise: each call reaches one of the two.
template <class Handler, class Set, class Raise>
void ExpectEveryCallToBeHeard(Handler* first, Handler* second, Set set, Raise raise) {
    heardByFirst = 0;
    heardBySecond = 0;
    Handler* const before = set(first);
    AtTheSameTime([&](unsigned number) {
        for (int i = 0; i < kRounds; ++i) {
            if (number != 0) {
                raise();
            } else {
                EXPECT_EQ(set(i % 2 == 0 ? second : first), i % 2 == 0 ? first : second);
            }
        }
    });
    EXPECT_EQ(set(before), first);
    EXPECT_EQ(heardByFirst + heardBySecond, static_cast<int>(kThreads - 1) * kRounds);
}

TEST(SharedSettings, EveryAssertionReachesAHandler) {
    ExpectEveryCallToBeHeard(FirstAssertHandler, SecondAssertHandler, KYRN_setAssertHandler,
                             [] { KYRN_assert("broken", "a file", 7); });
}

TEST(SharedSettings, EveryLackOfMemoryReachesAHandler) {
    ExpectEveryCallToBeHeard(FirstMemoryHandler, SecondMemoryHandler, KySetMemoryHandler,
                             [] { KyCallMemoryHandler(100); });
}

}  // namespace
