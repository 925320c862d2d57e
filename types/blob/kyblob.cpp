#include "kyblob.h"

#include <cstdlib>
#include <cstring>

#include "blob_bytes.h"
#include "kybase.h"

namespace ky {

void FreeBytes(KyBlobData& block) {
    std::free(block.data);
    block = KyBlobData();
}

bool MoveToLarger(KyBlobData& block, std::size_t needed, std::size_t capacity) {
    void* larger = std::malloc(capacity);
    if (larger == nullptr && capacity > needed) larger = std::malloc(capacity = needed);
    if (larger == nullptr) {
        KyCallMemoryHandler(needed);
        FreeBytes(block);
        return false;
    }
    CopyBytes(larger, block.data, static_cast<std::size_t>(block.length));
    std::free(block.data);
    block.data = larger;
    block.capacity = static_cast<int>(capacity);
    return true;
}

void CopyToNew(KyBlobData& block, const void* bytes, std::size_t size) {
    // What is large is given up first, where it can be.
    const bool isOwn = LiesInside(block, bytes);
    if (!isOwn) FreeBytes(block);
    void* const fresh = std::malloc(size);
    if (fresh != nullptr) CopyBytes(fresh, bytes, size);
    if (isOwn) FreeBytes(block);
    if (fresh == nullptr) return KyCallMemoryHandler(size);
    block = {.data = fresh, .length = static_cast<int>(size), .capacity = static_cast<int>(size)};
}

}  // namespace ky

KyBlob::KyBlob(int n) : KyBlob() { Expand(n); }

KyBlob::KyBlob(const void* p, int n) : KyBlob() { SetTo(p, n); }

KyBlob::KyBlob(const char* s) : KyBlob() { *this = s; }

// By way of a whole object, so that it is destroyed where the copy throws.
KyBlob::KyBlob(const KyBlob& other) : KyBlob(Null()) { *this = other; }

KyBlob& KyBlob::operator=(const KyBlob& other) {
    if (this == &other) return *this;
    if (other.block != nullptr) {
        Fill(other.block->data, static_cast<std::size_t>(other.block->length));
    } else {
        SetNullValue();
    }
    return *this;
}

KyBlob& KyBlob::operator=(const char* s) {
    Fill(s, s != nullptr ? std::strlen(s) + 1 : 0);
    return *this;
}

KyBlob& KyBlob::SetTo(const void* p, int n) { return Fill(p, p != nullptr && n > 0 ? static_cast<std::size_t>(n) : 0); }

int KyBlob::SetNullValue() {
    if (block != nullptr) std::free(block->data);
    delete block;
    block = nullptr;
    return 0;
}

void* KyBlob::Seek(int offset, int n) const {
    if (block == nullptr || offset < 0 || n <= 0 || n > block->length - static_cast<long long>(offset)) return nullptr;
    return ky::Advance(block->data, static_cast<std::size_t>(offset));
}

KyBlob& KyBlob::Resize(unsigned int n) {
    if (n > ky::kMostBlobBytes) {
        KyCallMemoryHandler(n);
        return *this;
    }
    if (block == nullptr) block = new KyBlobData;
    const auto length = static_cast<std::size_t>(block->length);
    if (n == 0) {
        ky::FreeBytes(*block);
    } else if (n <= length) {
        block->length = static_cast<int>(n);
    } else if (ky::MoveToLarger(*block, n, n)) {
        ky::ZeroBytes(ky::Advance(block->data, length), n - length);
        block->length = static_cast<int>(n);
    }
    return *this;
}

int KyBlob::Order(const KyBlob& other) const { return ky::OrderBlocks(block, other.block); }

template <class Number>
Number KyBlob::FirstBytes() const {
    Number number = 0;
    if (block != nullptr) {
        ky::CopyBytes(&number, block->data, std::min(sizeof number, static_cast<std::size_t>(block->length)));
    }
    return number;
}

KyBlob::operator short() const { return FirstBytes<short>(); }
KyBlob::operator int() const { return FirstBytes<int>(); }
KyBlob::operator double() const { return FirstBytes<double>(); }

/// Becomes a value of these bytes.
KyBlob& KyBlob::Fill(const void* p, std::size_t n) {
    if (n > ky::kMostBlobBytes) {
        KyCallMemoryHandler(n);
        return *this;
    }
    if (block == nullptr) block = new KyBlobData;
    ky::FillBytes(*block, p, n);
    return *this;
}
