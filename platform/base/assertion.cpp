#include <atomic>
#include <cstdio>

#include "kybase.h"

namespace {

void WriteToStandardError(const char* message, const char* source, int line) {
    (void)std::fprintf(stderr, "%s:%d: %s\n", source, line, message);
}

constinit std::atomic<KyAssertHandler> installedHandler{&WriteToStandardError};

}  // namespace

void KYRN_assert(const char* message, const char* source, int line) {
    installedHandler.load(std::memory_order_acquire)(message, source, line);
}

KyAssertHandler KYRN_setAssertHandler(KyAssertHandler handler) {
    return installedHandler.exchange(handler != nullptr ? handler : &WriteToStandardError, std::memory_order_acq_rel);
}
