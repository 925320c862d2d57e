#ifndef DATE_TEXT_OUTPUT_H
#define DATE_TEXT_OUTPUT_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace ky {

/// A text that is formed on the stack while it is short. Grows without a limit.
class DateTextOutput {
public:
    DateTextOutput() = default;
    DateTextOutput(const DateTextOutput&) = delete;
    DateTextOutput& operator=(const DateTextOutput&) = delete;

    std::size_t Length() const { return static_cast<std::size_t>(at - start); }
    void CutTo(std::size_t length) { at = start + length; }

    /// Where the next `n` characters may be written; `SetEnd` tells how many were.
    char* Room(std::size_t n) {
        if (n > static_cast<std::size_t>(limit - at)) Grow(n);
        return at;
    }
    void SetEnd(char* end) { at = end; }

    void Append(char c) {
        *Room(1) = c;
        ++at;
    }
    void Append(std::string_view text) {
        std::memcpy(Room(text.size()), text.data(), text.size());
        at += text.size();
    }

    /// Zero-terminated; valid until the next change.
    const char* Text() {
        *Room(1) = 0;
        return start;
    }

private:
    char local[512];
    std::unique_ptr<char[]> heap;
    char* start = local;
    char* at = local;
    char* limit = local + sizeof local;

    void Grow(std::size_t n) {
        const std::size_t length = Length();
        const std::size_t capacity = std::max(2 * static_cast<std::size_t>(limit - start), length + n);
        std::unique_ptr<char[]> block(new char[capacity]);
        std::memcpy(block.get(), start, length);
        heap = std::move(block);
        start = heap.get();
        at = start + length;
        limit = start + capacity;
    }
};

}  // namespace ky

#endif
