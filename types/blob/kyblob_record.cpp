/// Blobs as they stand in arrays: handles in memory form, one record in the persistent ones.

#include <cstdint>

#include "array_rules.h"
#include "blob_bytes.h"
#include "blob_kernels.h"
#include "kybase.h"
#include "kyblob.h"
#include "kyblob_slots.h"
#include "mem_file_bytes.h"
#include "raw_bytes.h"

namespace {

constexpr unsigned kField = 4;  ///< bytes of the total and of a length
constexpr std::uint32_t kNullLength = 0xFFFFFFFF;

unsigned char FormOf(unsigned char flag) { return flag & KyFormMask; }

std::uint32_t ReadField(const void* from, unsigned char form) {
    const auto number = ky::LoadAs<std::uint32_t>(from);
    return form == KyFormReversed ? ky::ByteSwap(number) : number;
}

void WriteField(void* to, std::uint32_t number, unsigned char form) {
    ky::StoreAs(to, form == KyFormReversed ? ky::ByteSwap(number) : number);
}

/// What a length or a total counts for where it may be all ones.
std::uint32_t ReadCounted(const void* from, unsigned char form) {
    const std::uint32_t number = ReadField(from, form);
    return number == kNullLength ? 0 : number;
}

std::uint64_t TotalOf(const KyBlob* blobs, unsigned count) {
    std::uint64_t total = kField * std::uint64_t{count};
    for (unsigned i = 0; i < count; ++i) total += static_cast<std::uint64_t>(blobs[i].Length());
    return total;
}

/// False where there was no memory.
bool Fill(KyBlob& blob, const void* bytes, std::uint32_t length) {
    KyBlobData* const block = ky::BlockOf(blob);
    if (block != nullptr) {
        ky::FillBytes(*block, bytes, length);
    } else {
        blob.SetTo(bytes, static_cast<int>(length));
    }
    return static_cast<std::uint32_t>(blob.Length()) == length;
}

/// A walk over the elements of a record, as far as it is there.
class ElementWalk {
public:
    ElementWalk(const void* record, unsigned length, unsigned char recordForm)
        : at(ky::Advance(record, kField)),
          left(length != 0 ? length - std::min<std::size_t>(length, kField) : ReadCounted(record, recordForm)),
          form(recordForm) {}

