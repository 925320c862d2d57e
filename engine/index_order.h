#ifndef ENGINE_INDEX_ORDER_H
#define ENGINE_INDEX_ORDER_H

/// Index keys and their order.
///
/// The key of an attribute of fixed size is its persistent form. The key of a string is its record, cut to 253 bytes by
/// the type manager's Translate; that of a dictionary string of more bytes is the record of its first 120 characters.
/// Keys are ordered by the type's Compare, exact (no wildcards), with the index's folding.

#include <lmdb.h>

#include <vector>

#include "record.h"
#include "schema.h"

namespace engine {

/// Bytes of a key at the most; shorter than what LMDB takes.
inline constexpr unsigned kLongestKey = 253;

/// Characters of the key of a dictionary string that is cut. Compare refuses constants of more than 253 key bytes, and
/// a character has two of them at the most.
inline constexpr unsigned short kLongestDictionaryKey = 120;

/// The compare-operator word of an index.
unsigned short IndexOperator(const Folding& folding);

/// The order of an attribute's index, as LMDB calls it. The attribute has an index.
MDB_cmp_func* IndexOrder(const Attribute& attribute, unsigned char form);

/// The same of two keys. `a` and `b` need not be in the index.
int CompareAsIndexed(const Attribute& attribute, unsigned char form, Bytes a, Bytes b);

/// Whether a key is that of strings which may differ behind its end. Those of dictionary strings that do count as
/// equal.
bool IsCut(const Attribute& attribute, unsigned char form, Bytes key);

/// The key of a stored value, in the same form. For strings it is made in `scratch`, else it is the value itself.
Bytes IndexKey(const Attribute& attribute, unsigned char form, Bytes stored, std::vector<unsigned char>& scratch);

}  // namespace engine

#endif
