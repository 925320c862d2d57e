#include <algorithm>
#include <cstddef>
#include <memory_resource>
#include <vector>

#include "code_mapping.h"
#include "kystring_build.h"
#include "kystring_search.h"
#include "kytypes.h"

namespace {

/// Where the replaced pieces stand in the old text, and what the new one will be, as though each were cut out and
/// its replacement inserted one after the other: what an insertion pushes beyond the largest text is lost at once
/// and not searched any more.
struct Replacements {
    std::pmr::vector<unsigned short> positions;
    unsigned oldEnd;         ///< characters of the old text that are kept or replaced
    unsigned newLength = 0;  ///< up to behind the last replacement
    unsigned lastEnd = 0;    ///< in the old text, behind the last replaced piece
};

Replacements FindAll(const KyString& text, const ky::Searcher& from, unsigned toLength, unsigned start,
                     std::pmr::memory_resource* memory) {
    Replacements found{.positions = std::pmr::vector<unsigned short>(memory), .oldEnd = text.Len()};
    const unsigned maxLength = KyString::MaxBytes / ky::CharWidth(text.CodeSetGet()) - 1;
    for (unsigned short at; (at = from.Find(start, found.oldEnd)) != KyString::NotFound;) {
        found.positions.push_back(at);
        found.newLength += at - found.lastEnd + toLength;
        found.lastEnd = at + from.Length();
        if (toLength != 0 && found.newLength + (found.oldEnd - found.lastEnd) > maxLength) {
            ky::CheckStringOverflow();
            found.newLength = std::min(found.newLength, maxLength);
            found.oldEnd = found.lastEnd + (maxLength - found.newLength);
        }
        start = found.lastEnd;
    }
    return found;
}

}  // namespace

KyString& KyString::ReplaceAll(const KyString& from, const KyString& to, unsigned short start) {
    std::byte area[1024];
    std::pmr::monotonic_buffer_resource memory(area, sizeof area);
    const ky::Searcher searcher(*this, from, KyCmpDefault);
    const Replacements found = FindAll(*this, searcher, to.Len(), start, &memory);
    if (found.positions.empty()) return *this;

    const unsigned width = ky::CharWidth(codeSet);
    const std::size_t toBytes = std::size_t{to.Len()} * width;
    const ky::MappedSource source(to.StrGet(), to.codeSet, codeSet, 0, to.Len(), 1);
    ky::BlockWriter block((found.newLength + (found.oldEnd - found.lastEnd) + std::size_t{1}) * width, width);
    const auto putOld = [&](unsigned begin, unsigned end) {
        block.Put(buffer + std::size_t{begin} * width, std::size_t{end - begin} * width,
                  std::size_t{end - begin} * width);
    };
    unsigned done = 0;
    for (const unsigned short at : found.positions) {
        putOld(done, at);
        block.Put(source.Data(), source.Bytes(), toBytes);
        done = at + searcher.Length();
    }
    putOld(done, found.oldEnd);
    TakeOver(block);
    return *this;
}

KyString& KyString::ReplaceAll(unsigned short from, unsigned short to, unsigned short start) {
    return ReplaceAll(KyString(from), KyString(to), start);
}

KyString& KyString::ReplaceAll(char from, char to, unsigned short start) {
    return ReplaceAll(KyString(from), KyString(to), start);
}
