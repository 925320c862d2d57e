#ifndef GUARDED_BUFFER_OF_H
#define GUARDED_BUFFER_OF_H

#include <cstring>
#include <memory>

#include "support/guarded_buffer.h"

/// One value whose last byte is the last readable one.
template <class Value>
std::unique_ptr<GuardedBuffer> BufferOf(Value value) {
    auto buffer = std::make_unique<GuardedBuffer>(sizeof value);
    std::memcpy(buffer->data(), &value, sizeof value);
    return buffer;
}

#endif
