#ifndef SMALL_BUFFER_H
#define SMALL_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>

namespace ky {

/// Numbers one after the other: the first `kInline` in the object itself, which is meant for the stack, more of them
/// in a block from array new.
template <class T, std::size_t kInline>
class SmallBuffer {
public:
    SmallBuffer() = default;
    SmallBuffer(const SmallBuffer&) = delete;
    SmallBuffer& operator=(const SmallBuffer&) = delete;

    void Append(T value) {
        if (count == capacity) Grow(count + 1);
        items[count++] = value;
    }
    /// Room for `more` further ones, of which `Take` adds those that were written.
    T* Reserve(std::size_t more) {
        if (capacity - count < more) Grow(count + more);
        return items + count;
    }
    void Take(std::size_t written) { count += written; }
    void Clear() { count = 0; }

    std::size_t Size() const { return count; }
    const T* Data() const { return items; }
    std::span<const T> Items() const { return {items, count}; }

private:
    [[gnu::noinline]] void Grow(std::size_t least) {
        const std::size_t newCapacity = std::max(least, 2 * capacity);
        std::unique_ptr<T[]> grown(new T[newCapacity]);
        std::copy_n(items, count, grown.get());
        block = std::move(grown);
        items = block.get();
        capacity = newCapacity;
    }

    T space[kInline];
    std::unique_ptr<T[]> block;
    T* items = space;
    std::size_t count = 0;
    std::size_t capacity = kInline;
};

}  // namespace ky

#endif
