#ifndef IDENTIFIER_SAMPLES_H
#define IDENTIFIER_SAMPLES_H

#include "identifier_slots.h"
#include "kyobjid.h"
#include "kytypes.h"

/// A row with the bytes of one of its values.
struct Sizes {
    KyTypeTab* row;
    unsigned memory;
    unsigned stored;
};

inline const Sizes kSizes[] = {{&KyObjIdTab, 12, 10}, {&KyClassIdTab, 4, 4}, {&KyRefTab, 16, 14}};

/// Values of which each byte is another one.
inline const KyObjId kObject(0x01020304, 0x05060708, 0x090A);
inline const KyRef kReference(kObject, 0x0B0C, KyClassId(0x0D0E, 0x0F10));

#endif
