#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// Test programs run under the environment's locale, so that all of their tests show that text does not depend on it
/// when `LC_ALL` names one with a decimal comma or a dotless i. One that is named and not there ends the program.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const char* name = std::getenv("LC_ALL");
    if (std::setlocale(LC_ALL, "") == nullptr && name != nullptr && *name != '\0') {
        std::fprintf(stderr, "locale %s is not installed\n", name);
        return 2;
    }
    return RUN_ALL_TESTS();
}
