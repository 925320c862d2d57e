#include "old_layout.h"

#include <algorithm>

#include "kybase.h"
#include "kystring.h"
#include "kystring_build.h"

namespace ky {
namespace {

std::size_t CharactersOf(const StoredText& s) { return s.IsNull() ? 0 : s.Characters(); }

/// Calls `visit` with each string.
template <class Visit>
void ForEach(StringWalk& walk, unsigned count, const Visit& visit) {
    for (unsigned i = 0; i < count && !walk.IsMissing(); ++i) {
        visit(walk.Current(), count - 1 - i);
        if (i + 1 != count && !walk.Next()) break;
    }
}

/// Without bound.
std::size_t SizeOfTexts(StringWalk walk, unsigned count) {
    std::size_t total = 0;
    ForEach(walk, count, [&](const StoredText& s, unsigned) { total += CharactersOf(s) + 1; });
    return total;
}

void PutText(ByteSink& sink, const StoredText& s, std::size_t characters, unsigned char form) {
    const unsigned char codeSet = s.Width() == 1 ? s.codeSet : KyString::GetDefault8CodeSet();
    const MappedSource text(s.text, s.codeSet, codeSet, 0, characters, form);
    sink.Put(text.Data(), text.Bytes());
    sink.Put(0);
}

}  // namespace

std::size_t OldLayoutSize(StringWalk walk, unsigned count) {
    return kLengthField + std::min(SizeOfTexts(walk, count), kMostOldBytes);
}

void StoreOldLayout(ByteSink& sink, const StringWalk& walk, unsigned char sourceForm, unsigned char form,
                    unsigned count) {
    const std::size_t wanted = SizeOfTexts(walk, count);
    if (wanted > kMostOldBytes) KYRN_assert("array total <= 65535", "src/kystring", __LINE__);
    const std::size_t total = std::min(wanted, kMostOldBytes);
    unsigned char field[kLengthField];
    WriteLength(field, static_cast<unsigned>(total), form);
    sink.Put(field, sizeof field);

    std::size_t left = total;
    StringWalk step = walk;
    ForEach(step, count, [&](const StoredText& s, unsigned behind) {
        if (left == 0) return;
        // Every string behind this one needs its terminator.
        const std::size_t most = left - 1 - std::min<std::size_t>(left - 1, behind);
        const std::size_t characters = std::min(CharactersOf(s), most);
        PutText(sink, s, characters, sourceForm);
        left -= characters + 1;
    });
}

}  // namespace ky
