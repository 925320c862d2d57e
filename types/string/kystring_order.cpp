/// Compare and Hash of arrays of strings.

#include <cstring>

#include "array_rules.h"
#include "code_mapping.h"
#include "kybase.h"
#include "kyi18n.h"
#include "kystrcmp.h"
#include "kystring_slots.h"
#include "string_records.h"

namespace {

/// Parts of cut-short records from this size on are not hashed.
constexpr std::size_t kLongestPartHashed = 254;
/// Contents up to this size are terminated on the stack.
constexpr std::size_t kLongestOnStack = 254;

/// Byte order of 16-bit units, as the comparer takes it.
unsigned char UnitOrder(unsigned char flag) { return (flag & KyFormMask) == KyFormReversed ? 2 : 1; }

/// A stored text with a terminator behind it: where it stands, if it has one there, else a copy.
class Terminated {
public:
    explicit Terminated(const ky::StoredText& s) {
        if (s.terminated) {
            text = s.text;
            return;
        }
        char* copy = local;
        if (s.bytes > kLongestOnStack) copy = heap = static_cast<char*>(mmKymalloc(s.bytes + 2));
        if (copy == nullptr) return;
        ky::CopyBytes(copy, s.text, s.bytes);
        copy[s.bytes] = copy[s.bytes + 1] = 0;
        // Half a unit at the end is no character.
        if (ky::CharWidth(s.codeSet) == 2 && s.bytes % 2 != 0) copy[s.bytes - 1] = 0;
        text = copy;
    }
    Terminated(const Terminated&) = delete;
    Terminated& operator=(const Terminated&) = delete;
    ~Terminated() {
        if (heap != nullptr) mmKyfree(heap);
    }

    /// Null when there was no memory.
    const char* Text() const { return text; }

private:
    const char* text = nullptr;
    char* heap = nullptr;
    char local[kLongestOnStack + 2];
};

/// Order of two strings; a missing one is first. `err` is set when memory fails.
int CompareTexts(const ky::StoredText& a, const ky::StoredText& b, unsigned short op, unsigned char format, int& err) {
    if (a.text == nullptr || b.text == nullptr) return (a.text != nullptr) - (b.text != nullptr);
    const Terminated textA(a);
    const Terminated textB(b);
    if (textA.Text() == nullptr || textB.Text() == nullptr) {
        err = KyErrNotSupported;
        return 0;
    }
    return KyStrCmp(a.codeSet, a.language, textA.Text(), b.codeSet, b.language, textB.Text(), op, -1, format, nullptr);
}

int StringCompareCommon(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                        unsigned count, int& err, bool oldLayout) {
    err = 0;
    if (count == 0) return 0;
    ky::StringWalk walkA(a, len1, flag, oldLayout);
    ky::StringWalk walkB(b, len2, flag, oldLayout);
    for (;;) {
        const int result = CompareTexts(walkA.Current(), walkB.Current(), op, UnitOrder(flag), err);
        if (err == 0 && (walkA.Current().cutShort || walkB.Current().cutShort)) err = KyErrBufferEnd;
        if (--count == 0) return result;
        if (!walkA.Next() || !walkB.Next()) err = KyErrBufferEnd;
        if (result != 0 || err != 0) return result;
    }
}

unsigned StringHashCommon(unsigned char flag, unsigned len, void* data, unsigned count, int& err, bool oldLayout) {
    err = 0;
    if (count == 0 || data == nullptr) return 0;
    unsigned accumulated = 0;
    ky::StringWalk walk(data, len, flag, oldLayout);
    for (;;) {
        const ky::StoredText& s = walk.Current();
        if (s.cutShort && s.bytes >= kLongestPartHashed) {
            err = KyErrNotSupported;
            return 0;
        }
        const Terminated text(s);
        if (text.Text() == nullptr) {
            err = KyErrNotSupported;
            return 0;
        }
        const bool marked = s.codeSet == KyCodeSetOrders && (s.language & 0x80) != 0;
        const auto language = static_cast<unsigned char>(marked ? s.language & 0x7F : s.language);
        const int length = s.cutShort ? static_cast<int>(s.bytes / ky::CharWidth(s.codeSet)) : -1;
        accumulated ^= HashString(s.codeSet, language, text.Text(), length, UnitOrder(flag));
        if (--count == 0) break;
        if (!walk.Next()) {
            err = KyErrBufferEnd;
            break;
        }
    }
    return accumulated * ky::kHashFactor;
}

}  // namespace

int StringCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                  int& err) {
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, false);
}

int StringOldCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                     unsigned count, int& err) {
    return StringCompareCommon(flag, len1, a, len2, b, op, count, err, true);
}

unsigned StringHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return StringHashCommon(flag, len, data, count, err, false);
}

unsigned StringOldHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return StringHashCommon(flag, len, data, count, err, true);
}