    /// The length field of an element is there.
    bool HasElement() const { return left >= kField; }
    bool IsNull() const { return ReadField(at, form) == kNullLength; }
    std::size_t Length() const { return ReadCounted(at, form); }
    const void* Bytes() const { return at + kField; }
    bool IsWhole() const { return Length() <= left - kField; }
    /// As many of them as are there.
    std::size_t BytesThere() const { return std::min(Length(), left - kField); }
    void Next() {
        const std::size_t step = std::min(kField + Length(), left);
        at += step;
        left -= step;
    }

private:
    const unsigned char* at;
    std::size_t left;  ///< bytes from `at` on
    unsigned char form;
};

// What is rarely needed is not inlined, so that it costs nothing where there is but one element, which is whole.

/// Of `common` bytes, then of the lengths as they are told.
[[gnu::noinline]] int OrderCutElements(const void* a, std::size_t lengthA, const void* b, std::size_t lengthB,
                                       std::size_t common) {
    const int order = ky::OrderRuns(a, common, b, common);
    return order != 0 ? order : ky::Order(lengthA, lengthB);
}

/// Bytes first, as far as they are there of both, then the lengths as they are told.
int OrderElements(const ElementWalk& a, const ElementWalk& b) {
    if (a.IsNull() || b.IsNull()) return 2 * ky::Order(b.IsNull(), a.IsNull());
    if (a.IsWhole() && b.IsWhole()) return ky::OrderRuns(a.Bytes(), a.Length(), b.Bytes(), b.Length());
    return OrderCutElements(a.Bytes(), a.Length(), b.Bytes(), b.Length(), std::min(a.BytesThere(), b.BytesThere()));
}

[[gnu::noinline]] int CompareRecords(const void* recordA, unsigned lengthA, const void* recordB, unsigned lengthB,
                                     unsigned char form, unsigned count) {
    ElementWalk a(recordA, lengthA, form);
    ElementWalk b(recordB, lengthB, form);
    int order = 0;
    for (unsigned i = 0; i < count && order == 0 && a.HasElement() && b.HasElement(); ++i) {
        order = OrderElements(a, b);
        a.Next();
        b.Next();
    }
    return order;
}

[[gnu::noinline]] int CompareHandles(const KyBlob* a, const KyBlob* b, std::size_t visited) {
    int order = 0;
    for (std::size_t i = 0; i < visited && order == 0; ++i) {
        order = ky::OrderBlocks(ky::BlockOf(a[i]), ky::BlockOf(b[i]));
    }
    return order;
}

unsigned HashRecord(const void* record, unsigned length, unsigned char form, unsigned count) {
    std::uint64_t left = length != 0 ? length : kField + std::uint64_t{ReadCounted(record, form)};
    const unsigned char* at = ky::Advance(record, 0);
    std::uint32_t lengths = 0;
    for (unsigned i = 0; i < count && left >= kField; ++i) {
        const std::uint64_t told = kField + std::uint64_t{ReadCounted(at, form)};
        left -= kField;
        const std::uint64_t step = std::min(told, left);
        lengths ^= static_cast<std::uint32_t>(step);
        at += kField + step;
        left -= step;
    }
    return ky::kHashFactor * lengths;
}

/// Load of a record of which no more than `size` bytes may be read.
unsigned LoadWithin(KyBlob* blobs, const void* src, std::uint64_t size, unsigned char form, unsigned count) {
    if (size < kField) return 0;
    const std::uint64_t total = ReadField(src, form);
    if (total > ky::kMostBlobBytes || total > size - kField) return 0;
    const unsigned char* at = ky::Advance(src, kField);
    std::uint64_t left = total;
    for (unsigned i = 0; i < count; ++i) {
        if (left < kField) return 0;
        const std::uint32_t length = ReadField(at, form);
        at += kField;
        left -= kField;
        if (length == kNullLength) {
            blobs[i].SetNullValue();
            continue;
        }
        if (length > ky::kMostBlobBytes || length > left || !Fill(blobs[i], at, length)) return 0;
        at += length;
        left -= length;
    }
    return static_cast<unsigned>(kField + total);
}

unsigned StoreOne(void* dst, const KyBlobData* block, unsigned char form) {
    const std::uint32_t length = block != nullptr ? static_cast<std::uint32_t>(block->length) : kNullLength;
    const std::uint32_t total = block != nullptr ? kField + length : kField;
    if (total > ky::kMostBlobBytes) return 0;
    WriteField(dst, total, form);
    WriteField(ky::Advance(dst, kField), length, form);
    if (block == nullptr) return kField + total;
    return ky::CopyRun(ky::Advance(dst, std::size_t{kField} * 2), block->data, length, kField + total);
}

unsigned CopyRecord(void* dst, unsigned dstLen, void* src, unsigned char srcFlag, unsigned srcLen, unsigned count) {
    const unsigned size = srcLen != 0 ? srcLen : BlobSizeGet(src, srcFlag, srcFlag, count);
    return ky::CopyPersistent(dst, dstLen != 0 ? dstLen : size, src, size);
}

}  // namespace

unsigned BlobStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    const auto* blobs = static_cast<const KyBlob*>(src);
    const unsigned char form = FormOf(flag);
    if (count == 1) return StoreOne(dst, ky::BlockOf(*blobs), form);
    const std::uint64_t total = TotalOf(blobs, count);
    if (total > ky::kMostBlobBytes) return 0;
    unsigned char* at = ky::Advance(dst, kField);
    for (unsigned i = 0; i < count; ++i) {
        const KyBlobData* const block = ky::BlockOf(blobs[i]);
        WriteField(at, block != nullptr ? static_cast<std::uint32_t>(block->length) : kNullLength, form);
        at += kField;
        if (block == nullptr) continue;
        ky::CopyBytes(at, block->data, static_cast<std::size_t>(block->length));
        at += block->length;
    }
    WriteField(dst, static_cast<std::uint32_t>(total), form);
    return static_cast<unsigned>(kField + total);
}

