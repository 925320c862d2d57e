#include <gtest/gtest.h>

#include <string>

#include "kybase.h"

namespace {

std::string lastReport;

void Record(const char* message, const char* source, int line) {
    lastReport = std::string(source) + ":" + std::to_string(line) + ":" + message;
}

TEST(Assertion, GoesToTheInstalledHandler) {
    const KyAssertHandler before = KYRN_setAssertHandler(&Record);
    KYRN_assert("broken", "src/x", 7);
    EXPECT_EQ(lastReport, "src/x:7:broken");
    EXPECT_EQ(KYRN_setAssertHandler(before), &Record);
}

TEST(Assertion, DefaultWritesOneLineAndReturns) {
    const KyAssertHandler before = KYRN_setAssertHandler(nullptr);
    testing::internal::CaptureStderr();
    KYRN_assert("broken", "src/x", 7);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "src/x:7: broken\n");
    KYRN_setAssertHandler(before);
}

}  // namespace
