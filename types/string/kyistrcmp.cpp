/// Comparison in dictionary order.

#include <algorithm>

#include "common_text.h"
#include "dictionary_keys.h"
#include "kyistring.h"

namespace {

using ky::ByteKeys;

/// Keys that are compared at most.
std::size_t Limit(unsigned maxLen) { return maxLen != 0 ? maxLen : 65535; }

unsigned char Code(char c) { return static_cast<unsigned char>(c); }

/// A text that is read key by key.
class KeyCursor {
public:
    KeyCursor(const ByteKeys& ofText, const char* text, std::size_t offset)
        : keys(ofText), start(text), at(text + offset) {}

    unsigned Next() {
        if (pending != 0) {
            const unsigned key = pending;
            pending = 0;
            return key;
        }
        const unsigned both = keys.keys[Code(*at)];
        if (both != 0) ++at;
        pending = both >> 8;
        return both & 0xFF;
    }
    bool InsidePair() const { return pending != 0; }
    const char* Position() const { return at; }
    void Skip(std::size_t bytes) { at += bytes; }

    /// Keys read so far, the terminator not counted.
    std::size_t KeysRead() const {
        return KeyCount(keys, start, static_cast<std::size_t>(at - start)) - static_cast<std::size_t>(InsidePair());
    }

private:
    const ByteKeys& keys;
    const char* start;
    const char* at;
    unsigned pending = 0;
};

/// Compares from the byte `at` on, before which the texts have the same keys. `Skip` passes over what is the same where
/// both texts stand at the beginning of a character.
template <class Skip>
int CompareByKeys(const ByteKeys& keysA, const char* a, const ByteKeys& keysB, const char* b, std::size_t at,
                  std::size_t limit, const Skip& skip) {
    KeyCursor cursorA(keysA, a, at);
    KeyCursor cursorB(keysB, b, at);
    for (;;) {
        const auto offset = static_cast<std::size_t>(cursorA.Position() - a);
        if (offset >= limit) return 0;
        const unsigned keyA = cursorA.Next();
        const unsigned keyB = cursorB.Next();
        if (keyA != keyB || keyA == 0) {
            // A byte is one or two keys: only where it may matter are they counted.
            const bool isInside = 2 * offset < limit || cursorA.KeysRead() - (keyA != 0) < limit;
            return isInside ? static_cast<int>(keyA) - static_cast<int>(keyB) : 0;
        }
        if (!cursorA.InsidePair() && !cursorB.InsidePair()) {
            const std::size_t common = skip(cursorA.Position(), cursorB.Position(), limit - offset);
            cursorA.Skip(common);
            cursorB.Skip(common);
        }
    }
}

/// The rest of a comparison that a look at the first characters did not decide.
[[gnu::noinline]] int CompareFrom(const ByteKeys& keys, const char* a, const char* b, std::size_t at, unsigned maxLen) {
    const auto common = [&](const char* fromA, const char* fromB, std::size_t bytes) {
        return std::min(ky::CommonRanks(keys.marks, fromA, fromB), bytes);
    };
    return CompareByKeys(keys, a, keys, b, at, Limit(maxLen), common);
}

/// The bit in which a letter of ASCII differs from its capital.
constexpr char kCaseBit = 0x20;

/// A bit for each of 16 bytes that is not the same in both texts (`alike`: nor the same letter of ASCII) or ends both.
template <bool alike>
__attribute__((KY_UNINSTRUMENTED)) inline unsigned StopsIn16(const char* a, const char* b) {
    if constexpr (!alike) return ky::StopsIn16<1>(a, b);
    const __m128i charsA = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
    const __m128i charsB = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));
    const __m128i zero = _mm_setzero_si128();
    const __m128i caseBit = _mm_set1_epi8(kCaseBit);
    // Letters are moved to the lowest of the signed numbers; they may differ in the bit that is the case.
    const __m128i moved = _mm_add_epi8(_mm_or_si128(charsA, caseBit), _mm_set1_epi8(0x80 - 'a'));
    const __m128i isLetter = _mm_cmplt_epi8(moved, _mm_set1_epi8(26 - 128));
    const __m128i mayDiffer = _mm_and_si128(isLetter, caseBit);
    const __m128i equal = _mm_cmpeq_epi8(_mm_andnot_si128(mayDiffer, _mm_xor_si128(charsA, charsB)), zero);
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(_mm_and_si128(equal, charsA), zero)));
}

/// No two bytes of ASCII have one key, but for a letter and its capital where they are alike, and none has two.
template <class Order>
consteval bool AsciiKeysDiffer() {
    for (const ByteKeys& keys : ky::kByteKeys<Order>) {
        for (unsigned a = 0; a < 0x80; ++a) {
            if (ByteKeys::HasSecond(keys.keys[a])) return false;
            for (unsigned b = 0; b < a; ++b) {
                const bool isCapital = b >= 'A' && b <= 'Z' && a == b + kCaseBit;
                if (keys.keys[a] == keys.keys[b] && !(Order::alike && isCapital)) return false;
            }
        }
    }
    return true;
}
static_assert(AsciiKeysDiffer<ky::CaseApart>() && AsciiKeysDiffer<ky::CaseAlike>());