unsigned BlobLoad(void* dst, const void* src, unsigned char flag, unsigned count) {
    auto* blobs = static_cast<KyBlob*>(dst);
    const unsigned char form = FormOf(flag);
    if (count == 1) {
        KyBlobData* const block = ky::BlockOf(*blobs);
        const std::uint32_t total = ReadField(src, form);
        if (block != nullptr && total >= kField && total <= ky::kMostBlobBytes) {
            // A length that is negative, or that of null, is longer than any buffer that stays.
            const std::uint32_t length = ReadField(ky::Advance(src, kField), form);
            if (length <= total - kField && ky::KeepsBuffer(*block, length)) {
                block->length = static_cast<int>(length);
                return ky::CopyRun(block->data, ky::Advance(src, std::size_t{kField} * 2), length, kField + total);
            }
        }
    }
    return LoadWithin(blobs, src, UINT64_MAX, form, count);
}

unsigned BlobNullSizeGet(unsigned count) { return kField * count; }

unsigned BlobSizeGet(const void* value, unsigned char fromFlag, unsigned char, unsigned count) {
    const unsigned char form = FormOf(fromFlag);
    if (form == KyFormMemory) return static_cast<unsigned>(kField + TotalOf(static_cast<const KyBlob*>(value), count));
    return static_cast<unsigned>(kField + ReadCounted(value, form));
}

unsigned BlobSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned) {
    const unsigned char* record = ky::BytesOfFile(*file, 0, kField);
    return static_cast<unsigned>(kField + (record != nullptr ? ReadCounted(record, FormOf(flag)) : 0));
}

int BlobCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                int& err) {
    err = 0;
    if (count == 0) return 0;
    const unsigned char form = FormOf(flag);
    if (form != KyFormMemory) {
        if (count != 1) return CompareRecords(a, len1, b, len2, form, count);
        const ElementWalk x(a, len1, form);
        const ElementWalk y(b, len2, form);
        return x.HasElement() && y.HasElement() ? OrderElements(x, y) : 0;
    }
    const auto* x = static_cast<const KyBlob*>(a);
    const auto* y = static_cast<const KyBlob*>(b);
    if (count == 1) return ky::OrderBlocks(ky::BlockOf(*x), ky::BlockOf(*y));
    const std::size_t visited =
        std::min(ky::ElementsInside(len1, sizeof(KyBlob), count), ky::ElementsInside(len2, sizeof(KyBlob), count));
    return CompareHandles(x, y, visited);
}

unsigned BlobHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    err = 0;
    if (count == 0) return 0;
    const unsigned char form = FormOf(flag);
    if (form != KyFormMemory) return HashRecord(data, len, form, count);
    const auto* blobs = static_cast<const KyBlob*>(data);
    const std::size_t visited = ky::ElementsInside(len, sizeof(KyBlob), count);
    std::uint32_t lengths = 0;
    for (std::size_t i = 0; i < visited; ++i) lengths ^= static_cast<std::uint32_t>(blobs[i].Length());
    return ky::kHashFactor * lengths;
}

unsigned BlobTranslate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                       unsigned srcLen, unsigned count) {
    const bool toMemory = (dstFlag & KyFormMemory) != 0;
    const bool fromMemory = (srcFlag & KyFormMemory) != 0;
    if (toMemory && fromMemory) {
        BlobAssignment(dst, src, count, 0);
        return static_cast<unsigned>(sizeof(KyBlob)) * count;
    }
    if (toMemory) {
        const std::uint64_t size = srcLen != 0 ? srcLen : UINT64_MAX;
        return LoadWithin(static_cast<KyBlob*>(dst), src, size, FormOf(srcFlag), count);
    }
    if (!fromMemory) return CopyRecord(dst, dstLen, src, srcFlag, srcLen, count);
    const bool fits = dstLen == 0 || kField + TotalOf(static_cast<const KyBlob*>(src), count) <= dstLen;
    return fits ? BlobStore(dst, src, dstFlag, count) : 0;
}
