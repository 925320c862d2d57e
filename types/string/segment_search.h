#ifndef SEGMENT_SEARCH_H
#define SEGMENT_SEARCH_H

/// Search for a stretch of a pattern in a text, many places at a time. Texts are bytes or 32-bit keys, never 0.

#include <cstddef>
#include <span>

namespace ky {

/// What stands between two runs of a pattern; units equal to `any` stand for any one. Keeps a pointer to the units.
template <class Unit>
struct Segment {
    Segment(std::span<const Unit> segment, Unit anyOne)
        : units(segment.data()), length(segment.size()), any(anyOne), first(0), last(segment.size()) {
        while (first != length && units[first] == any) ++first;
        while (last > first && units[last - 1] == any) --last;
        if (last != 0) --last;
    }

    const Unit* units;
    std::size_t length;
    Unit any;
    std::size_t first;  ///< index of the first unit that isn't any one; `length`: there is none
    std::size_t last;   ///< of the last one

    bool FitsAt(const Unit* text) const {
        for (std::size_t i = first; i < length; ++i) {
            if (units[i] != text[i] && units[i] != any) return false;
        }
        return true;
    }
};

/// The first of the `places` beginnings of `text` at which a segment fits; `places` when there is none. The text has
/// places + segment.length - 1 units, and no other is read. Takes at most places * length steps, each for as many
/// places as the machine's vectors hold.
template <class Unit>
using FindSegmentKernel = std::size_t(const Unit* text, std::size_t places, const Segment<Unit>& segment);

FindSegmentKernel<unsigned char> FindSegmentInBytes;
FindSegmentKernel<unsigned> FindSegmentInKeys;

inline std::size_t FindSegment(const unsigned char* text, std::size_t places, const Segment<unsigned char>& segment) {
    return FindSegmentInBytes(text, places, segment);
}
inline std::size_t FindSegment(const unsigned* text, std::size_t places, const Segment<unsigned>& segment) {
    return FindSegmentInKeys(text, places, segment);
}

FindSegmentKernel<unsigned char> FindSegmentInBytesAny;
FindSegmentKernel<unsigned char> FindSegmentInBytesAvx2;
FindSegmentKernel<unsigned char> FindSegmentInBytesAvx512;
FindSegmentKernel<unsigned> FindSegmentInKeysAny;
FindSegmentKernel<unsigned> FindSegmentInKeysAvx2;
FindSegmentKernel<unsigned> FindSegmentInKeysAvx512;

/// One variant of both.
struct SegmentKernels {
    const char* name;
    FindSegmentKernel<unsigned char>* inBytes;
    FindSegmentKernel<unsigned>* inKeys;
};

/// The variants, from the one for any machine to the widest; how many of them this machine can run.
inline constexpr int kSegmentKernelVariants = 3;
extern const SegmentKernels kSegmentKernels[kSegmentKernelVariants];
int RunnableSegmentKernels();

}  // namespace ky

#endif
