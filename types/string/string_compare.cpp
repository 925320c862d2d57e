#include "string_compare.h"

namespace ky {
namespace {

/// What is known of a text before its first character is read. Resolved once per comparison.
class PlainReader {
public:
    explicit PlainReader(const TextView& view)
        : set(&CodeSetOf(view.codeSet)),
          table(set->HasPropertyTable() ? set : &CodeSetOf(KyCodeSetUnicode)),
          rules(KyLanguageContext::QueryLanguage(view.language)),
          width(CharWidth(view.codeSet)),
          format(view.format) {}

    unsigned Width() const { return width; }

    /// The key of a character that ranks alone, whatever its neighbours are: true and the key, or false when that
    /// needs the iterator.
    bool KeyAt(const char* p, unsigned& key) const {
        const unsigned short code = ReadCode(p, width, format);
        key = 0;
        if (code == 0) return true;
        const KyCharProps* record = RecordOf(code);
        if (record == nullptr || record->rules != nullptr) return false;
        key = OrderKey(record->order, rules != nullptr ? rules->ClassOf(*record) : record->orderClass);
        return true;
    }

    /// The character may begin a contraction.
    bool MayJoin(const char* p) const {
        const KyCharProps* record = RecordOf(ReadCode(p, width, format));
        return record != nullptr && record->rules != nullptr;
    }

private:
    const KyCharProps* RecordOf(unsigned short code) const {
        return table->GetProperty(table == set ? code : table->MapFrom(*set, code));
    }

    const KyCodeSet* set;
    const KyCodeSet* table;
    const KyLanguage* rules;
    unsigned width;
    unsigned char format;
};

constexpr char kEmpty[2] = {};

int CompareFrom(const TextView& a, const char* aText, const TextView& b, const char* bText, unsigned limit,
                unsigned mask) {
    KeyReader readerA(aText, a.codeSet, a.language, a.format, limit, mask);
    KeyReader readerB(bText, b.codeSet, b.language, b.format, limit, mask);
    for (;;) {
        const unsigned keyA = readerA.Next();
        const unsigned keyB = readerB.Next();
        if (keyA != keyB) return static_cast<int>(keyA - keyB);
        if (readerA.Order() == 0) return 0;
    }
}

/// Characters up to the first that differs or to the common end, which `ended` tells.
std::size_t CommonPrefix(const char* a, const char* b, unsigned width, bool& ended) {
    std::size_t n = 0;
    if (width == 1) {
        while (a[n] == b[n] && a[n] != 0) ++n;
        ended = a[n] == b[n];
        return n;
    }
    while (ReadUnit(a + 2 * n, 1) == ReadUnit(b + 2 * n, 1) && ReadUnit(a + 2 * n, 1) != 0) ++n;
    ended = ReadUnit(a + 2 * n, 1) == ReadUnit(b + 2 * n, 1);
    return n;
}

/// Where reading can begin so that the characters from `at` on are read as they are from the text's beginning:
/// no contraction reaches over that place.
std::size_t StartFor(const PlainReader& reader, const char* text, std::size_t at) {
    std::size_t apart = 0;
    std::size_t place = at;
    while (place != 0 && apart < KyContraction::Longest - 1) {
        --place;
        apart = reader.MayJoin(text + place * reader.Width()) ? 0 : apart + 1;
    }
    return place + apart;
}

}  // namespace

int CompareKeys(TextView a, TextView b, unsigned limit, unsigned mask) {
    const PlainReader readerA(a);
    const PlainReader readerB(b);
    const char* atA = a.text != nullptr ? a.text : kEmpty;
    const char* atB = b.text != nullptr ? b.text : kEmpty;

    if (a.codeSet == b.codeSet && a.language == b.language && limit == CompareLimit(-1)) {
        bool ended;
        const std::size_t common = CommonPrefix(atA, atB, readerA.Width(), ended);
        if (ended) return 0;
        const std::size_t start = StartFor(readerA, atA, common) * readerA.Width();
        atA += start;
        atB += start;
    }
    for (; limit != 0; --limit) {
        unsigned keyA;
        unsigned keyB;
        if (!readerA.KeyAt(atA, keyA) || !readerB.KeyAt(atB, keyB)) {
            return CompareFrom(a, atA, b, atB, limit, mask);
        }
        if (((keyA ^ keyB) & mask) != 0) return static_cast<int>((keyA & mask) - (keyB & mask));
        if (keyA == 0) return 0;
        atA += readerA.Width();
        atB += readerB.Width();
    }
    return 0;
}

}  // namespace ky
