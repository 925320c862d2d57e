#include "kystring_translate.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "byte_sink.h"
#include "kybase.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "old_layout.h"
#include "order_key.h"
#include "string_records.h"

namespace ky {

constinit std::atomic<int> unicodeKeysAreRecords = -1;

namespace {

/// Where texts come from and go to.
struct Way {
    unsigned char sourceForm;  ///< of 16-bit units; those in memory are in machine order
    unsigned char form;

    bool Swaps() const { return (sourceForm == KyFormReversed) != (form == KyFormReversed); }
};

// --- index keys of Unicode strings as order texts ---

bool UnicodeKeysAreRecords() {
    int known = unicodeKeysAreRecords.load(std::memory_order_relaxed);
    if (known < 0) {
        int oldOrder = 0;
        // The all-ones pointer asks.
        if (KyConfig* config = DefaultConfig(reinterpret_cast<KyConfig*>(~std::uintptr_t{0}))) {
            config->GetInteger("oldIndexUnicodeOrder", &oldOrder, nullptr);
        }
        known = oldOrder == 0 ? 1 : 0;
        unicodeKeysAreRecords.store(known, std::memory_order_relaxed);
    }
    return known != 0;
}

void PutHead(ByteSink& sink, std::size_t content, unsigned char codeSet, unsigned char language, unsigned char form) {
    unsigned char head[kRecordHead];
    WriteLength(head, static_cast<unsigned>(RecordSize(content) - kLengthField), form);
    head[2] = codeSet;
    head[3] = language;
    sink.Put(head, sizeof head);
}

void PutTail(ByteSink& sink) {
    sink.Put(0);
    sink.Put(kEndMarker);
}

/// Writes nothing when memory fails: a key of no orders would be that of another string.
void PutOrderKey(ByteSink& sink, const StoredText& s, Way way) {
    const TerminatedText text(s);
    if (text.Text() == nullptr) return;
    KyStringIterator it(text.Text(), s.codeSet, s.language, way.sourceForm);
    unsigned char orders[2 * kMostKeyOrders];
    std::size_t bytes = 0;
    bool marked = s.cutShort;
    while (const unsigned short order = it.GetNextOrder(1)) {
        if (bytes == sizeof orders) {
            marked = true;
            break;
        }
        marked = marked || it.OrderClass() != DefaultClass(order);
        WriteUnit(reinterpret_cast<char*>(orders) + bytes, order, way.form);
        bytes += 2;
    }
    const unsigned char mark = marked ? StoredText::kMark : 0;
    PutHead(sink, bytes, KyCodeSetOrders, KyCodeSetLatin1 | mark, way.form);
    sink.Put(orders, bytes);
    PutTail(sink);
}

// --- records ---

/// A record of which the source is cut short ends where that does.
void PutRecord(ByteSink& sink, const StoredText& s, Way way) {
    PutHead(sink, s.length, s.codeSet, s.language, way.form);
    if (s.Width() == 2 && way.Swaps()) {
        const std::size_t whole = s.bytes & ~std::size_t{1};
        sink.PutSwapped(s.text, whole);
        if (!s.cutShort) sink.PutZeros(s.bytes - whole);
    } else {
        sink.Put(s.text, s.bytes);
    }
    if (!s.cutShort) PutTail(sink);
}

void PutRecords(ByteSink& sink, StringWalk walk, Way way, unsigned count, bool isKey) {
    for (unsigned i = 0; i < count && !walk.IsMissing(); ++i) {
        StoredText s = walk.Current();
        if (walk.IsInOldLayout()) {
            s.codeSet = KyString::GetDefault8CodeSet();
            s.language = KyString::GetDefaultLanguage();
        }
        if (isKey && s.codeSet == KyCodeSetUnicode && !s.IsNull() && !UnicodeKeysAreRecords()) {
            PutOrderKey(sink, s, way);
        } else {
            PutRecord(sink, s, way);
        }
        if (i + 1 != count && !walk.Next()) break;
    }
}

// --- the old layout ---

/// An array that stays in the old layout: its texts as they stand.
void PutOldArray(ByteSink& sink, const void* src, std::size_t srcLen, Way way) {
    const unsigned length = ReadLength(src, way.sourceForm);
    unsigned char field[kLengthField];
    WriteLength(field, length, way.form);
    sink.Put(field, sizeof field);
    const std::size_t present = srcLen != 0 ? std::min<std::size_t>(length, srcLen - kLengthField) : length;
    sink.Put(Advance(src, kLengthField), present);
}

// --- into memory ---

/// What is there of the strings; the others become empty. Returns the bytes that were read, at least all that there
/// are when some string was not there.
std::size_t LoadStrings(KyString* strings, StringWalk walk, unsigned char form, unsigned count) {
    std::size_t read = 0;
    bool ended = false;
    for (unsigned i = 0; i < count; ++i) {
        ended = ended || walk.IsMissing();
        if (ended) {
            strings[i] = KyString();
            read = std::numeric_limits<std::size_t>::max();
            continue;
        }
        const StoredText& s = walk.Current();
        if (walk.IsInOldLayout()) {
            AssignText(strings[i], s.text, s.bytes);
        } else {
            LoadText(strings[i], s.codeSet, s.language, s.text, s.bytes / s.Width() * s.Width(), form);
        }
        read += walk.Size();
        ended = !walk.Next();
    }
    return read;
}

/// Within the source's length, if one is given.
unsigned TranslateToMemory(void* dst, const void* src, unsigned char srcFlag, unsigned srcLen, unsigned count,
                           LayoutRule rule) {
    if (srcLen == 0) return StringLoad(dst, src, srcFlag, count);
    const unsigned char form = FormOf(srcFlag);
    const StringWalk walk(src, srcLen, srcFlag, rule);
    const std::size_t read = LoadStrings(static_cast<KyString*>(dst), walk, form, count);
    // KEPT: of an array in the old layout the size of the whole, as Load tells it.
    const std::size_t size = walk.IsInOldLayout() ? kLengthField + ReadLength(src, form) : read;
    return static_cast<unsigned>(std::min<std::size_t>(size, srcLen));
}

unsigned Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag, unsigned srcLen,
                   unsigned count, bool toOldLayout) {
    const LayoutRule rule = toOldLayout ? LayoutRule::byLastByteOrOld : LayoutRule::byLastByte;
    const bool fromMemory = FormOf(srcFlag) == KyFormMemory;
    if (FormOf(dstFlag) == KyFormMemory) {
        if (!fromMemory) return TranslateToMemory(dst, src, srcFlag, srcLen, count, rule);
        KyStringAssignment(dst, src, count, 0);
        return static_cast<unsigned>(sizeof(KyString)) * count;
    }
    const Way way = {fromMemory ? KyFormNative : FormOf(srcFlag), FormOf(dstFlag)};
    const StringWalk walk(count != 0 ? src : nullptr, srcLen, srcFlag, rule);
    ByteSink sink(dst, dstLen != 0 ? dstLen : std::numeric_limits<std::size_t>::max());
    if (!toOldLayout) {
        if (count != 0) PutRecords(sink, walk, way, count, dstLen == kIndexKeyBytes && count == 1);
    } else if (walk.IsInOldLayout()) {
        PutOldArray(sink, src, srcLen, way);
    } else {
        StoreOldLayout(sink, walk, way.sourceForm, way.form, count);
    }
    const std::size_t written = sink.Written();
    if (written < dstLen) ZeroBytes(Advance(dst, written), dstLen - written);
    return static_cast<unsigned>(written);
}

}  // namespace
}  // namespace ky

unsigned KyStringTranslate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                           unsigned srcLen, unsigned count) {
    return ky::Translate(dst, dstFlag, dstLen, src, srcFlag, srcLen, count, false);
}

unsigned KyStringOldTranslate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                              unsigned srcLen, unsigned count) {
    return ky::Translate(dst, dstFlag, dstLen, src, srcFlag, srcLen, count, true);
}
