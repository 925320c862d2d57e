/// Translate of dictionary strings.

#include <algorithm>
#include <limits>

#include "byte_sink.h"
#include "dictionary_records.h"
#include "dictionary_slots.h"
#include "object_slots.h"
#include "string_records.h"

namespace ky {

namespace {

/// An array as it stands, as far as it is there. Returns the bytes written.
std::size_t PutArray(void* dst, std::size_t room, unsigned char form, const void* src, std::size_t srcLen,
                     unsigned char sourceForm) {
    if (srcLen != 0 && srcLen < kDictionaryHead) return 0;
    const unsigned stored = StoredTexts(src, sourceForm);
    const std::size_t present = srcLen != 0 ? std::min<std::size_t>(stored, srcLen - kDictionaryHead) : stored;
    unsigned char head[kDictionaryHead];
    WriteDictionaryHead(head, *static_cast<const unsigned char*>(src), stored, form);
    ByteSink sink(dst, room);
    sink.Put(head, sizeof head);
    sink.Put(Advance(src, kDictionaryHead), present);
    return sink.Written();
}

}  // namespace

template <class Self>
unsigned DictionaryTranslating<Self>::Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src,
                                                unsigned char srcFlag, unsigned srcLen, unsigned count) {
    const unsigned char form = FormOf(dstFlag);
    const bool fromMemory = FormOf(srcFlag) == KyFormMemory;
    if (form == KyFormMemory) {
        if (!fromMemory) return DictionaryStoring<Self>::LoadWithin(dst, src, srcLen, srcFlag, count);
        ObjectSlots<Self>::Assignment(dst, src, count, 0);
        return static_cast<unsigned>(sizeof(Self)) * count;
    }
    const std::size_t room = dstLen != 0 ? dstLen : std::numeric_limits<std::size_t>::max();
    const std::size_t written = fromMemory || count == 0
                                    ? DictionaryStoring<Self>::StoreWithin(dst, room, src, form, count)
                                    : PutArray(dst, room, form, src, srcLen, FormOf(srcFlag));
    if (written < dstLen) ZeroBytes(Advance(dst, written), dstLen - written);
    return static_cast<unsigned>(written);
}

template struct DictionaryTranslating<KyIString>;
template struct DictionaryTranslating<KyCaseIString>;

}  // namespace ky
