#include "first_orders.h"

#include "kychar.h"
#include "kydiskform.h"
#include "kyistring.h"
#include "kystring.h"
#include "pattern.h"
#include "value.h"

namespace engine {

namespace {

/// A character has so many orders at most, one of an 8-bit code set and any other.
constexpr unsigned kMostOfNarrow = 3;
constexpr unsigned kMostOfWide = 18;
constexpr unsigned kMostOfDictionary = 2;
/// From here on the second number of a character is an order of its own.
constexpr unsigned char kFirstSecondKey = 9;

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

unsigned KeysOf(char type, char character) {
    const unsigned char byte = _KyConvertToDiskFormat(static_cast<unsigned char>(character));
    unsigned char extra = 0;
    type == KyISTRING_T ? _KyIMapByte(byte, extra) : _KyCaseIMapByte(byte, extra);
    return extra >= kFirstSecondKey ? 2 : 1;
}

Beginning BeginningOfDictionary(char type, unsigned char form, Bytes stored, unsigned orders) {
    if (kMostOfDictionary * stored.size() < orders)
        return {.characters = static_cast<unsigned short>(stored.size()), .isReached = false, .isExact = true};
    const Value value = Loaded(type, form, stored);
    const char* const text = type == KyISTRING_T ? static_cast<const KyIString*>(value.Get())->StrGet()
                                                 : static_cast<const KyCaseIString*>(value.Get())->StrGet();
    unsigned short characters = 0;
    unsigned taken = 0;
    while (taken < orders && text[characters] != 0) taken += KeysOf(type, text[characters++]);
    return {.characters = characters, .isReached = taken >= orders, .isExact = taken <= orders};
}

/// Two texts in memory form.
int CompareTexts(char type, const void* a, const void* b, unsigned short op, short orders) {
    const auto compare = [&]<class Text>(const Text* first) {
        return first->Compare(*static_cast<const Text*>(b), orders, op);
    };
    if (type == KySTRING_T) return compare(static_cast<const KyString*>(a));
    if (type == KyISTRING_T) return compare(static_cast<const KyIString*>(a));
    return compare(static_cast<const KyCaseIString*>(a));
}

}  // namespace

Beginning BeginningOf(char type, unsigned char form, Bytes stored, unsigned orders) {
    if (type != KySTRING_T) return BeginningOfDictionary(type, form, stored, orders);
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

int CompareFirstOrders(char type, unsigned char form, Bytes a, Bytes b, unsigned short op, short orders) {
    const Value first = Loaded(type, form, a);
    const Value second = Loaded(type, form, b);
    return CompareTexts(type, first.Get(), second.Get(), op, orders);
}

int CompareDictionaryStrings(char type, unsigned char form, Bytes a, Bytes b, unsigned count) {
    constexpr short allOrders = -1;
    Value first(type, count);
    Value second(type, count);
    first.Load(a, form);
    second.Load(b, form);
    int order = 0;
    for (unsigned i = 0; i < count && order == 0; ++i)
        order = CompareTexts(type, Types().GetArrayElement(type, first.Get(), i, count),
                             Types().GetArrayElement(type, second.Get(), i, count), KyCmpExact, allOrders);
    return order;
}

}  // namespace engine
