#ifndef GUARDED_BUFFER_H
#define GUARDED_BUFFER_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <span>

/// Memory whose last byte is the last readable one: an inaccessible page follows, so that a read or write
/// past the end stops the test at once.
class GuardedBuffer {
public:
    explicit GuardedBuffer(std::size_t size) : length(size) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        usable = (size + page - 1) / page * page;
        mapped = usable + page;
        void* block = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (block == MAP_FAILED) throw std::bad_alloc();
        base = static_cast<unsigned char*>(block);
        if (mprotect(base + usable, page, PROT_NONE) != 0) throw std::bad_alloc();
    }

    /// A copy of these bytes.
    explicit GuardedBuffer(std::span<const unsigned char> bytes) : GuardedBuffer(bytes.size()) {
        if (!bytes.empty()) std::memcpy(data(), bytes.data(), bytes.size());
    }

    GuardedBuffer(const GuardedBuffer&) = delete;
    GuardedBuffer& operator=(const GuardedBuffer&) = delete;
    ~GuardedBuffer() { munmap(base, mapped); }

    unsigned char* data() { return base + usable - length; }
    std::size_t size() const { return length; }
    std::span<unsigned char> bytes() { return {data(), length}; }

private:
    std::size_t length;
    std::size_t usable = 0;
    std::size_t mapped = 0;
    unsigned char* base = nullptr;
};

#endif
