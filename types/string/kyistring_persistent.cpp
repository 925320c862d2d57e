/// Store, Load and the sizes of dictionary strings.

#include <algorithm>
#include <new>

#include "dictionary_records.h"
#include "dictionary_slots.h"
#include "disk_bytes.h"
#include "kybase.h"
#include "mem_file_bytes.h"

namespace {

/// Bit of a flag that asks for the size of keys.
constexpr unsigned char kSizeOfKey = 0x80;

template <class Self>
constexpr bool isApart = std::is_same_v<Self, KyIString>;
template <class Self>
constexpr auto SizeMem = isApart<Self> ? _KyISizeMem : _KyCaseISizeMem;
template <class Self>
constexpr auto SizeNoMem = isApart<Self> ? _KyISizeNoMem : _KyCaseISizeNoMem;

void PutText(unsigned char* dst, const char* text, std::size_t length, bool inDiskForm) {
    if (inDiskForm) {
        ky::ConvertBytes(ky::kToDiskForm, dst, text, length);
    } else {
        ky::CopyBytes(dst, text, length);
    }
    dst[length] = 0;
}

/// A text's block in the program's code page; null for an empty text and when memory fails.
char* NewText(const ky::DictionaryText& stored) {
    const std::size_t length = stored.Length();
    if (length == 0) return nullptr;
    char* block = new (std::nothrow) char[length + 1];
    if (block == nullptr) {
        KyCallMemoryHandler(length + 1);
        return nullptr;
    }
    if (stored.mode == ky::kModeDiskForm) {
        ky::ConvertBytes(ky::kFromDiskForm, block, stored.text, length);
    } else {
        ky::CopyBytes(block, stored.text, length);
    }
    block[length] = 0;
    return block;
}

}  // namespace

namespace ky {

template <class Self>
unsigned DictionaryStoring<Self>::Store(void* dst, const void* src, unsigned char flag, unsigned count) {
    const auto* values = static_cast<const Self*>(src);
    const bool inDiskForm = (flag & ~KyFormMask) == 0;
    unsigned char* texts = Advance(dst, kDictionaryHead);
    std::size_t total = 0;
    bool shortened = false;
    for (unsigned i = 0; i < count && total < kMostStoredBytes; ++i) {
        // Every value behind this one needs its terminator.
        const std::size_t needed = total + (count - i);
        const std::size_t room = needed < kMostStoredBytes ? kMostStoredBytes - needed : 0;
        const std::size_t length = std::min<std::size_t>(values[i].Len(), room);
        shortened = shortened || values[i].StrGet()[length] != 0;
        PutText(texts + total, values[i].StrGet(), length, inDiskForm);
        total += length + 1;
    }
    if (shortened || count > kMostStoredBytes) KYRN_assert("array total <= 65535", "src/kystring", __LINE__);
    *static_cast<unsigned char*>(dst) = inDiskForm ? kMarkerDiskForm : kMarkerPlain;
    WriteLength(Advance(dst, 1), static_cast<unsigned>(total), flag & KyFormMask);
    return static_cast<unsigned>(kDictionaryHead + total);
}

template <class Self>
unsigned DictionaryStoring<Self>::Load(void* dst, const void* src, unsigned char flag, unsigned count) {
    auto* values = static_cast<Self*>(dst);
    DictionaryWalk<Self> walk(src, 0, flag & (KyFormNative | KyFormReversed));
    std::size_t read = kDictionaryHead;
    for (unsigned i = 0; i < count; ++i) {
        const bool isThere = i == 0 ? !walk.IsMissing() : walk.Next();
        const DictionaryText text = isThere ? walk.Current() : DictionaryText();
        DictionaryAccess::Install(values[i], NewText(text), text.mode & kModeKey);
        read += std::min(text.Length() + 1, text.room);
    }
    return static_cast<unsigned>(read);
}

template <class Self>
unsigned DictionaryStoring<Self>::NullSizeGet(unsigned count) {
    return static_cast<unsigned>(kDictionaryHead) + count;
}

template <class Self>
unsigned DictionaryStoring<Self>::SizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag,
                                          unsigned count) {
    if ((toFlag & KyFormMask) == KyFormMemory) return static_cast<unsigned>(sizeof(Self)) * count;
    if (value == nullptr) return NullSizeGet(count);
    const bool fromMemory = (fromFlag & KyFormMask) == KyFormMemory;
    const auto size = fromMemory ? SizeMem<Self> : SizeNoMem<Self>;
    return static_cast<unsigned>(kDictionaryHead) + size(value, fromFlag & KyFormMask, toFlag, count);
}

template <class Self>
unsigned DictionaryStoring<Self>::SizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count) {
    const unsigned char form = flag & KyFormMask;
    const unsigned char* head = BytesOfFile(*file, 0, kDictionaryHead);
    if (head == nullptr) return 0;
    const auto stored = static_cast<long>(kDictionaryHead + StoredTexts(head, form));
    // Texts that are not all there have no key to be measured.
    const bool isComplete = BytesOfFile(*file, 0, stored) != nullptr;
    const auto asked = static_cast<unsigned char>(isComplete ? flag : flag & ~kSizeOfKey);
    return static_cast<unsigned>(kDictionaryHead) + SizeNoMem<Self>(head, form, asked, count);
}

template struct DictionaryStoring<KyIString>;
template struct DictionaryStoring<KyCaseIString>;

}  // namespace ky
