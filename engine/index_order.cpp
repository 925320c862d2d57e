#include "index_order.h"

#include <array>
#include <climits>
#include <utility>

#include "first_orders.h"
#include "lmdb_call.h"
#include "pattern.h"
#include "types.h"

namespace engine {

namespace {

constexpr std::size_t kFoldings = 4;
constexpr std::size_t kForms = 2;

/// Bytes of a key whose last character has orders behind those that count: a record, and zeros behind it. The records
/// of others are shorter.
constexpr std::size_t kBeyondKey = 500;

/// As many characters as orders can take: three that count as one, but the last, of which four count as two.
constexpr std::size_t kMostCharacters = std::size_t{3} * kOrdersOfKey + 1;
static_assert(2 * kMostCharacters < kBeyondKey - 16, "a character has two bytes, its record a few more");

/// The same of dictionary strings.
constexpr std::size_t kBeyondDictionaryKey = 250;
static_assert(kOrdersOfDictionaryKey + 4 < kBeyondDictionaryKey, "a character has one byte, its record four more");
static_assert(kBeyondDictionaryKey <= kLongestKey, "all of them are limits");

/// The types' Compare, taken from the rows once: a comparison is then one call.
const std::array<KyCompareFunc*, KyTypeIdLimit> kCompare = [] {
    std::array<KyCompareFunc*, KyTypeIdLimit> slots{};
    for (std::size_t id = 0; id < slots.size(); ++id) slots[id] = Types().CmpFuncPtrGet(static_cast<char>(id));
    return slots;
}();

constexpr unsigned short OperatorOf(unsigned folding) {
    return static_cast<unsigned short>(KyCmpExact | ((folding & 1U) != 0 ? KyCmpIgnoreCase : 0) |
                                       ((folding & 2U) != 0 ? KyCmpIgnoreAccent : 0));
}

constexpr std::size_t BeyondKey(char stringType) {
    return stringType == KySTRING_T ? kBeyondKey : kBeyondDictionaryKey;
}

/// LMDB tells its order nothing but the two keys, so that each type, form and folding has an order of its own. The
/// number of elements is known to the keys' lengths; an array goes on until one of them ends.
template <std::size_t Type, unsigned char Form, unsigned Folded, bool Array>
int CompareKeys(const MDB_val* a, const MDB_val* b) {
    if constexpr (IsString(Type) && !Array) {
        if (a->mv_size == BeyondKey(Type) || b->mv_size == BeyondKey(Type))
            return CompareFirstOrders(Type, Form, AsBytes(*a), AsBytes(*b), OperatorOf(Folded), OrdersOfKey(Type));
    }
    int err = 0;
    return kCompare[Type](Form, static_cast<unsigned>(a->mv_size), a->mv_data, static_cast<unsigned>(b->mv_size),
                          b->mv_data, OperatorOf(Folded), Array ? UINT_MAX : 1, err);
}

using TypeOrders = std::array<MDB_cmp_func*, kForms * kFoldings * 2>;

template <std::size_t Type, std::size_t... I>
constexpr TypeOrders OrdersOf(std::index_sequence<I...>) {
    return {&CompareKeys<Type, static_cast<unsigned char>(1 + I / (kFoldings * 2)), I / 2 % kFoldings, I % 2 != 0>...};
}

template <std::size_t... Type>
constexpr std::array<TypeOrders, KyTypeIdLimit> AllOrders(std::index_sequence<Type...>) {
    return {OrdersOf<Type>(std::make_index_sequence<kForms * kFoldings * 2>())...};
}

constexpr auto kOrders = AllOrders(std::make_index_sequence<KyTypeIdLimit>());

unsigned FoldingNumber(const Folding& folding) {
    return (folding.ignoreCase ? 1U : 0U) | (folding.ignoreAccent ? 2U : 0U);
}

}  // namespace

MDB_cmp_func* IndexOrder(const Attribute& attribute, unsigned char form) {
    const std::size_t formAt = form == KyFormReversed ? 1 : 0;
    return kOrders[static_cast<unsigned char>(attribute.type)]
                  [(formAt * kFoldings + FoldingNumber(*attribute.index)) * 2 + (attribute.count > 1 ? 1 : 0)];
}

int CompareAsIndexed(const Attribute& attribute, unsigned char form, Bytes a, Bytes b) {
    const MDB_val keyA = AsValue(a);
    const MDB_val keyB = AsValue(b);
    return IndexOrder(attribute, form)(&keyA, &keyB);
}

bool IsCut(const Attribute& attribute, unsigned char form, Bytes key) {
    return EndsBeyondOrders(attribute, key) ||
           (IsString(attribute.type) && BeginningOf(attribute.type, form, key, OrdersOfKey(attribute.type)).isReached);
}

bool EndsBeyondOrders(const Attribute& attribute, Bytes key) {
    return IsString(attribute.type) && key.size() == BeyondKey(attribute.type);
}

Bytes IndexKey(const Attribute& attribute, unsigned char form, Bytes stored, std::vector<unsigned char>& scratch) {
    if (!IsString(attribute.type)) return stored;
    const Beginning beginning = BeginningOf(attribute.type, form, stored, OrdersOfKey(attribute.type));
    if (!beginning.isReached && stored.size() < BeyondKey(attribute.type)) return stored;
    scratch = FirstCharacters(attribute.type, form, stored, beginning.characters);
    if (!beginning.isExact) scratch.resize(BeyondKey(attribute.type));
    return scratch;
}

}  // namespace engine
