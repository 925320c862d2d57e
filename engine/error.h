#ifndef ENGINE_ERROR_H
#define ENGINE_ERROR_H

/// What the store throws. The messages are for people and name what they are about.

#include <cstddef>
#include <stdexcept>
#include <string>

namespace engine {

/// A store that cannot be opened, read or written as asked.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The disk, or what the process may write, has no room for what is to be written. What was committed before stays.
class NoRoomError : public StoreError {
public:
    using StoreError::StoreError;
};

/// A store whose indexes were ordered by other collation tables: they have to be rebuilt before it can be used.
class OtherTablesError : public StoreError {
public:
    using StoreError::StoreError;
};

/// A text (of a schema or a query) with a mistake in it.
class TextError : public std::runtime_error {
public:
    TextError(const std::string& message, std::size_t aPosition) : std::runtime_error(message), position(aPosition) {}

    /// Bytes before the mistake.
    std::size_t Position() const { return position; }

private:
    std::size_t position;
};

}  // namespace engine

#endif
