#ifndef BYTE_SINK_H
#define BYTE_SINK_H

#include <algorithm>
#include <cstddef>

#include "disk_bytes.h"
#include "kybase.h"
#include "kytypes.h"
#include "raw_bytes.h"

namespace ky {

/// Takes bytes one piece after the other and writes those for which there is room. Pieces may be what already stands at
/// their place.
class ByteSink {
public:
    ByteSink(void* to, std::size_t roomBytes) : at(static_cast<unsigned char*>(to)), room(roomBytes) {}

    std::size_t Written() const { return written; }

    void Put(const void* bytes, std::size_t count) {
        const std::size_t fitting = std::min(count, room - written);
        CopyBytes(at, bytes, fitting);
        Advance(fitting);
    }
    void Put(unsigned char byte) {
        if (written == room) return;
        *at = byte;
        Advance(1);
    }
    /// To or from disk form.
    void PutConverted(const unsigned char (&table)[128], const void* bytes, std::size_t count) {
        const std::size_t fitting = std::min(count, room - written);
        ConvertBytes(table, at, bytes, fitting);
        Advance(fitting);
    }
    /// 16-bit units with their bytes swapped.
    void PutSwapped(const void* units, std::size_t count) {
        const std::size_t fitting = std::min(count, room - written);
        const std::size_t whole = fitting & ~std::size_t{1};
        ShortStore(at, units, KyFormReversed, static_cast<unsigned>(whole / 2));
        Advance(whole);
        if (fitting != whole) Put(static_cast<const unsigned char*>(units) + whole + 1, 1);
    }
    void PutZeros(std::size_t count) {
        const std::size_t fitting = std::min(count, room - written);
        ZeroBytes(at, fitting);
        Advance(fitting);
    }

private:
    unsigned char* at;
    std::size_t room;
    std::size_t written = 0;

    void Advance(std::size_t bytes) {
        at += bytes;
        written += bytes;
    }
};

}  // namespace ky

#endif
