#ifndef ENGINE_VALUE_H
#define ENGINE_VALUE_H

/// Values in memory form, and the way to and from the stored form.

#include <vector>

#include "record.h"
#include "types.h"

namespace engine {

/// An array of values, made and freed by its type.
class Value {
public:
    explicit Value(char typeId, unsigned valueCount = 1)
        : id(typeId), count(valueCount), values(Types().Create(typeId, valueCount)) {}
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    Value(Value&& other) noexcept : id(other.id), count(other.count), values(other.values) { other.values = nullptr; }
    ~Value() { Types().Delete(id, values, count); }

    void* Get() const { return values; }

    void Load(Bytes stored, unsigned char form) {
        Types().Load(id, values, const_cast<unsigned char*>(stored.data()), form, count);
    }

    std::vector<unsigned char> Store(unsigned char form) const {
        std::vector<unsigned char> stored(Types().DiskLenGet(id, values, form, count, KyFormMemory));
        stored.resize(Types().Store(id, stored.data(), values, form, count));
        return stored;
    }

private:
    char id;
    unsigned count;
    void* values;
};

/// One value from the stored form.
inline Value Loaded(char typeId, unsigned char form, Bytes stored) {
    Value value(typeId);
    value.Load(stored, form);
    return value;
}

}  // namespace engine

#endif
