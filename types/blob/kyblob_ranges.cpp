/// Ranges of a blob's bytes: what is added, removed, copied and found.

#include <cstring>

#include "blob_bytes.h"
#include "kybase.h"
#include "kyblob.h"

namespace {

/// How many bytes a range from `offset` on has in a blob of `length` bytes.
int RangeBytes(int length, int offset, int n) {
    if (offset < 0 || offset >= length || n < -1) return 0;
    const int rest = length - offset;
    return n == -1 ? rest : std::min(n, rest);
}

}  // namespace

/// Makes the blob, a value then, longer by `more` bytes, not 0; they are the caller's to write. Returns where they
/// stand; null when there is no room.
void* KyBlob::MakeRoom(std::size_t more) {
    const std::size_t length = static_cast<std::size_t>(Length());
    const std::size_t needed = length + more;
    if (needed > ky::kMostBlobBytes) {
        KyCallMemoryHandler(needed);
        return nullptr;
    }
    if (block == nullptr) block = new KyBlobData;
    const auto capacity = static_cast<std::size_t>(block->capacity);
    if (needed > capacity) {
        const std::size_t grown = std::min(2 * capacity, ky::kMostBlobBytes);
        if (!ky::MoveToLarger(*block, needed, std::max(needed, grown))) return nullptr;
    }
    block->length = static_cast<int>(needed);
    return ky::Advance(block->data, length);
}

KyBlob& KyBlob::Append(const void* p, int n) {
    if (p == nullptr || n <= 0) return *this;
    const auto bytes = static_cast<std::size_t>(n);
    if (block != nullptr && n <= block->capacity - block->length) {
        std::memmove(ky::Advance(block->data, static_cast<std::size_t>(block->length)), p, bytes);
        block->length += n;
        return *this;
    }
    // The source moves with the buffer where it lies inside.
    const bool isOwn = block != nullptr && ky::LiesInside(*block, p);
    const std::ptrdiff_t place =
        isOwn ? static_cast<const char*>(p) - static_cast<const char*>(block->data) : std::ptrdiff_t{0};
    void* const added = MakeRoom(bytes);
    if (added == nullptr) return *this;
    ky::CopyBytes(added, isOwn ? ky::Advance(block->data, static_cast<std::size_t>(place)) : p, bytes);
    return *this;
}

KyBlob& KyBlob::Append(const KyBlob& other) {
    return Append(other.block != nullptr ? other.block->data : nullptr, other.Length());
}

KyBlob& KyBlob::Expand(int n) {
    const int length = Length();
    if (n <= length) return *this;
    const auto more = static_cast<std::size_t>(n - length);
    void* const added = MakeRoom(more);
    if (added != nullptr) ky::ZeroBytes(added, more);
    return *this;
}

KyBlob& KyBlob::Cut(int offset, int n) {
    const int length = Length();
    const int cut = RangeBytes(length, offset, n);
    if (cut == 0) return *this;
    if (cut == length) {
        ky::FreeBytes(*block);
        return *this;
    }
    unsigned char* const to = ky::Advance(block->data, static_cast<std::size_t>(offset));
    ky::CopyBytes(to, to + cut, static_cast<std::size_t>(length - offset - cut));
    block->length = length - cut;
    return *this;
}

KyBlob KyBlob::CopyFrom(int offset, int n) const {
    KyBlob range;
    CopyTo(range, offset, n);
    return range;
}

int KyBlob::CopyTo(KyBlob& dst, int offset, int n) const {
    const int bytes = RangeBytes(Length(), offset, n);
    dst.SetTo(Seek(offset, bytes), bytes);
    return bytes;
}

int KyBlob::Search(const KyBlob& pattern) const {
    const auto length = static_cast<std::size_t>(Length());
    const auto patternLength = static_cast<std::size_t>(pattern.Length());
    if (patternLength == 0 || patternLength > length) return -1;
    const void* found = memmem(block->data, length, pattern.block->data, patternLength);
    if (found == nullptr) return -1;
    return static_cast<int>(static_cast<const char*>(found) - static_cast<const char*>(block->data));
}
