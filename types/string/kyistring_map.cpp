#include "kyistring_map.h"

#include "kyistring_map_tables.h"

namespace {

unsigned char Map(const ky::DictionaryTables& tables, unsigned char c, unsigned char& extra) {
    const ky::DictionaryKey mapped = ky::DictionaryKeyOf(tables, c);
    extra = mapped.extra;
    return mapped.key;
}

}  // namespace

unsigned char _KyIMapByte(unsigned char c, unsigned char& extra) { return Map(ky::kIStringTables, c, extra); }
unsigned char _KyCaseIMapByte(unsigned char c, unsigned char& extra) { return Map(ky::kCaseIStringTables, c, extra); }
