// Loading the library at run time, the way an engine does: nothing of it is known while this program is built.

#include <dlfcn.h>

#include <cstdio>

namespace {

//! [types]
using Describe = const char*(unsigned* major, unsigned* minor, unsigned* release, unsigned* build, unsigned* patch,
                             const char** name, const char** date, const char** extra, unsigned* buildNumber,
                             const char** compiler, const char** empty);
using Check = int(unsigned flags);
using Options = void*();
using Attach = void(int attach);

/// An entry point by its plain name.
template <class Function>
Function* Find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}
//! [types]

}  // namespace

int main(int argc, char** argv) {
    //! [load]
    void* library = dlopen(argc > 1 ? argv[1] : "libCV120Vtm44x64.so", RTLD_NOW);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    auto* describe = Find<Describe>(library, "KyDescribeDll");
    auto* check = Find<Check>(library, "KyCheckDll");
    auto* options = Find<Options>(library, "___KyTypeMgrOptions");
    auto* attach = Find<Attach>(library, "___KyTypemgrContext");
    if (describe == nullptr || check == nullptr || options == nullptr || attach == nullptr) return 1;
    //! [load]

    //! [describe]
    unsigned major, minor, release, build, patch, number;
    const char *name, *date, *extra, *compiler, *empty;
    const char* title =
        describe(&major, &minor, &release, &build, &patch, &name, &date, &extra, &number, &compiler, &empty);
    std::printf("%s (%s) %u.%u.%u.%u.%u of %s\n", title, name, major, minor, release, build, patch, date);
    std::printf("its libraries %s together\n", check(0) == 0 ? "fit" : "do not fit");
    //! [describe]

    //! [attach]
    static_cast<unsigned char*>(options())[0] |= 1;  // texts are numbers in base 10: "010" is ten
    attach(1);                                       // now there is a default type manager
    attach(0);
    dlclose(library);
    //! [attach]
    return 0;
}
