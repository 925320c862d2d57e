#ifndef COMPARE_RULES_H
#define COMPARE_RULES_H

/// What comparisons of every kind of string have in common: how two arrays are walked, and what the result and the
/// error are where the comparand is a pattern or the buffer's end cuts a text short.

#include <cstddef>
#include <limits>
#include <optional>

#include "array_rules.h"
#include "kytypes.h"

namespace ky {

/// Texts are compared by keys, of which a character may have several and several characters one.
inline constexpr std::size_t kAllKeys = std::numeric_limits<std::size_t>::max();

constexpr bool AllowsWildcards(unsigned short op) { return (op & (KyCmpExact | KyCmpStringExact)) == 0; }

/// The part of a pattern in front of its first wildcard.
struct LiteralPart {
    std::size_t keys;
    bool endsInRun;  ///< all that follows is known to be one wildcard for any run of characters
};

/// The result for two texts. `err` may be set already and is set when the result leaves something open. Of `Pair`:
///
///   bool firstIsCut, secondIsCut             more of the text follows behind the buffer's end
///   size_t firstLength, secondLength         bytes of the whole text
///   std::optional<LiteralPart> Literals()    what to compare by when the second text is a pattern; else nothing
///   int Compare(size_t keys)                 order of the texts' first keys, the second being no pattern there
///   size_t KeysOfFirst(size_t most)          keys that a cut text has for certain, counted up to `most`
///   size_t KeysOfSecond(size_t most)
///
/// All that begin like a pattern are equal to it, so they stand side by side in an index; whether one matches is for
/// the caller to see.
template <class Pair>
int ComparePair(Pair& pair, unsigned short op, int& err) {
    const auto leaveOpen = [&] {
        if (err == 0) err = KyErrBufferEnd;
    };
    const bool byComparer = (op & KyCmpPrefixResult) != 0;
    if (AllowsWildcards(op)) {
        if (const std::optional<LiteralPart> literals = pair.Literals()) {
            const std::size_t keys = pair.firstIsCut ? pair.KeysOfFirst(literals->keys) : literals->keys;
            // Nothing is open where the missing rest of the text meets a wildcard for any rest.
            const bool certain = pair.firstIsCut && keys == literals->keys && literals->endsInRun && !byComparer;
            if (!certain) leaveOpen();
            return pair.Compare(keys);
        }
    }
    if (!pair.firstIsCut && !pair.secondIsCut) return pair.Compare(kAllKeys);
    std::size_t keys = kAllKeys;
    if (pair.firstIsCut) keys = pair.KeysOfFirst(keys);
    if (pair.secondIsCut) keys = pair.KeysOfSecond(keys);
    const int result = pair.Compare(keys);
    if (result != 0) return result;
    leaveOpen();
    // Keys of an index that were all cut at one size so stand in one order.
    return byComparer ? 0 : Order(pair.firstLength, pair.secondLength);
}

/// Compares element by element until `comparePair(err)`, which compares those that both walks stand at, gives a result
/// or an error. Of `Walk`:
///
///   bool IsMissing() const   the buffer ends before it tells what the element is
///   bool Next()              steps on; false when the next element would start at or past the buffer's end
template <class Walk, class Compare>
int CompareArrays(Walk& a, Walk& b, unsigned count, int& err, const Compare& comparePair) {
    err = 0;
    while (count != 0) {
        if (a.IsMissing() || b.IsMissing()) {
            err = KyErrBufferEnd;
            return 0;
        }
        const int result = comparePair(err);
        if (--count == 0 || err < 0) return result;
        if (!a.Next() || !b.Next()) err = KyErrBufferEnd;
        if (result != 0 || err != 0) return result;
    }
    return 0;
}

}  // namespace ky

#endif