/// Whether the bytes at `at`, where two texts stop to be the same, decide; then what the result is. They do not where
/// they have the same key, a second one, or may be beyond the last key that counts. Not so in ASCII, which most are.
[[gnu::always_inline]] inline bool Decides(const ByteKeys& keys, const char* a, const char* b, std::size_t at,
                                           unsigned maxLen, int& result) {
    const unsigned keyA = keys.keys[Code(a[at])];
    const unsigned keyB = keys.keys[Code(b[at])];
    const bool areAscii = (Code(a[at]) | Code(b[at])) < 0x80;
    if (!areAscii && (ByteKeys::HasSecond(keyA | keyB) || keyA == keyB)) [[unlikely]]
        return false;
    // A byte is one or two keys. No limit is 0, and none is reached here.
    if (2 * at > maxLen - 1u) [[unlikely]]
        return false;
    result = static_cast<int>(keyA - keyB);
    return true;
}

/// The rest of a comparison of texts that are the same before the byte `at`, a multiple of 16.
template <bool alike>
[[gnu::noinline]] int CompareOn(const ByteKeys& keys, const char* a, const char* b, std::size_t at, unsigned maxLen) {
    constexpr std::size_t step = ky::kHeadBytes<1>;
    constexpr std::size_t head = 4 * step;
    for (; at != head && !ky::EitherCrossesPage(a + at, b + at, step); at += step) {
        if (const unsigned stops = StopsIn16<alike>(a + at, b + at)) {
            at += static_cast<std::size_t>(std::countr_zero(stops));
            int result;
            if (Decides(keys, a, b, at, maxLen, result)) [[likely]]
                return result;
            break;
        }
    }
    return CompareFrom(keys, a, b, at, maxLen);
}

/// Two texts that are looked up alike. Most words are decided by their first characters.
template <bool alike>
[[gnu::always_inline]] inline int CompareAlike(const ByteKeys& keys, const char* a, const char* b, unsigned maxLen) {
    constexpr std::size_t head = ky::kHeadBytes<1>;
    constexpr unsigned char mayDiffer = alike ? kCaseBit : 0;
    if (((*a ^ *b) & ~mayDiffer) != 0) {
        const int first = (keys.keys[Code(*a)] & 0xFF) - (keys.keys[Code(*b)] & 0xFF);
        if (first != 0) return *a == 0 || *b == 0 ? Code(*a) - Code(*b) : first;
        return CompareFrom(keys, a, b, 0, maxLen);
    }
    if (ky::EitherCrossesPage(a, b, head)) [[unlikely]]
        return CompareFrom(keys, a, b, 0, maxLen);
    const unsigned stops = StopsIn16<alike>(a, b);
    if (stops == 0) return CompareOn<alike>(keys, a, b, head, maxLen);
    const auto at = static_cast<unsigned>(std::countr_zero(stops));
    int result;
    if (Decides(keys, a, b, at, maxLen, result)) [[likely]]
        return result;
    return CompareFrom(keys, a, b, at, maxLen);
}

/// Texts of which one is a key, texts in two forms, and comparisons of so many keys.
template <class Order>
[[gnu::noinline]] int CompareInGeneral(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                                       unsigned char modeB) {
    const ByteKeys& keysA = ky::ByteKeysOf<Order>(modeA);
    const ByteKeys& keysB = ky::ByteKeysOf<Order>(modeB);
    if (&keysA == &keysB) {
        const bool areKeys = (modeA & ky::kModeKey) != 0;
        return areKeys ? CompareAlike<false>(keysA, a, b, maxLen) : CompareAlike<Order::alike>(keysA, a, b, maxLen);
    }
    if (*a == 0 || *b == 0) return Code(*a) - Code(*b);
    return CompareByKeys(keysA, a, keysB, b, 0, Limit(maxLen), [](auto...) { return std::size_t{0}; });
}

template <class Order>
[[gnu::always_inline]] inline int Compare(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                                          unsigned char modeB) {
    if (b == nullptr) return a != nullptr;
    if (a == nullptr) return -1;
    if (maxLen != 0 || modeA != modeB || (modeA & ky::kModeKey) != 0) [[unlikely]]
        return CompareInGeneral<Order>(a, b, maxLen, modeA, modeB);
    return CompareAlike<Order::alike>(ky::ByteKeysOf<Order>(modeA), a, b, 0);
}

}  // namespace

int kyistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseApart>(a, b, maxLen, modeA, modeB);
}

int kycaseistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseAlike>(a, b, maxLen, modeA, modeB);
}
