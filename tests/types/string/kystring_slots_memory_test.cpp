/// Blocks that comparisons and hashes of stored strings take, and what happens when there is no memory.

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "../numeric/limit_blocks.h"
#include "kystring.h"
#include "kystring_slots.h"
#include "kystring_translate.h"
#include "string_texts.h"
#include "support/guarded_buffer.h"

namespace {

using limit_blocks::TakeSizes;
using Sizes = std::vector<std::size_t>;

constexpr unsigned short kExact = 0x100;

/// Memory is refused for as long as this lives.
class Refusal {
public:
    explicit Refusal(std::size_t blocksLeft, bool throwing = false) { limit_blocks::Refuse(blocksLeft, throwing); }
    Refusal(const Refusal&) = delete;
    Refusal& operator=(const Refusal&) = delete;
    ~Refusal() { limit_blocks::Refuse(limit_blocks::kNever); }
};

/// The record of a Unicode text, against an inaccessible page.
class WideRecord {
public:
    explicit WideRecord(std::size_t characters, char16_t character = u'a') : WideRecord(Make(characters, character)) {}
    void* Data() { return buffer.data(); }
    unsigned Size() const { return static_cast<unsigned>(buffer.size()); }

private:
    GuardedBuffer buffer;

    explicit WideRecord(const KyString& s) : buffer(KyStringTab.SizeGet(&s, KyFormMemory, 1, 1)) {
        KyStringTab.Store(buffer.data(), &s, 1, 1);
    }
    static KyString Make(std::size_t characters, char16_t character) {
        return Wide(std::u16string(characters, character));
    }
};

/// A comparison that reads copies: of texts in front of a wildcard.
int ComparePattern(WideRecord& text, WideRecord& pattern, int& err, unsigned count = 1) {
    err = 77;
    return KyStringTab.Compare(1, text.Size(), text.Data(), pattern.Size(), pattern.Data(), 0, count, err);
}

TEST(StringSlotsMemory, OnlyLongContentsTakeBlocks) {
    TakeSizes();
    int err = 77;
    WideRecord shortText(127);
    WideRecord longText(128);
    WideRecord shortPattern(127, u'*');
    WideRecord longPattern(128, u'*');
    EXPECT_EQ(ComparePattern(shortText, shortPattern, err), 0);
    EXPECT_EQ(err, 2101);
    KyStringTab.Hash(1, shortText.Size(), shortText.Data(), 1, err);
    EXPECT_EQ(TakeSizes(), Sizes());
    EXPECT_EQ(ComparePattern(longText, longPattern, err), 0);
    EXPECT_EQ(err, 2101);
    EXPECT_EQ(TakeSizes(), (Sizes{258, 258}));
    KyStringTab.Hash(1, longText.Size(), longText.Data(), 1, err);
    EXPECT_EQ(TakeSizes(), Sizes{258});
    EXPECT_EQ(limit_blocks::Live(), 0u);
}

TEST(StringSlotsMemory, WholeTextsAreComparedWhereTheyStand) {
    TakeSizes();
    WideRecord a(1000);
    WideRecord b(1001);
    int err = 77;
    EXPECT_EQ(KyStringTab.Compare(1, a.Size(), a.Data(), b.Size(), b.Data(), kExact, 1, err), -1);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(TakeSizes(), Sizes());
}

TEST(StringSlotsMemory, WithoutMemoryThereIsNoResult) {
    WideRecord text(200);
    WideRecord pattern(200, u'*');
    int err = 77;
    for (const std::size_t blocks : {0u, 1u}) {
        const Refusal refused(blocks);
        EXPECT_EQ(ComparePattern(text, pattern, err), 0);
        EXPECT_EQ(err, -2999);
        EXPECT_EQ(ComparePattern(text, pattern, err, 2), 0);
        EXPECT_EQ(err, -2999) << "nor does the buffer's end matter";
        EXPECT_EQ(limit_blocks::Live(), 0u) << blocks;
    }
    {
        const Refusal refused(0);
        EXPECT_EQ(KyStringTab.Hash(1, text.Size(), text.Data(), 1, err), 0u);
        EXPECT_EQ(err, -2999);
    }
    EXPECT_EQ(ComparePattern(text, pattern, err), 0);
    EXPECT_EQ(err, 2101);
}

TEST(StringSlotsMemory, WithoutMemoryThereIsNoOrderKey) {
    const int previous = ky::unicodeKeysAreRecords.exchange(0);
    WideRecord text(200);
    const std::vector<unsigned char> zeros(ky::kIndexKeyBytes);
    std::vector<unsigned char> key(ky::kIndexKeyBytes, 0xA5);
    {
        const Refusal refused(0);
        EXPECT_EQ(KyStringTab.Translate(key.data(), 1, ky::kIndexKeyBytes, text.Data(), 1, text.Size(), 1), 0u);
        EXPECT_EQ(key, zeros);
    }
    EXPECT_EQ(KyStringTab.Translate(key.data(), 1, ky::kIndexKeyBytes, text.Data(), 1, text.Size(), 1), 252u);
    ky::unicodeKeysAreRecords = previous;
}

/// In Czech "ch" is one letter, in Hungarian "dzs". There are no tables of the last language.
constexpr unsigned char kLanguages[] = {10, 12, 200};

/// So many characters, beginning with the repeated ones.
KyString Repeated(std::string_view repeated, std::size_t characters, unsigned char language) {
    std::string text;
    while (text.size() < characters) text += repeated;
    KyString s = Narrow(text.substr(0, characters));
    s.SetCodeSetCode(KyCodeSetLatin1);
    s.LanguageSet(language);
    return s;
}

TEST(StringSlotsMemory, OrdersOfADamagedRecordAreCountedWithoutMemory) {
    TakeSizes();
    const Refusal refused(0);
    const auto sizeOf = [](const KyString& s) { return KyStringTab.SizeGet(&s, KyFormMemory, 0x41, 1); };
    for (const unsigned char language : kLanguages) {
        for (const char* repeated : {"a", "ch", "dzs", "\xDF", "xch\xDFydzs", "c"}) {
            for (const std::size_t characters : {1u, 2u, 253u, 254u, 255u, 256u, 300u, 493u, 494u, 1000u, 60000u}) {
                const KyString s = Repeated(repeated, characters, language);
                GuardedBuffer record(KyStringTab.SizeGet(&s, KyFormMemory, 1, 1));
                KyStringTab.Store(record.data(), &s, 1, 1);
                EXPECT_EQ(KyStringTab.SizeGet(record.data(), 1, 0x41, 1), sizeOf(s));
                // In the place of the terminator, where it would join a "c".
                record.data()[record.size() - 2] = 'h';
                EXPECT_EQ(KyStringTab.SizeGet(record.data(), 1, 0x41, 1), sizeOf(s)) << repeated << ' ' << characters;
                record.data()[record.size() - 3] = 0;
                EXPECT_EQ(KyStringTab.SizeGet(record.data(), 1, 0x41, 1),
                          sizeOf(Repeated(repeated, characters - 1, language)));
            }
        }
    }
    EXPECT_EQ(sizeOf(Repeated("ch", 600, 10)), 6 + 2 * 300u);
    EXPECT_EQ(sizeOf(Repeated("dzs", 600, 12)), 6 + 2 * 200u);
    EXPECT_EQ(sizeOf(Repeated("\xDF", 600, 200)), 6 + 2 * 1200u);
    EXPECT_EQ(TakeSizes(), Sizes());
}

TEST(StringSlotsMemory, AHandlerThatThrowsLeavesNoBlock) {
    WideRecord text(200);
    WideRecord pattern(200, u'*');
    int err = 77;
    for (const std::size_t blocks : {0u, 1u}) {
        const Refusal refused(blocks, true);
        EXPECT_THROW(ComparePattern(text, pattern, err), std::bad_alloc);
        EXPECT_EQ(limit_blocks::Live(), 0u) << blocks;
    }
}

}  // namespace
