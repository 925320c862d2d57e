#include "record.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kystring.h"
#include "types.h"

namespace {

using engine::Bytes;
using engine::RecordLayout;

using Record = std::vector<unsigned char>;

const engine::Schema& Things() {
    static const engine::Schema schema = engine::Schema::Parse(
        "class Thing { number o_u4b\n text KyString codeset 1\n pair o_u2b[2]\n other KyString codeset 1 }");
    return schema;
}

Record RecordOf(const RecordLayout& layout) {
    unsigned number = 0x01020304;
    KyString text(1, 0);
    text = "ab";
    unsigned short pair[] = {0x0506, 0x0708};
    KyString other(1, 0);
    other = "";
    void* const values[] = {&number, &text, pair, &other};
    Record record = {99};  // whatever was there is replaced
    layout.Write(record, values);
    return record;
}

Record Copy(Bytes bytes) { return {bytes.begin(), bytes.end()}; }

/// Stores hold such records: a record of another layout, or of another check word, could not be read any more.
TEST(Record, ItsBytesAreFrozen) {
    struct {
        unsigned char form;
        Record bytes;
    } const cases[] = {
        {KyFormNative,
         {0x21, 0x9D, 0xB5, 0x1C, 0x04, 0x03, 0x02, 0x01, 0x06, 0x05, 0x08, 0x07, 0x08, 0x00, 0x00, 0x00, 0x0E,
          0x00, 0x00, 0x00, 0x06, 0x00, 0x01, 0x00, 0x61, 0x62, 0x00, 0xFF, 0x04, 0x00, 0x01, 0x00, 0x00, 0xFF}},
        {KyFormReversed,
         {0x01, 0x8E, 0x3C, 0xAA, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x08, 0x00, 0x00, 0x00, 0x0E,
          0x00, 0x00, 0x00, 0x00, 0x06, 0x01, 0x00, 0x61, 0x62, 0x00, 0xFF, 0x00, 0x04, 0x01, 0x00, 0x00, 0xFF}},
    };
    for (const auto& c : cases) {
        const RecordLayout layout(Things().Classes()[0], c.form);
        EXPECT_EQ(RecordOf(layout), c.bytes) << int{c.form};
    }
}

TEST(Record, AttributesAreFoundInIt) {
    for (const unsigned char form : {KyFormNative, KyFormReversed}) {
        const RecordLayout layout(Things().Classes()[0], form);
        EXPECT_EQ(layout.Form(), form);
        const Record record = RecordOf(layout);
        ASSERT_TRUE(layout.IsWhole(record));
        EXPECT_TRUE(layout.CheckHolds(record));
        const bool isNative = form == KyFormNative;
        EXPECT_EQ(Copy(layout.At(record, 0)), isNative ? (Record{4, 3, 2, 1}) : (Record{1, 2, 3, 4}));
        EXPECT_EQ(Copy(layout.At(record, 2)), isNative ? (Record{6, 5, 8, 7}) : (Record{5, 6, 7, 8}));
        for (const auto& [attribute, expected] : {std::pair<std::size_t, const char*>{1, "ab"}, {3, ""}}) {
            KyString text;
            engine::Types().Load(KySTRING_T, &text, const_cast<unsigned char*>(layout.At(record, attribute).data()),
                                 form, 1);
            EXPECT_STREQ(text.StrGet(), expected);
        }
    }
}

TEST(Record, OtherLengthsAreNoWholeRecord) {
    const RecordLayout layout(Things().Classes()[0], KyFormNative);
    const Record record = RecordOf(layout);
    for (std::size_t length = 0; length < record.size(); ++length) {
        // With nothing behind it that could be read by mistake.
        const Record cut = Copy(Bytes(record).first(length));
        EXPECT_FALSE(layout.IsWhole(cut)) << length;
    }
    Record longer = record;
    longer.push_back(0);
    EXPECT_FALSE(layout.IsWhole(longer));
    // The first of the two texts would end behind the second.
    constexpr std::size_t firstEnd = 4 + 4 + 4;
    Record crossed = record;
    crossed[firstEnd] = static_cast<unsigned char>(crossed[firstEnd + 4] + 1);
    EXPECT_FALSE(layout.IsWhole(crossed));
}

}  // namespace
