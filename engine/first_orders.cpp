#include "first_orders.h"

#include "kychar.h"
#include "kystring.h"
#include "pattern.h"
#include "value.h"

namespace engine {

namespace {

/// A character has so many orders at most, one of an 8-bit code set and any other.
constexpr unsigned kMostOfNarrow = 3;
constexpr unsigned kMostOfWide = 18;

bool IsNarrow(unsigned char codeSet) { return codeSet < KyCodeSetFirst16Bit; }

KyString& TextOf(const Value& value) { return *static_cast<KyString*>(value.Get()); }

/// The orders of a text, character by character.
class Orders {
public:
    explicit Orders(KyString& text)
        : start(text.StrGet()), codeSet(text.CodeSetGet()), width(IsNarrow(codeSet) ? 1 : 2), it(text) {}

    /// False at the end.
    bool Next() { return it.GetNextOrder(0) != 0; }
    /// Whether the next order is of the character that the last one was of.
    bool IsInCharacter() const {
        KyStringIterator ahead = it;
        return codeSet != KyCodeSetOrders && (*ahead).CodeSetGet() == KyCodeSetOrders;
    }
    /// In front of the next order's.
    unsigned short Characters() const { return static_cast<unsigned short>((it.Position() - start) / width); }

private:
    const char* start;
    unsigned char codeSet;
    std::ptrdiff_t width;
    KyStringIterator it;
};

}  // namespace

Beginning BeginningOf(unsigned char form, Bytes stored, unsigned orders) {
    const Value value = Loaded(KySTRING_T, form, stored);
    KyString& text = TextOf(value);
    const unsigned short length = text.Len();
    if (length * (IsNarrow(text.CodeSetGet()) ? kMostOfNarrow : kMostOfWide) < orders)
        return {.characters = length, .isReached = false, .isExact = true};
    const bool areBytes = text.CodeSetGet() == KyCodeSetNative;
    Orders walk(text);
    unsigned taken = 0;
    while (taken < orders || walk.IsInCharacter() || (areBytes && walk.Characters() < orders)) {
        if (!walk.Next()) break;
        ++taken;
    }
    const unsigned short characters = walk.Characters();
    return {.characters = characters,
            .isReached = taken >= orders,
            .isExact = taken <= orders && (!areBytes || characters <= orders)};
}

std::vector<unsigned char> FirstOrders(unsigned char form, Bytes stored, unsigned most) {
    const Value value = Loaded(KySTRING_T, form, stored);
    unsigned short characters = 0;
    Orders walk(TextOf(value));
    for (unsigned taken = 0; taken < most && walk.Next(); ++taken)
        if (!walk.IsInCharacter()) characters = walk.Characters();
    return FirstCharacters(KySTRING_T, form, stored, characters);
}

int CompareFirstOrders(unsigned char form, Bytes a, Bytes b, unsigned short op, short orders) {
    const Value first = Loaded(KySTRING_T, form, a);
    const Value second = Loaded(KySTRING_T, form, b);
    return TextOf(first).Compare(TextOf(second), orders, op);
}

}  // namespace engine
