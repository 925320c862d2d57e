#include <utility>

#include "kystring.h"
#include "kytypes.h"

int KySplitList(const KyString& list, KyString& item, const KyString& separator, unsigned short& pos) {
    unsigned short end;
    while ((end = list.Find(separator, pos, KyCmpDefault)) == 0) ++pos;
    if (end == KyString::NotFound) {
        end = list.Len();
        if (pos >= end) return KyErrListEnd;
    }
    const auto count = static_cast<unsigned short>(end - pos);
    KyString found = list.Copy(pos, static_cast<short>(count));
    found.Trim();
    item = std::move(found);
    pos = static_cast<unsigned short>(end + 1);
    return 0;
}
