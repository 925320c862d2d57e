/// The older text form of an array: all values in one text, each followed by a separator that occurs in none.

#include <bitset>
#include <cstring>
#include <memory>
#include <utility>

#include "kystring.h"
#include "kytypmgr.h"
#include "row_lookup.h"
#include "text_join.h"

namespace {

constexpr unsigned lastSeparator = 254;
constexpr unsigned short fallbackSeparator = ',';

/// The character codes of a text, whatever its character width.
class Codes {
public:
    explicit Codes(const KyString& text) : bytes(text.StrGet()), width(text.NullLen()), count(text.Len()) {}

    unsigned Count() const { return count; }
    unsigned short operator[](unsigned index) const {
        if (width == 1) return static_cast<unsigned char>(bytes[index]);
        unsigned short code;
        std::memcpy(&code, bytes + std::size_t{2} * index, sizeof code);
        return code;
    }
    const char* At(unsigned index) const { return bytes + std::size_t{width} * index; }

private:
    const char* bytes;
    unsigned width;
    unsigned count;
};

/// The first code that no string of the record holds; the strings behind a missing one are not looked at.
unsigned short FreeSeparator(KyTypeConvertData& record) {
    std::bitset<lastSeparator + 1> taken;
    const KyString* text = nullptr;
    for (int index = 0; (text = record.GetString(index)) != nullptr; ++index) {
        const Codes codes(*text);
        for (unsigned at = 0; at < codes.Count(); ++at) {
            if (codes[at] <= lastSeparator) taken.set(codes[at]);
        }
    }
    for (unsigned short code = 1; code <= lastSeparator; ++code) {
        if (!taken.test(code)) return code;
    }
    return fallbackSeparator;
}

struct DeleteString {
    void operator()(KyString* text) const { KyStringDelete(text, 1); }
};

unsigned CountOf(const Codes& codes, unsigned short code) {
    unsigned found = 0;
    for (unsigned at = 0; at < codes.Count(); ++at) found += codes[at] == code ? 1 : 0;
    return found;
}

}  // namespace

KyString* KyTypeMgr::ConvertToKyStringOld(void* value, char id, unsigned count) {
    const std::unique_ptr<KyTypeConvertData> record(ConvertTo(id, value, count));
    if (record == nullptr) return nullptr;
    std::unique_ptr<KyString, DeleteString> result(KyStringCreate(1));
    if (result == nullptr || count == 0) return result.release();

    const unsigned short separator = FreeSeparator(*record);
    ky::TextJoin join(*result);
    for (unsigned index = 0; index < count; ++index) {
        if (const KyString* text = record->GetString(static_cast<int>(index)); text != nullptr) join.Append(*text);
        join.AppendCode(separator);
    }
    join.Finish();
    return result.release();
}

void* KyTypeMgr::ConvertFromKyStringOld(KyString* text, char id, unsigned count) {
    const Codes codes(*text);
    const unsigned short separator = codes.Count() == 0 ? fallbackSeparator : codes[codes.Count() - 1];
    const unsigned pieces = CountOf(codes, separator) + 1;
    KyTypeConvertData record(KySTRING_T, pieces, KyStringCreate(pieces), this);
    if (record.data == nullptr) return nullptr;

    unsigned start = 0;
    for (unsigned at = 0, piece = 0; at < codes.Count(); ++at) {
        if (codes[at] != separator) continue;
        KyString content(text->CodeSetGet(), text->LanguageGet());
        content.MakeString(codes.At(start), text->CodeSetGet(), static_cast<short>(at - start), 1);
        *record.GetString(static_cast<int>(piece++)) = std::move(content);
        start = at + 1;
    }
    text->Cut(0, -1);
    return ConvertFrom(id, &record, count);
}
