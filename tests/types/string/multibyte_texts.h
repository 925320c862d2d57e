#ifndef MULTIBYTE_TEXTS_H
#define MULTIBYTE_TEXTS_H

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "kymultibyte.h"
#include "kystring.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"
#include "support/hex.h"

inline std::string HexOf(const std::string& bytes) { return Hex(bytes.data(), bytes.size()); }

inline std::string BytesOf(const std::string& hex) {
    const std::vector<unsigned char> bytes = Bytes(hex);
    return {bytes.begin(), bytes.end()};
}

/// Bytes at the end of readable memory.
class GuardedText {
public:
    explicit GuardedText(const std::string& bytes) : memory(bytes.size()) {
        if (!bytes.empty()) std::memcpy(memory.data(), bytes.data(), bytes.size());
    }
    const char* Get() { return reinterpret_cast<const char*>(memory.data()); }

private:
    GuardedBuffer memory;
};

inline KyString WithCodeSet(const std::string& bytes, unsigned char codeSet) {
    KyString s = Narrow(bytes);
    s.SetCodeSetCode(codeSet);
    return s;
}

/// `KyString2KyMBS` into exactly `size` bytes that were EE before.
struct Encoded {
    int result;
    std::string bytes;
};
inline Encoded Encode(const KyString& s, int size) {
    static GuardedBuffer memory(100000);
    char* out = reinterpret_cast<char*>(memory.data()) + memory.size() - size;
    std::fill_n(out, size, '\xEE');
    const int result = KyString2KyMBS(s, out, size);
    return {result, std::string(out, static_cast<std::size_t>(size))};
}

/// A block that the conversion made, and its results.
struct Made {
    int result;
    int size;
    std::unique_ptr<char[]> text;
};
inline Made Make(const KyString& s, int sizeBefore = -77) {
    char* out = nullptr;
    Made made{0, sizeBefore, nullptr};
    made.result = KyString2MultiByteString(s, out, made.size);
    made.text.reset(out);
    return made;
}

#endif
