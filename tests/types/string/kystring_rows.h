#ifndef KYSTRING_ROWS_H
#define KYSTRING_ROWS_H

/// Strings through the slots of their rows.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "kystring.h"
#include "kytypes.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

/// An array as the row stores it.
inline std::vector<unsigned char> Stored(const KyTypeTab& row, const KyString* strings, unsigned count,
                                         unsigned char form) {
    std::vector<unsigned char> bytes(row.SizeGet(strings, KyFormMemory, form, count));
    row.Store(bytes.data(), strings, form, count);
    return bytes;
}

inline std::vector<unsigned char> Stored(const KyTypeTab& row, const std::vector<KyString>& strings,
                                         unsigned char form) {
    return Stored(row, strings.data(), static_cast<unsigned>(strings.size()), form);
}

/// What Translate makes of the source in a destination of `room` bytes against an inaccessible page; the bytes that it
/// returns are checked to be those in front of the zeros.
inline std::string Translated(const KyTypeTab& row, unsigned char dstFlag, unsigned dstLen, std::size_t room, void* src,
                              unsigned char srcFlag, unsigned srcLen, unsigned count) {
    GuardedBuffer dst(room);
    std::memset(dst.data(), 0xA5, room);
    const unsigned written = row.Translate(dst.data(), dstFlag, dstLen, src, srcFlag, srcLen, count);
    EXPECT_LE(written, room);
    for (std::size_t i = written; i < dstLen; ++i) EXPECT_EQ(dst.data()[i], 0) << i;
    return Hex(dst.data(), written);
}

#endif
