/// Comparison in dictionary order.

#include <algorithm>

#include "common_text.h"
#include "dictionary_keys.h"
#include "kyistring.h"

namespace {

using ky::ByteKeys;

/// What "all" means: that many keys.
constexpr std::size_t kMostKeys = 65535;

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

[[gnu::noinline]] int CompareUnlike(const ByteKeys& keysA, const char* a, const ByteKeys& keysB, const char* b,
                                    std::size_t limit) {
    return CompareByKeys(keysA, a, keysB, b, 0, limit, [](auto...) { return std::size_t{0}; });
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

/// Two texts that are looked up alike, none of them empty. Most words are decided by their first characters.
template <bool alike>
[[gnu::always_inline]] inline int CompareAlike(const ByteKeys& keys, const char* a, const char* b, std::size_t limit) {
    const int first = (keys.keys[Code(*a)] & 0xFF) - (keys.keys[Code(*b)] & 0xFF);
    if (first != 0) return first;
    constexpr std::size_t head = 16;
    std::size_t at = 0;
    if (!ky::EitherCrossesPage(a, b, head)) [[likely]] {
        const unsigned differ = StopsIn16<alike>(a, b);
        at = differ != 0 ? static_cast<std::size_t>(std::countr_zero(differ)) : head;
    }
    const unsigned keyA = keys.keys[Code(a[at])];
    const unsigned keyB = keys.keys[Code(b[at])];
    if ((keyA | keyB) == 0) return 0;
    if (keyA == keyB || ByteKeys::HasSecond(keyA | keyB) || 2 * at >= limit) [[unlikely]]
        return CompareFrom(keys, a, b, at, limit);
    return static_cast<int>(keyA) - static_cast<int>(keyB);
}

template <class Order>
[[gnu::always_inline]] inline int Compare(const char* a, const char* b, unsigned short maxLen, unsigned char modeA,
                                          unsigned char modeB) {
    if (b == nullptr) return a != nullptr;
    if (a == nullptr) return -1;
    if (*a == 0 || *b == 0) return Code(*a) - Code(*b);
    const std::size_t limit = maxLen != 0 ? maxLen : kMostKeys;
    const ByteKeys& keysA = ky::ByteKeysOf<Order>(modeA);
    const ByteKeys& keysB = ky::ByteKeysOf<Order>(modeB);
    if (&keysA != &keysB) return CompareUnlike(keysA, a, keysB, b, limit);
    if (Order::alike && (modeA & ky::kModeKey) == 0) return CompareAlike<true>(keysA, a, b, limit);
    return CompareAlike<false>(keysA, a, b, limit);
}

}  // namespace

int kyistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseApart>(a, b, maxLen, modeA, modeB);
}

int kycaseistrcmp(const char* a, const char* b, unsigned short maxLen, unsigned char modeA, unsigned char modeB) {
    return Compare<ky::CaseAlike>(a, b, maxLen, modeA, modeB);
}
