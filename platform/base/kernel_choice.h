#ifndef KERNEL_CHOICE_H
#define KERNEL_CHOICE_H

/// Which variant of a loop the loader binds a name to: of every loop there is one for any x86-64, one for AVX2 and one
/// for AVX-512.
///
/// Resolvers run while the library is being relocated. Nothing else of the process works yet, sanitizers included:
/// nothing here may be instrumented, and no address is read from memory that may not be relocated yet.

#define KY_UNINSTRUMENTED no_sanitize("address", "thread", "undefined")
#ifdef __clang__
#define KY_RESOLVER __attribute__((KY_UNINSTRUMENTED, no_sanitize("coverage"), disable_sanitizer_instrumentation))
#else
#define KY_RESOLVER __attribute__((KY_UNINSTRUMENTED))
#endif

namespace ky {

/// How many of the three variants this machine can run, the one for AVX-512 with the byte, word, double word and
/// short vector instructions.
KY_RESOLVER inline int RunnableVariants() {
    __builtin_cpu_init();
    if (!__builtin_cpu_supports("avx2")) return 1;
    const bool avx512 = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    return avx512 ? 3 : 2;
}

/// The widest of the first `runnable` variants.
template <class Kernel>
KY_RESOLVER inline Kernel* WidestOf(int runnable, Kernel* any, Kernel* avx2, Kernel* avx512) {
    return runnable == 3 ? avx512 : runnable == 2 ? avx2 : any;
}

}  // namespace ky

#endif
