#ifndef BOUNDS_ROSTER_H
#define BOUNDS_ROSTER_H

#include <cstring>
#include <string>
#include <vector>

#include "kytypes.h"
#include "kytypevl.h"
#include "number_roster.h"
#include "support/guarded_buffer.h"

/// A row whose EvalAndBound records limits: what one value takes in any form that is not memory form.
struct BoundedType {
    KyTypeTab* row;
    unsigned stored;
    bool recordsOnly = false;  ///< gives the same share for everything

    std::string name() const { return row->typeName; }
};

inline void PrintTo(const BoundedType& type, std::ostream* out) { *out << type.name(); }

/// The plain numbers, `KyInt64`, `KyBoolean` and the nullable numbers.
const std::vector<BoundedType>& BoundedTypes();

/// A constant and the limits of a range, each where its last byte is the last readable one and at no aligned address
/// unless its size happens to be one.
class BoundsOperands {
public:
    explicit BoundsOperands(std::size_t bytesOfEach) : value(bytesOfEach), lower(bytesOfEach), upper(bytesOfEach) {}

    void SetValue(const ByteVector& bytes) { std::memcpy(value.data(), bytes.data(), bytes.size()); }
    /// Null: the limit is missing.
    void SetLower(const ByteVector* bytes) { Set(lower, bytes, bounds.lower, bounds.lowerLen); }
    void SetUpper(const ByteVector* bytes) { Set(upper, bytes, bounds.upper, bounds.upperLen); }

    /// Expects the operator to stay as it is.
    float Share(const KyTypeTab& row, unsigned short op, unsigned char flag);

    GuardedBuffer value;
    KyIdxBounds bounds;

private:
    GuardedBuffer lower;
    GuardedBuffer upper;

    static void Set(GuardedBuffer& buffer, const ByteVector* bytes, void*& limit, unsigned char& length) {
        limit = nullptr;
        length = 0;
        if (bytes == nullptr) return;
        std::memcpy(buffer.data(), bytes->data(), bytes->size());
        limit = buffer.data();
        length = static_cast<unsigned char>(bytes->size());
    }
};

/// `values` of a `KyInt64` in a form: each half by itself.
inline ByteVector Int64InForm(const ByteVector& memory, unsigned char flag) { return InForm(memory, 4, flag); }

#endif
