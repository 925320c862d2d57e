/// Store, Load and the sizes of dictionary strings.

#include <algorithm>
#include <new>

#include "byte_sink.h"
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

/// As ByteSink, where there is room for all.
class RoomySink {
public:
    explicit RoomySink(unsigned char* to) : at(to) {}

    void Put(const void* bytes, std::size_t count) {
        ky::CopyBytes(at, bytes, count);
        at += count;
    }
    void Put(unsigned char byte) { *at++ = byte; }
    void PutConverted(const unsigned char (&table)[128], const void* bytes, std::size_t count) {
        ky::ConvertBytes(table, at, bytes, count);
        at += count;
    }

private:
    unsigned char* at;
};

/// The texts of an array. Returns the bytes of all, written or not.
template <class Sink, class Self>
std::size_t PutTexts(Sink sink, const Self* values, unsigned count, bool inDiskForm) {
    std::size_t total = 0;
    bool shortened = false;
    for (unsigned i = 0; i < count && total < ky::kMostStoredBytes; ++i) {
        // Every value behind this one needs its terminator.
        const std::size_t needed = total + (count - i);
        const std::size_t room = needed < ky::kMostStoredBytes ? ky::kMostStoredBytes - needed : 0;
        const char* text = values[i].StrGet();
        const std::size_t length = std::min<std::size_t>(values[i].Len(), room);
        shortened = shortened || text[length] != 0;
        if (inDiskForm) {
            sink.PutConverted(ky::kToDiskForm, text, length);
        } else {
            sink.Put(text, length);
        }
        sink.Put(0);
        total += length + 1;
    }
    if (shortened || count > ky::kMostStoredBytes) KYRN_assert("array total <= 65535", "src/kystring", __LINE__);
    return total;
}

constexpr bool IsInDiskForm(unsigned char flag) { return (flag & ~KyFormMask) == 0; }

void WriteHead(void* to, std::size_t total, unsigned char flag) {
    const unsigned char marker = IsInDiskForm(flag) ? ky::kMarkerDiskForm : ky::kMarkerPlain;
    ky::WriteDictionaryHead(to, marker, static_cast<unsigned>(total), flag & KyFormMask);
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
    RoomySink texts(Advance(dst, kDictionaryHead));
    const std::size_t total = PutTexts(texts, static_cast<const Self*>(src), count, IsInDiskForm(flag));
    WriteHead(dst, total, flag);
    return static_cast<unsigned>(kDictionaryHead + total);
}

template <class Self>
unsigned DictionaryStoring<Self>::StoreWithin(void* dst, std::size_t room, const void* src, unsigned char flag,
                                              unsigned count) {
    const std::size_t roomOfHead = std::min(room, kDictionaryHead);
    ByteSink texts(Advance(dst, roomOfHead), room - roomOfHead);
    const std::size_t total = PutTexts(texts, static_cast<const Self*>(src), count, IsInDiskForm(flag));
    unsigned char head[kDictionaryHead];
    WriteHead(head, total, flag);
    CopyBytes(dst, head, roomOfHead);
    return static_cast<unsigned>(std::min(room, kDictionaryHead + total));
}

template <class Self>
unsigned DictionaryStoring<Self>::LoadWithin(void* dst, const void* src, std::size_t length, unsigned char flag,
                                             unsigned count) {
    auto* values = static_cast<Self*>(dst);
    DictionaryWalk<Self> walk(src, length, flag & (KyFormNative | KyFormReversed));
    std::size_t read = kDictionaryHead;
    for (unsigned i = 0; i < count; ++i) {
        const bool isThere = i == 0 ? !walk.IsMissing() : walk.Next();
        const DictionaryText text = isThere ? walk.Current() : DictionaryText();
        DictionaryAccess::Install(values[i], NewText(text), text.mode & kModeKey);
        read += std::min(text.Length() + 1, text.room);
    }
    return static_cast<unsigned>(length != 0 ? std::min(read, length) : read);
}

template <class Self>
unsigned DictionaryStoring<Self>::Load(void* dst, const void* src, unsigned char flag, unsigned count) {
    return LoadWithin(dst, src, 0, flag, count);
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
