#ifndef ROW_LOOKUP_H
#define ROW_LOOKUP_H

#include <cstddef>

#include "kytypmgr.h"

namespace ky {

/// Factory numbers below this one select the old array.
inline constexpr unsigned kFirstNewFactory = 4;

}  // namespace ky

/// The one way from a type id to a row. Ids without a row in the array in force reach the illegal row.
inline KyTypeTab& KyTypeMgr::Row(char id) const {
    static_assert(sizeof(KyTypeMgr) == 16 && offsetof(KyTypeMgr, rows) == 0 && offsetof(KyTypeMgr, factory) == 8);
    constexpr unsigned oldLimit = KyOldTypeIdLimit;
    constexpr unsigned newLimit = KyTypeIdLimit;
    const unsigned limit = factory < ky::kFirstNewFactory ? oldLimit : newLimit;
    // Read as unsigned, so that negative ids lie above every limit.
    const unsigned index = static_cast<unsigned char>(id);
    return index < limit ? *rows[index] : KyIllegalTab;
}

#endif
