#include "empty_row.h"
#include "kytypes.h"

constinit KyTypeTab KyIllegalTab = ky::EmptyRow("illegal", "KyRES_T", "illegal", KyFixedSize | 0);

constinit KyTypeTab* KyNewtypetab[KyTypeIdLimit + 1] = {
#define KY_ROSTER_ADDRESS(id, constant, row) &row,
    KY_TYPE_ROSTER(KY_ROSTER_ADDRESS)
#undef KY_ROSTER_ADDRESS
        nullptr,
};

namespace {

/// The row of an id in the old array: the new one's, but for strings.
consteval KyTypeTab* OldRow(int id) {
    constexpr KyTypeTab* newRows[] = {
#define KY_ROSTER_ADDRESS(id, constant, row) &row,
        KY_TYPE_ROSTER(KY_ROSTER_ADDRESS)
#undef KY_ROSTER_ADDRESS
    };
    return id == KySTRING_T ? &KyOldStringTab : newRows[id];
}

}  // namespace

constinit KyTypeTab* KyOldtypetab[KyOldTypeIdLimit] = {
    OldRow(0),  OldRow(1),  OldRow(2),  OldRow(3),  OldRow(4),  OldRow(5),  OldRow(6),
    OldRow(7),  OldRow(8),  OldRow(9),  OldRow(10), OldRow(11), OldRow(12), OldRow(13),
    OldRow(14), OldRow(15), OldRow(16), OldRow(17), OldRow(18), OldRow(19), OldRow(20),
    OldRow(21), OldRow(22), OldRow(23), OldRow(24), OldRow(25), OldRow(26), OldRow(27),
};
