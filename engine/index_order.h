#ifndef ENGINE_INDEX_ORDER_H
#define ENGINE_INDEX_ORDER_H

/// Index keys and their order.
///
/// The key of an attribute of fixed size is its persistent form. The key of a string is its record as far as its first
/// 80 orders go, that of a dictionary string as far as its first 240, whatever characters they are of: so keys are
/// never in another order than their texts. A last character that has orders behind these is in the key as a whole;
/// zeros fill the key up to 500 bytes then, of a dictionary string up to 250, which tell that no more orders of it
/// count. Keys are ordered by the type's Compare, exact (no wildcards), with the index's folding.

#include <lmdb.h>

#include <vector>

#include "record.h"
#include "schema.h"

namespace engine {

/// Bytes of a key at the most, but for those of strings; and of a limit of a scan.
inline constexpr unsigned kLongestKey = 253;

/// Orders of a string that its key tells. Up to three characters of two bytes count as one, and LMDB takes keys of 511
/// bytes.
inline constexpr unsigned short kOrdersOfKey = 80;

/// The same of a dictionary string, whose characters have one or two. Compare refuses what has more than 253.
inline constexpr unsigned short kOrdersOfDictionaryKey = 240;

constexpr unsigned short OrdersOfKey(char stringType) {
    return stringType == KySTRING_T ? kOrdersOfKey : kOrdersOfDictionaryKey;
}

/// The order of an attribute's index, as LMDB calls it. The attribute has an index.
MDB_cmp_func* IndexOrder(const Attribute& attribute, unsigned char form);

/// The same of two keys. `a` and `b` need not be in the index.
int CompareAsIndexed(const Attribute& attribute, unsigned char form, Bytes a, Bytes b);

/// Whether a key is that of strings which may differ behind its end.
bool IsCut(const Attribute& attribute, unsigned char form, Bytes key);

/// Whether a key's record says more than the key: its last character has orders that do not count.
bool EndsBeyondOrders(const Attribute& attribute, Bytes key);

/// The key of a stored value, in the same form. For strings it is made in `scratch`, else it is the value itself.
Bytes IndexKey(const Attribute& attribute, unsigned char form, Bytes stored, std::vector<unsigned char>& scratch);

}  // namespace engine

#endif
