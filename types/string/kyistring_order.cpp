/// Compare and Hash of arrays of dictionary strings.

#include <algorithm>
#include <cstring>

#include "array_rules.h"
#include "dictionary_records.h"
#include "dictionary_slots.h"
#include "kywildcard.h"

namespace {

using ky::DictionaryText;
template <class Self>
using Walk = ky::DictionaryWalk<Self>;

/// The longest key that an index holds, without its terminator.
constexpr std::size_t kLongestKey = 253;
/// What a text that the buffer's end cuts short is compared with at most: no comparand is longer.
constexpr std::size_t kLongestPart = kLongestKey + 1;

/// The keys of wildcards and the escape, which are the same in both orders.
constexpr char kWildcardsOfKeys[] = {'*', '?', 0x43, 0};
static_assert(ky::DictionaryKeyOf(ky::kIStringTables, '\\').key == 0x43);
static_assert(ky::DictionaryKeyOf(ky::kCaseIStringTables, '\\').key == 0x43);

template <class Self>
struct Functions;

template <>
struct Functions<KyIString> {
    using Order = ky::CaseApart;
    static constexpr auto Compare = kyistrcmp;
    static constexpr auto FindWildcard = istrwc;
};

template <>
struct Functions<KyCaseIString> {
    using Order = ky::CaseAlike;
    static constexpr auto Compare = kycaseistrcmp;
    static constexpr auto FindWildcard = caseistrwc;
};

/// A text with a terminator behind it: where it stands, if it has one there, else as much of it as matters.
class Terminated {
public:
    explicit Terminated(const DictionaryText& s) : text(s.text) {
        if (s.terminated) return;
        const std::size_t length = std::min(s.room, kLongestPart);
        std::memcpy(local, s.text, length);
        local[length] = 0;
        text = local;
    }
    Terminated(const Terminated&) = delete;
    Terminated& operator=(const Terminated&) = delete;

    const char* Text() const { return text; }

private:
    const char* text;
    char local[kLongestPart + 1];
};

template <class Order>
[[gnu::noinline]] bool IsKeyTooLong(DictionaryText s, std::size_t most) {
    const std::size_t length = strnlen(s.text, most);
    if (2 * length <= kLongestKey) return false;
    const auto& keys = ky::ByteKeysOf<Order>(s.mode & (ky::kModeKey | ky::kModeDiskForm));
    return ky::KeyCount(keys, s.text, length) > kLongestKey;
}

template <class Order>
bool IsTooLong(const DictionaryText& s) {
    const std::size_t most = std::min(s.room, kLongestPart);
    return 2 * most > kLongestKey && IsKeyTooLong<Order>(s, most);
}

/// Position of the first wildcard or escape of a comparand; -1: there is none.
template <class Self>
int FindWildcard(const char* text, unsigned char mode) {
    if ((mode & ky::kModeKey) == 0) return Functions<Self>::FindWildcard(const_cast<char*>(text), mode);
    const std::size_t at = std::strcspn(text, kWildcardsOfKeys);
    return text[at] != 0 ? static_cast<int>(at) : -1;
}

bool AllowsWildcards(unsigned short op) { return (op & (KyCmpExact | KyCmpStringExact)) == 0; }

int Sign(int number) { return ky::Order(number, 0); }

/// Keys that a text has for certain, at most so many.
template <class Order>
std::size_t CertainKeys(const DictionaryText& s, const char* text, std::size_t most) {
    return s.cutShort ? std::min(most, ky::KeyCount(ky::ByteKeysOf<Order>(s.mode), text, std::strlen(text))) : most;
}

/// A comparand that may be a pattern, or texts that are not all there. Copies, so that the caller's walks stay in
/// registers.
template <class Self>
[[gnu::noinline]] int CompareOpen(Walk<Self> walkA, Walk<Self> walkB, unsigned short op, int& err) {
    using Order = typename Functions<Self>::Order;
    const DictionaryText& a = walkA.Current();
    const DictionaryText& b = walkB.Current();
    const Terminated textA(a);
    const Terminated textB(b);
    const char* pattern = textB.Text();
    const int position = AllowsWildcards(op) ? FindWildcard<Self>(pattern, b.mode) : -1;
    if (position < 0 && !a.cutShort && !b.cutShort) {
        return Sign(Functions<Self>::Compare(textA.Text(), pattern, 0, a.mode, b.mode));
    }

    constexpr std::size_t all = 65535;
    const std::size_t literals =
        position >= 0 ? ky::KeyCount(ky::ByteKeysOf<Order>(b.mode), pattern, static_cast<std::size_t>(position)) : all;
    const std::size_t present = CertainKeys<Order>(a, textA.Text(), literals);
    const auto limit = static_cast<unsigned short>(CertainKeys<Order>(b, pattern, present));
    const int result = limit != 0 ? Sign(Functions<Self>::Compare(textA.Text(), pattern, limit, a.mode, b.mode)) : 0;
    const bool byComparer = (op & KyCmpPrefixResult) != 0;
    if (position >= 0) {
        const bool endsWithRun = !b.cutShort && pattern[position] == '*' && pattern[position + 1] == 0;
        const bool isCertain = a.cutShort && present == literals && endsWithRun && !byComparer;
        if (!isCertain) err = KyErrBufferEnd;
        return result;
    }
    if (result != 0) return result;
    err = KyErrBufferEnd;
    return byComparer ? 0 : ky::Order(walkA.TextLength(), walkB.TextLength());
}

/// The current texts of both, neither missing.
template <class Self>
[[gnu::always_inline]] inline int CompareTexts(const Walk<Self>& walkA, const Walk<Self>& walkB, unsigned short op,
                                               int& err) {
    const DictionaryText& a = walkA.Current();
    const DictionaryText& b = walkB.Current();
    if (IsTooLong<typename Functions<Self>::Order>(b)) {
        err = KyErrNotSupported;
        return -1;
    }
    if (a.IsEmpty() || b.IsEmpty()) return static_cast<int>(b.IsEmpty()) - static_cast<int>(a.IsEmpty());
    if (AllowsWildcards(op) || !a.terminated || !b.terminated) return CompareOpen(walkA, walkB, op, err);
    return Sign(Functions<Self>::Compare(a.text, b.text, 0, a.mode, b.mode));
}

}  // namespace

namespace ky {

template <class Self>
int DictionaryOrder<Self>::Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b,
                                   unsigned short op, unsigned count, int& err) {
    err = 0;
    if (count == 0) return 0;
    DictionaryWalk<Self> walkA(a, len1, flag);
    DictionaryWalk<Self> walkB(b, len2, flag);
    if (walkA.IsMissing() || walkB.IsMissing()) {
        err = KyErrBufferEnd;
        return 0;
    }
    for (;;) {
        const int result = CompareTexts(walkA, walkB, op, err);
        if (--count == 0 || err < 0) return result;
        if (!walkA.Next() || !walkB.Next()) err = KyErrBufferEnd;
        if (result != 0 || err != 0) return result;
    }
}

template <class Self>
unsigned DictionaryOrder<Self>::Hash(unsigned char, unsigned, void*, unsigned, int& err) {
    err = 0;
    return 0;
}

template struct DictionaryOrder<KyIString>;
template struct DictionaryOrder<KyCaseIString>;

}  // namespace ky
