#include "byte_order_kernels.h"

// The resolvers run while the library is being relocated: nothing else of it works yet, no sanitizer included, so
// they are kept free of instrumentation.
#define KY_UNINSTRUMENTED no_sanitize("address", "thread", "undefined")
#ifdef __clang__
#define KY_RESOLVER __attribute__((KY_UNINSTRUMENTED, disable_sanitizer_instrumentation))
#else
#define KY_RESOLVER __attribute__((KY_UNINSTRUMENTED))
#endif

namespace {

using ky::ArrayKernel;

KY_RESOLVER inline ArrayKernel* Best(ArrayKernel* sse2, ArrayKernel* avx2, ArrayKernel* avx512) {
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512bw")) return avx512;
    if (__builtin_cpu_supports("avx2")) return avx2;
    return sse2;
}

}  // namespace

extern "C" {

KY_RESOLVER ArrayKernel* KyResolveCopy() { return Best(&ky::CopyBytesSse2, &ky::CopyBytesAvx2, &ky::CopyBytesAvx512); }

KY_RESOLVER ArrayKernel* KyResolveReverse2() {
    return Best(&ky::ReverseBytes2Sse2, &ky::ReverseBytes2Avx2, &ky::ReverseBytes2Avx512);
}

KY_RESOLVER ArrayKernel* KyResolveReverse4() {
    return Best(&ky::ReverseBytes4Sse2, &ky::ReverseBytes4Avx2, &ky::ReverseBytes4Avx512);
}

KY_RESOLVER ArrayKernel* KyResolveReverse8() {
    return Best(&ky::ReverseBytes8Sse2, &ky::ReverseBytes8Avx2, &ky::ReverseBytes8Avx512);
}
}

namespace ky {

__attribute__((ifunc("KyResolveCopy"))) ArrayKernel CopyBytes;
__attribute__((ifunc("KyResolveReverse2"))) ArrayKernel ReverseBytes2;
__attribute__((ifunc("KyResolveReverse4"))) ArrayKernel ReverseBytes4;
__attribute__((ifunc("KyResolveReverse8"))) ArrayKernel ReverseBytes8;

}  // namespace ky
