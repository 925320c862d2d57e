/// Hash of arrays of strings, and the hashes of strings in memory.

#include "array_rules.h"
#include "code_sets.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "string_records.h"

namespace {

/// Parts of cut-short records from this size on are not hashed.
constexpr std::size_t kLongestPartHashed = 254;

unsigned StringHashCommon(unsigned char flag, unsigned len, void* data, unsigned count, int& err, ky::LayoutRule rule) {
    err = 0;
    if (count == 0 || data == nullptr) return 0;
    unsigned accumulated = 0;
    ky::StringWalk walk(data, len, flag, rule);
    for (;;) {
        if (walk.IsMissing()) {
            err = KyErrBufferEnd;
            break;
        }
        const ky::StoredText& s = walk.Current();
        if (s.cutShort && s.bytes >= kLongestPartHashed) {
            err = KyErrNotSupported;
            return 0;
        }
        const ky::TerminatedText text(s);
        if (text.Text() == nullptr) {
            err = KyErrNotSupported;
            return 0;
        }
        const int length = s.cutShort ? static_cast<int>(s.bytes / s.Width()) : -1;
        accumulated ^= HashString(s.codeSet, s.ReadingLanguage(), text.Text(), length, ky::FormOf(flag));
        if (--count == 0) break;
        if (!walk.Next()) {
            err = KyErrBufferEnd;
            break;
        }
    }
    return accumulated * ky::kHashFactor;
}

/// `codeOf` makes of a character's code what is hashed.
template <class CodeOf>
unsigned HashCharacters(const KyString& s, const CodeOf& codeOf) {
    const char* p = s.StrGet();
    unsigned hash = 0;
    if (s.CodeSetGet() == KyCodeSetUnicode) {
        while (const unsigned short unit = ky::ReadUnit(p, KyFormNative)) {
            hash = 9 * hash + codeOf(unit);
            p += 2;
        }
    } else {
        // KEPT: bytes count with their sign, and the other 16-bit code sets by bytes, up to the first that is 0.
        for (; *p != 0; ++p) hash = 9 * hash + codeOf(static_cast<unsigned>(static_cast<signed char>(*p)));
    }
    return hash;
}

}  // namespace

unsigned StringHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return StringHashCommon(flag, len, data, count, err, ky::LayoutRule::byLastByte);
}

unsigned StringOldHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return StringHashCommon(flag, len, data, count, err, ky::LayoutRule::old);
}

unsigned HashKyString(const KyString& s) {
    return HashCharacters(s, [](unsigned code) { return code; });
}

unsigned HashKyString7(const KyString& s) {
    return HashCharacters(s, [](unsigned code) { return code & 0x7F; });
}
