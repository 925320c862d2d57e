#include "key_reader.h"

namespace ky {

/// The order that an iterator reads next. Where there are tables they go on behind the character.
void KeyReader::Iterate() {
    if (!it) it.emplace(at, codeSet, language, format);
    // KEPT: a marker is of the class of the order before it, so the iterator is told that class.
    if (LooksUp() && !expanding) it->Resume(at, ClassInKey(key));
    order = it->GetNextOrder(1);
    key = OrderKey(order, it->OrderClass());
    if (!LooksUp()) return;
    expanding = it->InOverflow();
    if (!expanding) at = it->Position();
}

}  // namespace ky
