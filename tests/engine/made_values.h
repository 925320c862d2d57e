#ifndef MADE_VALUES_H
#define MADE_VALUES_H

/// Values of every type, drawn at random from few, so that equal ones abound.

#include <random>
#include <string>
#include <vector>

#include "kyblob.h"
#include "kystring.h"
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
        } else {
            // 255 is a wildcard in dates and times.
            constexpr unsigned char few[] = {0, 1, 1, 2, 11, 127, 128, 255};
            const unsigned kinds = type == KyBOOLEAN_T ? 2 : withWildcards || !HasDateFields() ? 8 : 5;
            unsigned char bytes[32];
            for (unsigned char& byte : bytes) byte = few[Below(kinds)];
            engine::Types().Load(type, value, bytes, KyFormNative, 1);
        }
    }

    bool HasDateFields() const {
        for (const char each :
             {KyDATE_T, KyTIME_T, KyDATIME_T, D_DATE_T, D_TIME_T, D_TIMESTAMP_T, KyDATIME_N_T, KyTIMESPAN_T})
            if (type == each) return true;
        return false;
    }

    /// Also longer than an index key, with letters that some languages order in their own way.
    std::string Text() {
        // Compare refuses dictionary constants of more than 253 key bytes.
        const bool mayBeLong = type == KySTRING_T || !withWildcards;
        std::string text(mayBeLong && Below(20) == 0 ? 248 + Below(8) : 0, 'a');
        for (unsigned length = Below(6); length > 0; --length) text += "aAbB\xE4\xDFz*?- 1"[Below(12)];
        return text;
    }
};

#endif
