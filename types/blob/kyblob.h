#ifndef KYBLOB_H
#define KYBLOB_H

/// `KyBlob`: a run of bytes of any length and content.

#include <cstddef>

#include "kyexport.h"

/// The bytes of one blob.
struct KyBlobData {
    void* data = nullptr;  ///< from `malloc`; null when the length is 0
    int length = 0;        ///< bytes in use
    int capacity = 0;      ///< bytes at `data`
};

static_assert(sizeof(KyBlobData) == 16 && offsetof(KyBlobData, length) == 8);

/// A handle to the bytes, which it owns; without any it is the null value, which is not the empty one. Copies are deep.
///
/// At most 2147483647 bytes. What would make more calls the memory handler with the size and changes nothing. Where
/// `malloc` gives no memory the memory handler is called with the size wanted; should that return, the blob is empty.
///
/// Ranges: `n` bytes from `offset` on. An `n` of -1, or one beyond the end, is all up to the end; there is no range for
/// a negative offset, one at or beyond the end, an `n` of 0 or any other negative one. Sources may lie inside the blob.
///
/// Any thread may work on its own objects; reading is safe in any thread.
class KY_EXPORT KyBlob {
public:
    KyBlob() : block(new KyBlobData) {}  ///< empty
    explicit KyBlob(int n);              ///< n zero bytes; empty for n below 1
    KyBlob(const void* p, int n);        ///< a copy of n bytes; empty for n below 1 or a null pointer
    /// The text and its terminating zero; empty for a null pointer. Implicit, as the assignment of a text is.
    KyBlob(const char* s);  // NOLINT(google-explicit-constructor)
    KyBlob(const KyBlob& other);
    ~KyBlob() { SetNullValue(); }

    /// The same bytes; null for null.
    KyBlob& operator=(const KyBlob& other);
    /// As the constructor.
    KyBlob& operator=(const char* s);

    /// Bytes; 0 for null.
    int Length() const { return block != nullptr ? block->length : 0; }
    int IsNullValue() const { return block == nullptr ? 1 : 0; }
    /// Returns 0.
    int SetNullValue();

    /// As the constructor. KEPT: the buffer stays exactly when it has n to n + 128 bytes in use (n not 0), else there
    /// is a new one of n bytes; engines rely on pointers that stay, and on the memory that is given up.
    KyBlob& SetTo(const void* p, int n);

    /// The n bytes at `offset`, valid until the blob changes. Null for a null blob, an n of 0, and where they are not
    /// all inside.
    void* Seek(int offset, int n) const;

    /// Sets the length: zero bytes are added behind, and null becomes a value. A longer blob has a new buffer of n
    /// bytes, a shorter one keeps its own, an empty one has none.
    KyBlob& Resize(unsigned int n);

    // Appending nothing, or a null blob, changes nothing. Anything else makes a null blob a value. Many small pieces
    // cost constant time a byte.
    KyBlob& Append(const void* p, int n);
    KyBlob& Append(const KyBlob& other);
    KyBlob& operator+=(const KyBlob& other) { return Append(other); }
    /// Appends zero bytes up to a length of n; never shortens.
    KyBlob& Expand(int n);

    /// Removes the range. A blob that is empty then is no null.
    KyBlob& Cut(int offset, int n);
    /// The range as a blob of its own; empty where there is none.
    KyBlob CopyFrom(int offset, int n) const;
    /// Makes `dst`, which may be this blob, hold the range. Returns its bytes.
    int CopyTo(KyBlob& dst, int offset, int n) const;
    /// The first offset at which the bytes of `pattern` stand; -1 where they do not, and when either is null or empty.
    int Search(const KyBlob& pattern) const;

    /// -1, 0 or 1 for a before, like, or behind b: by the first bytes that differ, as unsigned numbers; of blobs that
    /// begin alike the shorter is before; null is before everything.
    friend int operator!=(const KyBlob& a, const KyBlob& b) { return a.Order(b); }
    friend int operator==(const KyBlob& a, const KyBlob& b) { return a.Order(b) == 0 ? 1 : 0; }

    // The first bytes (2, 4, 8) as a number in machine byte order; those that are missing count as 0. Implicit: a blob
    // is read by assigning it to a number. NOLINTBEGIN(google-explicit-constructor)
    operator short() const;
    operator int() const;
    operator double() const;
    // NOLINTEND(google-explicit-constructor)

private:
    KyBlobData* block;

    struct Null {};
    explicit KyBlob(Null) : block(nullptr) {}

    int Order(const KyBlob& other) const;
    KyBlob& Fill(const void* p, std::size_t n);
    void* MakeRoom(std::size_t more);
    template <class Number>
    KY_INTERNAL Number FirstBytes() const;
};

static_assert(sizeof(KyBlob) == 8, "the size word of the row");

#endif
