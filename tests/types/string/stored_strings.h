#ifndef STORED_STRINGS_H
#define STORED_STRINGS_H

#include <string>
#include <string_view>
#include <vector>

#include "kytypevl.h"
#include "string_records.h"
#include "support/guarded_buffer.h"

/// Persistent strings made byte by byte, and ranges of them.

/// One record in the current layout; the content in the byte order of the form.
inline std::string Record(unsigned char codeSet, unsigned char language, std::string_view content,
                          unsigned char form = 1) {
    std::string bytes(content.size() + 6, '\0');
    ky::WriteLength(bytes.data(), static_cast<unsigned>(content.size() + 4), form);
    bytes[2] = static_cast<char>(codeSet);
    bytes[3] = static_cast<char>(language);
    bytes.replace(4, content.size(), content);
    bytes.back() = '\xFF';
    return bytes;
}

/// Texts in the old layout.
inline std::string OldArray(const std::vector<std::string>& texts, unsigned char form = 1) {
    std::string bytes(2, '\0');
    for (const std::string& text : texts) bytes.append(text.c_str(), text.size() + 1);
    ky::WriteLength(bytes.data(), static_cast<unsigned>(bytes.size() - 2), form);
    return bytes;
}

/// Bytes of which the last is the last readable one.
class Guarded {
public:
    explicit Guarded(std::string_view bytes)
        : buffer(std::span(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size())) {}
    void* Data() { return buffer.data(); }
    unsigned char Size() const { return static_cast<unsigned char>(buffer.size()); }

private:
    GuardedBuffer buffer;
};

/// A range of which each limit ends at an inaccessible page; an empty one is missing.
class GuardedRange {
public:
    GuardedRange(std::string_view lower, std::string_view upper) : lowerBytes(lower), upperBytes(upper) {
        if (!lower.empty()) bounds.lower = lowerBytes.Data();
        if (!upper.empty()) bounds.upper = upperBytes.Data();
        bounds.lowerLen = lowerBytes.Size();
        bounds.upperLen = upperBytes.Size();
    }

    KyIdxBounds bounds;

private:
    Guarded lowerBytes;
    Guarded upperBytes;
};

#endif
