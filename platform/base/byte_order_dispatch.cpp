#include "byte_order_kernels.h"
#include "kernel_choice.h"

namespace {

using ky::ArrayKernel;

KY_RESOLVER inline ArrayKernel* Best(ArrayKernel* sse2, ArrayKernel* avx2, ArrayKernel* avx512) {
    return ky::WidestOf(ky::RunnableVariants(), sse2, avx2, avx512);
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
