#include "kybase.h"

namespace {

constexpr int libraryMajor = 12;
constexpr int libraryMinor = 0;
constexpr int libraryRelease = 2;

constexpr unsigned majorAndMinorAgree = 1;
constexpr unsigned releaseAgrees = 2;

constexpr int otherVersion = 1;
constexpr int otherRelease = 2;

}  // namespace

int CheckKyVersionNumber(int major, int minor, int release, int, int, unsigned flags) {
    if ((flags & majorAndMinorAgree) != 0 && (major != libraryMajor || minor != libraryMinor)) return otherVersion;
    if ((flags & releaseAgrees) != 0 && release != libraryRelease) return otherRelease;
    return 0;
}
