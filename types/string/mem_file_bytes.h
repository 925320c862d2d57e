#ifndef MEM_FILE_BYTES_H
#define MEM_FILE_BYTES_H

#include "kybase.h"

namespace ky {

/// The `size` bytes that stand `offset` bytes behind the file's position; null when the file ends before their end. The
/// position stays.
inline const unsigned char* BytesOfFile(MemFile& file, long offset, long size) {
    const auto* start = static_cast<const unsigned char*>(file.Seek(offset, MemFile::current));
    if (start == nullptr) return nullptr;
    const bool inside = file.Seek(size, MemFile::current) != nullptr;
    file.Seek(inside ? -(offset + size) : -offset, MemFile::current);
    return inside ? start : nullptr;
}

}  // namespace ky

#endif
