#ifndef MADE_VALUES_H
#define MADE_VALUES_H

/// Values of every type, drawn at random from few, so that equal ones abound.

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "kyblob.h"
#include "kystring.h"
#include "support/languages.h"
#include "value.h"

class MadeValues {
public:
    explicit MadeValues(char typeId) : type(typeId), random(static_cast<unsigned>(typeId) + 1) {}

    /// An array of values of the type; with `wildcards` they may be constants that stand for many.
    engine::Value Next(unsigned count = 1, bool wildcards = false) {
        withWildcards = wildcards;
        engine::Value values(type, count);
        for (unsigned i = 0; i < count; ++i) Fill(engine::Types().GetArrayElement(type, values.Get(), i, count));
        return values;
    }

private:
    char type;
    std::mt19937 random;
    bool withWildcards = false;

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    void Fill(void* value) {
        constexpr unsigned oneInNull = 10;
        KySetNullFunc* const setNull = engine::Types().SetNullPtrGet(type);
        if (setNull != nullptr && Below(oneInNull) == 0) {
            setNull(value);
        } else if (type == KyBLOB_T) {
            const std::string bytes(Below(5000), static_cast<char>(Below(3)));
            static_cast<KyBlob*>(value)->SetTo(bytes.data(), static_cast<int>(bytes.size()));
        } else if (engine::IsString(type)) {
            KyString text(Text().c_str());
            engine::Types().ScanFromKyString(type, value, text, nullptr, 1);
            if (type == KySTRING_T) Label(*static_cast<KyString*>(value));
        } else {
            // 255 is a wildcard in dates and times.
            constexpr unsigned char few[] = {0, 1, 1, 2, 11, 127, 128, 255};
            const unsigned kinds = type == KyBOOLEAN_T ? 2 : 8;
            unsigned char bytes[32] = {};
            for (unsigned char& byte : bytes) byte = few[Below(kinds)];
            if (type != KyBOOLEAN_T && Below(6) == 0) MakeExtreme(value, bytes);
            engine::Types().Load(type, value, bytes, KyFormNative, 1);
        }
    }

    /// Zeros of both signs and infinities, the least and the greatest integers; of nullable numbers, too, whose last
    /// byte says whether they are null.
    void MakeExtreme(void* value, unsigned char* bytes) {
        constexpr unsigned char ends[][2] = {{0, 0}, {0, 0x80}, {0xF0, 0x7F}, {0x80, 0x7F}, {0xF0, 0xFF}, {0x80, 0xFF}};
        const unsigned size = engine::Types().DiskLenGet(type, value, KyFormNative, 1, KyFormMemory);
        const bool endsInFlag = size % 2 == 1;
        std::fill_n(bytes, size, static_cast<unsigned char>(0));
        if (size < 3) return;
        const unsigned char* const end = ends[Below(std::size(ends))];
        std::copy_n(end, 2, bytes + size - 2 - (endsInFlag ? 1 : 0));
    }

    /// Of several languages and both widths.
    void Label(KyString& text) {
        constexpr const char* languages[] = {"de", "es", "da", "hu"};
        const unsigned drawn = Below(12);
        if (drawn < std::size(languages)) text.LanguageSet(LanguageOf(languages[drawn])->Code());
        if (Below(4) == 0) text.MapToCodeSet(KyCodeSetUnicode);
    }

    /// Also longer than an index key, with letters that some languages order in their own way.
    std::string Text() {
        // Compare refuses dictionary constants of more than 253 key bytes.
        const bool mayBeLong = type == KySTRING_T || !withWildcards;
        std::string text(mayBeLong && Below(20) == 0 ? 248 + Below(8) : 0, 'a');
        for (unsigned length = Below(6); length > 0; --length) text += "aAbB\xE4\xDFz*?- 1\\"[Below(13)];
        return text;
    }
};

#endif
