/// Compare and Hash of arrays of dictionary strings.

#include <algorithm>
#include <cstring>
#include <optional>

#include "compare_rules.h"
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
    return ky::KeyCount(ky::ByteKeysOf<Order>(ky::ModeOfStoredKey(s.mode)), s.text, length) > kLongestKey;
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

int Sign(int number) { return ky::Order(number, 0); }

/// Two texts, for `ComparePair`.
template <class Self>
class DictionaryPair {
public:
    DictionaryPair(const Walk<Self>& walkA, const Walk<Self>& walkB)
        : firstIsCut(walkA.Current().cutShort),
          secondIsCut(walkB.Current().cutShort),
          firstLength(firstIsCut || secondIsCut ? walkA.TextLength() : 0),
          secondLength(firstIsCut || secondIsCut ? walkB.TextLength() : 0),
          a(walkA.Current()),
          b(walkB.Current()) {}

    const bool firstIsCut;
    const bool secondIsCut;
    const std::size_t firstLength;  ///< both: where one is cut short
    const std::size_t secondLength;

    std::optional<ky::LiteralPart> Literals() const {
        const char* pattern = b.text.Text();
        const int position = FindWildcard<Self>(pattern, b.mode);
        if (position < 0) return std::nullopt;
        const bool endsInRun = !secondIsCut && pattern[position] == '*' && pattern[position + 1] == 0;
        return ky::LiteralPart{b.Keys(static_cast<std::size_t>(position)), endsInRun};
    }
    int Compare(std::size_t keys) const {
        if (keys == 0) return 0;
        const auto most = static_cast<unsigned short>(keys != ky::kAllKeys ? keys : 0);
        return Sign(Functions<Self>::Compare(a.text.Text(), b.text.Text(), most, a.mode, b.mode));
    }
    std::size_t KeysOfFirst(std::size_t most) const { return std::min(most, a.Keys(std::strlen(a.text.Text()))); }
    std::size_t KeysOfSecond(std::size_t most) const { return std::min(most, b.Keys(std::strlen(b.text.Text()))); }

private:
    struct Side {
        explicit Side(const DictionaryText& s) : text(s), mode(s.mode) {}

        Terminated text;
        unsigned char mode;

        std::size_t Keys(std::size_t length) const {
            return ky::KeyCount(ky::ByteKeysOf<typename Functions<Self>::Order>(mode), text.Text(), length);
        }
    };
    const Side a;
    const Side b;
};

/// A comparand that may be a pattern, or texts that are not all there. Copies, so that the caller's walks stay in
/// registers.
template <class Self>
[[gnu::noinline]] int CompareOpen(Walk<Self> walkA, Walk<Self> walkB, unsigned short op, int& err) {
    const DictionaryPair<Self> pair(walkA, walkB);
    return ky::ComparePair(pair, op, err);
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
    if (ky::AllowsWildcards(op) || !a.terminated || !b.terminated) return CompareOpen(walkA, walkB, op, err);
    return Sign(Functions<Self>::Compare(a.text, b.text, 0, a.mode, b.mode));
}

}  // namespace

namespace ky {

template <class Self>
int DictionaryOrder<Self>::Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b,
                                   unsigned short op, unsigned count, int& err) {
    if (count == 0) return err = 0;
    DictionaryWalk<Self> walkA(a, len1, flag);
    DictionaryWalk<Self> walkB(b, len2, flag);
    return CompareArrays(walkA, walkB, count, err,
                         [&](int& pairErr) { return CompareTexts(walkA, walkB, op, pairErr); });
}

template <class Self>
unsigned DictionaryOrder<Self>::Hash(unsigned char, unsigned, void*, unsigned, int& err) {
    err = 0;
    return 0;
}

template struct DictionaryOrder<KyIString>;
template struct DictionaryOrder<KyCaseIString>;

}  // namespace ky
