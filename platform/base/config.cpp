#include <atomic>
#include <cstdint>

#include "kybase.h"

namespace {

constinit std::atomic<KyConfig*> installedConfig{nullptr};

bool IsQuery(const KyConfig* config) { return reinterpret_cast<std::uintptr_t>(config) == UINTPTR_MAX; }

}  // namespace

KyConfig::~KyConfig() = default;

KyConfig* DefaultConfig(KyConfig* config) {
    if (IsQuery(config)) return installedConfig.load(std::memory_order_acquire);
    return installedConfig.exchange(config, std::memory_order_acq_rel);
}
