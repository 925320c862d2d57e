/// Comparison in dictionary order.

#include <algorithm>

#include "common_text.h"
#include "dictionary_keys.h"
#include "kyistring.h"

namespace {

using ky::ByteKeys;

/// Keys that are compared at most.
std::size_t Limit(unsigned short maxLen) { return maxLen != 0 ? maxLen : 65535; }

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
[[gnu::noinline]] int CompareFrom(const ByteKeys& keys, const char* a, const char* b, std::size_t at,
                                  std::size_t limit) {
    return CompareByKeys(keys, a, keys, b, at, limit, [&](const char* fromA, const char* fromB, std::size_t bytes) {
        return std::min(ky::CommonRanks(keys.marks, fromA, fromB), bytes);
    });
}

/// A bit for each of 16 bytes that is not the same in both texts (`alike`: nor the same letter of ASCII) or ends both.
template <bool alike>
__attribute__((KY_UNINSTRUMENTED)) inline unsigned StopsIn16(const char* a, const char* b) {
    if constexpr (!alike) return ky::StopsIn16<1>(a, b);
    const __m128i charsA = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
    const __m128i charsB = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));
    const __m128i zero = _mm_setzero_si128();
    const __m128i caseBit = _mm_set1_epi8(0x20);
    // Letters are moved to the lowest of the signed numbers; they may differ in the bit that is the case.
    const __m128i moved = _mm_add_epi8(_mm_or_si128(charsA, caseBit), _mm_set1_epi8(0x80 - 'a'));
    const __m128i isLetter = _mm_cmplt_epi8(moved, _mm_set1_epi8(26 - 128));
    const __m128i mayDiffer = _mm_and_si128(isLetter, caseBit);
    const __m128i equal = _mm_cmpeq_epi8(_mm_andnot_si128(mayDiffer, _mm_xor_si128(charsA, charsB)), zero);
    const __m128i ends = _mm_cmpeq_epi8(charsA, zero);
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_andnot_si128(ends, equal))) ^ 0xFFFF;
}

/// Where the first 16 bytes of two texts that go on behind the byte `at` stop, or where they end. False: they lie on
/// two pages.
template <bool alike>
[[gnu::always_inline]] inline bool PassHead(const char* a, const char* b, std::size_t& at) {
    constexpr std::size_t step = 16;
    constexpr std::size_t head = 4 * step;
    for (;;) {
        if (ky::EitherCrossesPage(a + at, b + at, step)) [[unlikely]]
            return false;
        if (const unsigned stops = StopsIn16<alike>(a + at, b + at)) {
            at += static_cast<std::size_t>(std::countr_zero(stops));
            return true;
        }
        at += step;
        if (at == head) return false;
    }
}

/// Two texts that are looked up alike. Most words are decided by their first characters.
template <bool alike>
[[gnu::always_inline]] inline int CompareAlike(const ByteKeys& keys, const char* a, const char* b,
                                               unsigned short maxLen) {
    const int first = (keys.keys[Code(*a)] & 0xFF) - (keys.keys[Code(*b)] & 0xFF);
    if (first != 0) return *a == 0 || *b == 0 ? Code(*a) - Code(*b) : first;
    std::size_t at = 0;
    if (PassHead<alike>(a, b, at)) [[likely]] {
        const unsigned keyA = keys.keys[Code(a[at])];
        const unsigned keyB = keys.keys[Code(b[at])];
        const bool isSame = (keyA == keyB) & (keyA != 0);
        // A byte is one or two keys. No limit is 0, and none is reached here.
        const bool mayBeOutside = 2 * at > maxLen - 1u;
        if (!(ByteKeys::HasSecond(keyA | keyB) | isSame | mayBeOutside)) [[likely]]
            return static_cast<int>(keyA) - static_cast<int>(keyB);
    }
    return CompareFrom(keys, a, b, at, Limit(maxLen));
}

/// Two texts of which one is a key, or in two forms.
template <class Order>
[[gnu::noinline]] int CompareOfModes(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                                     unsigned char modeB) {
    const ByteKeys& keysA = ky::ByteKeysOf<Order>(modeA);
    const ByteKeys& keysB = ky::ByteKeysOf<Order>(modeB);
    if (&keysA == &keysB) return CompareAlike<false>(keysA, a, b, maxLen);
    if (*a == 0 || *b == 0) return Code(*a) - Code(*b);
    return CompareByKeys(keysA, a, keysB, b, 0, Limit(maxLen), [](auto...) { return std::size_t{0}; });
}

template <class Order>
[[gnu::always_inline]] inline int Compare(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                                          unsigned char modeB) {
    if (b == nullptr) return a != nullptr;
    if (a == nullptr) return -1;
    if (modeA != modeB || (modeA & ky::kModeKey) != 0) [[unlikely]]
        return CompareOfModes<Order>(a, b, maxLen, modeA, modeB);
    return CompareAlike<Order::alike>(ky::ByteKeysOfText<Order>(modeA), a, b, maxLen);
}

}  // namespace

int kyistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseApart>(a, b, maxLen, modeA, modeB);
}

int kycaseistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseAlike>(a, b, maxLen, modeA, modeB);
}
