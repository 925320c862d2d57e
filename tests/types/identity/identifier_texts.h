#ifndef IDENTIFIER_TEXTS_H
#define IDENTIFIER_TEXTS_H

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kystring.h"
#include "kytypes.h"

/// What the row prints one value as; null: in the format of the row.
inline std::string Print(KyTypeTab& row, const void* value, const char* format) {
    unsigned char copy[16];
    std::memcpy(copy, value, row.sizeWord & 0xFFFF);
    KyString out("before");
    EXPECT_EQ(&row.PrintToKyString(out, copy, format, 1), &out);
    return out.StrGet();
}

#endif
