#include "kystring_search.h"

#include <algorithm>

#include "code_sets.h"
#include "kytypes.h"
#include "prefix_search.h"
#include "segment_search.h"

namespace {

/// Neither wildcard-free bit is set.
bool AllowsWildcards(unsigned short op) { return (op & (KyCmpExact | KyCmpStringExact)) == 0; }

}  // namespace

namespace ky {
namespace {

TextView ViewOf(const KyString& s, const char* from) { return {from, s.CodeSetGet(), s.LanguageGet(), 1}; }
TextView ViewOf(const KyString& s) { return ViewOf(s, s.StrGet()); }

}  // namespace

Searcher::Searcher(const KyString& searched, const KyString& searchedFor, unsigned short givenOp)
    : text(searched), pattern(searchedFor), length(pattern.Len()), op(givenOp), wild(AllowsWildcards(givenOp)) {
    if (op == KyCmpDefault) {
        op = KyString::GetDefaultCmpOp();
        if (AllowsWildcards(op)) op |= KyCmpExact;
    }
    PrepareKeys();
}

void Searcher::PrepareKeys() {
    if (text.IsNullValue() || pattern.IsNullValue()) return;
    if (text.CodeSetGet() == KyCodeSetNative && pattern.CodeSetGet() == KyCodeSetNative) {
        textKeys.emplace();
        if (wild) {
            ReadBytesUpToRun(pattern.StrGet(), beginning);
        } else {
            textKeys->Read(pattern.StrGet(), length, beginning.Reserve(length));
            beginning.Take(length);
        }
        return;
    }
    if (ReadsDefaultClasses(text.CodeSetGet(), pattern.CodeSetGet())) return;
    const unsigned mask = KeyMask(op);
    const bool neutral = ReadsNeutral(op);
    textKeys.emplace(text.CodeSetGet(), neutral ? KyLanguageNeutral : text.LanguageGet(), mask);
    if (!textKeys->Exist()) {
        textKeys.reset();
        return;
    }
    TextView view = ViewOf(pattern);
    if (neutral) view.language = KyLanguageNeutral;
    if (wild) {
        ReadUpToRun(view, mask, beginning);
    } else {
        KeyReader reader(view, length, mask, false);
        while (const unsigned key = reader.Next()) beginning.Append(key);
    }
}

PrefixMatch Searcher::MatchAt(unsigned position) const {
    const char* const place = text.StrGet() + std::size_t{position} * CharWidth(text.CodeSetGet());
    if (wild && !pattern.IsNullValue()) return MatchPrefix(ViewOf(text, place), ViewOf(pattern), op);
    const auto maxLen = static_cast<short>(wild ? KyString::NotFound : length);
    const int order = KyStrCmp(text.CodeSetGet(), text.LanguageGet(), place, pattern.CodeSetGet(),
                               pattern.LanguageGet(), pattern.StrGet(), op, maxLen, 1, nullptr);
    return order == 0 ? PrefixMatch::yes : PrefixMatch::no;
}

unsigned short Searcher::Find(unsigned start, unsigned limit) const {
    if (length == 0 || start + length > limit) return KyString::NotFound;
    const unsigned lastPosition = limit - length;
    return textKeys ? FindByKeys(start, lastPosition, limit) : FindOneByOne(start, lastPosition);
}

unsigned short Searcher::FindOneByOne(unsigned start, unsigned lastPosition) const {
    for (unsigned at = start; at <= lastPosition; ++at) {
        const Piece result = FindHere(at, lastPosition);
        if (result.ended) return result.position;
    }
    return KyString::NotFound;
}

/// Ends the search when the pattern is here or a search at each of the later positions is not needed.
Searcher::Piece Searcher::FindHere(unsigned position, unsigned lastPosition) const {
    switch (MatchAt(position)) {
        case PrefixMatch::no:
            return {false, KyString::NotFound};
        case PrefixMatch::yes:
            return {true, static_cast<unsigned short>(position)};
        case PrefixMatch::never:
            return {true, KyString::NotFound};
        case PrefixMatch::unclear:
            break;
    }
    const std::optional<unsigned> found = FindPrefix(ViewOf(text), position + 1, lastPosition, ViewOf(pattern), op);
    if (!found) return {false, KyString::NotFound};
    return {true, *found <= lastPosition ? static_cast<unsigned short>(*found) : KyString::NotFound};
}

unsigned short Searcher::FindByKeys(unsigned start, unsigned lastPosition, unsigned limit) const {
    const unsigned width = CharWidth(text.CodeSetGet());
    SmallBuffer<unsigned, 256> keys;
    // The text is read in growing pieces: most searches end soon.
    unsigned piece = 64;
    for (unsigned at = start; at <= lastPosition; at += piece, piece = std::min(2 * piece, 4096u)) {
        const unsigned places = std::min(piece, lastPosition + 1 - at);
        const std::size_t count = std::min(places + beginning.Size(), std::size_t{limit} - at);
        keys.Clear();
        textKeys->Read(text.StrGet() + std::size_t{at} * width, count, keys.Reserve(count));
        keys.Take(count);
        const Piece result = FindInPiece(at, places, keys.Items(), lastPosition);
        if (result.ended) return result.position;
    }
    return KyString::NotFound;
}

/// `keys` are those of the characters from the position `start` on, more than the `places` that are tried.
Searcher::Piece Searcher::FindInPiece(unsigned start, unsigned places, std::span<const unsigned> keys,
                                      unsigned lastPosition) const {
    const Segment<unsigned> wanted(beginning.Items(), 0);
    auto unclear = keys.begin();
    for (unsigned place = 0; place < places; ++place) {
        unclear = std::find(std::max(unclear, keys.begin() + place), keys.end(), CharacterKeys::kUnclear);
        // Where all characters that are asked for rank alone, equal keys decide.
        const std::size_t clear = static_cast<std::size_t>(unclear - keys.begin()) - place;
        bool fits = false;
        if (clear >= wanted.length) {
            const std::size_t tried = std::min<std::size_t>(clear - wanted.length + 1, places - place);
            const std::size_t found = FindSegment(&keys[place], tried, wanted);
            place += static_cast<unsigned>(found);
            if (place == places) break;
            fits = found != tried;
        }
        if (!fits && !MayBeginWith(keys[place])) continue;
        if (const Piece result = FindHere(start + place, lastPosition); result.ended) return result;
    }
    return {false, KyString::NotFound};
}

bool Searcher::MayBeginWith(unsigned key) const {
    return key == CharacterKeys::kUnclear || beginning.Size() == 0 || beginning.Data()[0] == 0 ||
           beginning.Data()[0] == key;
}

}  // namespace ky

unsigned short KyString::Find(const KyString& pattern, unsigned short start, unsigned short op) const {
    const unsigned length = Len();
    if (length == 0 || start > length || pattern.IsEmpty()) return NotFound;
    return ky::Searcher(*this, pattern, op).Find(start, length);
}

unsigned short KyString::Find(unsigned short c, unsigned short start, unsigned short op) const {
    return Find(KyString(c), start, op);
}

unsigned short KyString::Find(char c, unsigned short start, unsigned short op) const {
    return Find(KyString(c), start, op);
}

unsigned short KyString::SubStringPos(const KyString& pattern, unsigned short op) const { return Find(pattern, 0, op); }
