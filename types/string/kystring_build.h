#ifndef KYSTRING_BUILD_H
#define KYSTRING_BUILD_H

/// The pieces that every change of a string's content is made of: a source text in the string's own code set,
/// and a new block that takes pieces until it is full.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "code_mapping.h"

namespace ky {

/// Modes of `KyString::BuildString`.
enum BuildMode : unsigned short { kOverwrite = 1, kInsert = 2, kAppend = 3 };

/// Copies n bytes; both pointers may be null when n is 0. Texts are short: up to 32 bytes take no call.
inline void CopyText(char* dst, const char* src, std::size_t n) {
    const auto overlap = [&]<class Word>(Word first) {
        Word last;
        std::memcpy(&first, src, sizeof(Word));
        std::memcpy(&last, src + n - sizeof(Word), sizeof(Word));
        std::memcpy(dst, &first, sizeof(Word));
        std::memcpy(dst + n - sizeof(Word), &last, sizeof(Word));
    };
    struct Pair {
        std::uint64_t low, high;
    };
    if (n > 2 * sizeof(Pair)) {
        std::memcpy(dst, src, n);
    } else if (n >= sizeof(Pair)) {
        overlap(Pair{});
    } else if (n >= sizeof(std::uint64_t)) {
        overlap(std::uint64_t{});
    } else if (n >= sizeof(std::uint32_t)) {
        overlap(std::uint32_t{});
    } else if (n >= sizeof(std::uint16_t)) {
        overlap(std::uint16_t{});
    } else if (n == 1) {
        *dst = *src;
    }
}

/// The character at `p` is a terminator. 16-bit characters need no alignment and no byte order.
inline bool AtEnd(const char* p, unsigned width) { return p[0] == 0 && (width == 1 || p[1] == 0); }

/// Characters before the terminator, but at most `limit`; nothing behind either is read.
inline std::size_t TextLength(const char* text, unsigned width, std::size_t limit) {
    if (width == 1) return strnlen(text, limit);
    std::size_t n = 0;
    while (n < limit && !AtEnd(text + 2 * n, 2)) ++n;
    return n;
}

/// Characters before the terminator.
inline std::size_t TextLength(const char* text, unsigned width) {
    return width == 1 ? std::strlen(text) : TextLength(text, width, SIZE_MAX);
}

/// A new block of text. Takes pieces one after the other and cuts off what would reach into its terminator.
class BlockWriter {
public:
    /// A block for a text of `size` bytes, terminator included; 0: no block. More than the largest text raises the
    /// overflow check and makes a block of that size.
    BlockWriter(std::uint64_t wantedSize, unsigned width) : size(static_cast<std::size_t>(wantedSize)) {
        if (wantedSize > kMaxStringBytes) {
            CheckStringOverflow();
            size = kMaxStringBytes;
        }
        if (size == 0) return;
        block.reset(new char[size]);
        at = block.get();
        limit = at + (size > width ? (size - width) / width * width : 0);
    }

    /// `bytes` bytes, of which the source has `present`; what is missing is zero. With flag 2 the bytes of each
    /// 16-bit unit are swapped.
    void Put(const char* src, std::size_t present, std::size_t bytes, unsigned char flag = 1) {
        if (flag != 2 && present == bytes && bytes <= static_cast<std::size_t>(limit - at)) {
            CopyText(at, src, bytes);
            at += bytes;
        } else {
            PutPart(src, present, bytes, flag);
        }
    }
    /// The same piece `repeat` times.
    void Put(const char* src, std::size_t present, std::size_t bytes, std::size_t repeat, unsigned char flag);
    std::size_t Size() const { return size; }
    /// Ends the text with zeros up to the block's end and hands the block over; null for a size of 0.
    char* Release() {
        if (block == nullptr) return nullptr;
        for (char* end = block.get() + size; at != end; ++at) *at = 0;
        return block.release();
    }

private:
    std::unique_ptr<char[]> block;
    std::size_t size;
    char* at = nullptr;
    char* limit = nullptr;  ///< where the terminator begins

    void PutPart(const char* src, std::size_t present, std::size_t bytes, unsigned char flag);
};

/// A text in the making whose size is not known before: on the stack while it is short.
class WorkArea {
public:
    /// Begins with room for `wanted` bytes.
    explicit WorkArea(std::size_t wanted) {
        if (wanted > sizeof onStack) Grow(wanted, 0);
    }
    WorkArea(const WorkArea&) = delete;
    WorkArea& operator=(const WorkArea&) = delete;

    /// Where the bytes [used, used + more) stand; may move what is there, which is all before `used`.
    char* At(std::size_t used, std::size_t more) {
        if (used + more > capacity) Grow(2 * capacity + more, used);
        return data + used;
    }

private:
    alignas(2) char onStack[512];
    std::unique_ptr<char[]> heap;
    char* data = onStack;
    std::size_t capacity = sizeof onStack;

    void Grow(std::size_t wanted, std::size_t used);
};

/// src[start, start + count) as characters of the code set `to`, mapped only when it has to be. Short texts are
/// mapped on the stack. A source that is mapped ends at its terminator.
class MappedSource {
public:
    MappedSource(const char* src, unsigned char from, unsigned char to, std::size_t start, std::size_t count,
                 unsigned char order)
        : flag(CharWidth(from) == 2 ? order : 1) {
        if (src == nullptr || count == 0) return;
        if (HasToMap(from, to)) {
            Map(src, from, to, start, count);
        } else {
            data = src + start * CharWidth(to);
            bytes = count * CharWidth(to);
        }
    }
    MappedSource(const MappedSource&) = delete;
    MappedSource& operator=(const MappedSource&) = delete;

    const char* Data() const { return data; }
    std::size_t Bytes() const { return bytes; }
    unsigned char Flag() const { return flag; }  ///< 2: the units are still to be swapped

    /// KEPT: a source of code set 0 counts as native text of the string's own code set while the widths agree; a
    /// string of code set 0 has every other source mapped into the native code set.
    static bool HasToMap(unsigned char from, unsigned char to) {
        return from != 0 ? from != to : CharWidth(to) != CharWidth(from);
    }

private:
    const char* data = nullptr;
    std::size_t bytes = 0;
    unsigned char flag;
    std::unique_ptr<char[]> mapped;
    alignas(2) char scratch[256];

    void Map(const char* src, unsigned char from, unsigned char to, std::size_t start, std::size_t count);
};

}  // namespace ky

#endif
