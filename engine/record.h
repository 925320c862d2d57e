#ifndef ENGINE_RECORD_H
#define ENGINE_RECORD_H

/// How an object is kept: its attributes' persistent forms in one run of bytes.
///
///   bytes 0-3       check word: the attributes' hashes, then all bytes behind it, folded (FNV-1a); low byte first
///   then            the attributes of fixed size, in the order of the schema
///   then            for each other attribute where its bytes end, 4 bytes, low byte first, counted from the
///                   end of this table
///   then            the bytes of the other attributes, in the order of the schema

#include <cstddef>
#include <span>
#include <vector>

#include "schema.h"

namespace engine {

using Bytes = std::span<const unsigned char>;

/// The places of a class's attributes in its records. Refers to the class, which has to live as long.
class RecordLayout {
public:
    /// `form`: the persistent form of all values, 1 or 2.
    RecordLayout(const Class& aClass, unsigned char form);

    const Class& Of() const { return *objects; }
    unsigned char Form() const { return form; }

    /// The bytes of an attribute. `record` has to be one that `IsWhole` accepts.
    Bytes At(Bytes record, std::size_t attribute) const;

    /// Whether the record's lengths fit together.
    bool IsWhole(Bytes record) const;
    /// Whether its check word is that of its values.
    bool CheckHolds(Bytes record) const;

    /// Replaces `record` by that of an object whose attributes are given in memory form, one address an attribute.
    void Write(std::vector<unsigned char>& record, std::span<void* const> values) const;

private:
    struct Place {
        bool fixed;
        std::size_t at;  ///< fixed: offset in the record; else the place in the table of ends
        unsigned size;   ///< fixed: bytes
    };

    const Class* objects;
    unsigned char form;
    std::vector<Place> places;
    std::size_t tableAt = 4;
    std::size_t tableEntries = 0;

    unsigned CheckWord(Bytes record) const;
};

}  // namespace engine

#endif
