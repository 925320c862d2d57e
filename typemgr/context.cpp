// The default manager, and the attachment of the library, which makes and deletes it.

#include <atomic>

#include "kyi18n.h"
#include "kytypinf.h"
#include "kytypmgr.h"

namespace {

constinit std::atomic<KyTypeMgr*> defaultManager = nullptr;

}  // namespace

KyTypeMgr* DefaultTypeMgr(KyTypeMgr* manager) {
    return manager == nullptr ? defaultManager.load() : defaultManager.exchange(manager);
}

void ___KyTypemgrContext(int attach) {
    constexpr unsigned newArray = 5;
    ___KyI18NContext(attach);
    if (attach != 0) {
        defaultManager = new KyTypeMgr(newArray);
    } else {
        delete defaultManager.exchange(nullptr);
    }
}
