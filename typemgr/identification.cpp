// Name, version and compiler of the library.

#include <cstddef>
#include <cstring>
#include <mutex>
#include <string_view>

#include "kybase.h"
#include "kytypinf.h"

#if defined(__clang__)
#define KY_COMPILER "clang++ " __clang_version__
#else
#define KY_COMPILER "g++ " __VERSION__
#endif

extern "C" {
constinit const char* DLLname = "CV120Vtms44x64";
constinit const char* DLLtitle = "Corvane Typemanager";
constinit const char* DLLdate = "May 27 2019";
constinit const char* DLLcompilerName = KY_COMPILER ", 64 bit, Linux";
}

namespace {

constexpr unsigned kMajor = 12;
constexpr unsigned kMinor = 0;
constexpr unsigned kRelease = 2;
constexpr unsigned kBuild = 229;
constexpr unsigned kPatch = 0;
constexpr unsigned kBuildNumber = 440;
constexpr std::string_view kVersionBehindTitle = " 12.0.2.229.0 ";

constexpr std::size_t kLongestTitle = 200;

/// One text for all callers. It is written only where it changes, and not any more once the title stands: a thread that
/// reads it is then safe beside one that asks for it.
constexpr std::size_t kVersionTextSize = kLongestTitle + kVersionBehindTitle.size() + 1;
char versionText[kVersionTextSize];
constinit std::mutex versionTextGuard;

const char* VersionText() {
    const std::string_view title = std::string_view(DLLtitle).substr(0, kLongestTitle);
    char present[kVersionTextSize] = {};
    std::memcpy(present, title.data(), title.size());
    std::memcpy(present + title.size(), kVersionBehindTitle.data(), kVersionBehindTitle.size());

    const std::lock_guard lock(versionTextGuard);
    if (std::memcmp(versionText, present, kVersionTextSize) != 0) std::memcpy(versionText, present, kVersionTextSize);
    return versionText;
}

template <class Value>
void PutUnlessNull(Value* output, Value value) {
    if (output != nullptr) *output = value;
}

}  // namespace

const char* KyDescribeDll(unsigned* major, unsigned* minor, unsigned* release, unsigned* build, unsigned* patch,
                          const char** name, const char** date, const char** extra, unsigned* buildNumber,
                          const char** compiler, const char** empty) {
    *major = kMajor;
    *minor = kMinor;
    *release = kRelease;
    *build = kBuild;
    *patch = kPatch;
    *name = DLLname;
    *date = "May 27 2019 21:36:01";
    *extra = "unknown";
    *buildNumber = kBuildNumber;
    *compiler = DLLcompilerName;
    *empty = "";
    return DLLtitle;
}

void GetKyTypeMgrInfo(const char** compiler, unsigned* buildNumber, const char** version, const char** date,
                      const char** name) {
    PutUnlessNull<const char*>(compiler, DLLcompilerName);
    PutUnlessNull(buildNumber, kBuildNumber);
    if (version != nullptr) *version = VersionText();
    PutUnlessNull<const char*>(date, DLLdate);
    PutUnlessNull<const char*>(name, DLLname);
}

int KyCheckDll(unsigned flags) {
    constexpr unsigned majorMinorAndRelease = 3;
    return CheckKyVersionNumber(kMajor, kMinor, kRelease, kBuild, kPatch, flags | majorMinorAndRelease);
}
