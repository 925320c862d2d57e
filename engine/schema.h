#ifndef ENGINE_SCHEMA_H
#define ENGINE_SCHEMA_H

/// Classes of objects and their attributes.
///
///   # every code point of the standard
///   class Character {
///     code      o_u4b            index
///     name      KyString         index nocase
///     numeric   KyNull_double
///     word      KyString         language de codeset 1 index
///     samples   o_2b[3]
///   }
///
/// An attribute is a name, a type by its type name, and for fixed-length arrays the number of elements. What follows on
/// the same line in any order:
///   index             an index over the attribute; `nocase`, `noaccent` behind it: one that does not tell these apart
///   language N        strings: the language and code set that loaded texts get; 255, the default, is that of the
///   codeset N         library's language context
/// A ";" ends a line as well. Names are letters, digits and "_", not a digit first, and tell capitals from small
/// letters. A "#" begins a comment.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kytypes.h"

namespace engine {

/// What an index of strings does not tell apart. It serves comparisons that ignore the same.
struct Folding {
    bool ignoreCase = false;
    bool ignoreAccent = false;

    bool operator==(const Folding&) const = default;
};

struct Attribute {
    std::string name;
    char type = KyRES_T;
    unsigned count = 1;  ///< elements, 1 to 65535
    unsigned char language = 255;
    unsigned char codeSet = 255;
    std::optional<Folding> index;
};

struct Class {
    std::string name;
    std::vector<Attribute> attributes;

    /// Its place among the attributes.
    std::optional<std::size_t> Find(std::string_view attribute) const;
};

class Schema {
public:
    /// Throws `TextError`.
    static Schema Parse(std::string_view text);

    const std::vector<Class>& Classes() const { return classes; }
    /// Its place among the classes.
    std::optional<std::size_t> Find(std::string_view name) const;

    /// A text that gives the same schema.
    std::string Text() const;

private:
    std::vector<Class> classes;
};

/// Why attributes of this type (and count) have no index; null when they can have one.
const char* WhyNotIndexed(const Attribute& attribute);

/// Why objects cannot be put in the order of values of this type; null when they can.
const char* WhyNotOrdered(char type);

/// The types that hold texts: 11, 20, 21.
constexpr bool IsString(char type) { return type == KySTRING_T || type == KyISTRING_T || type == KyCASEISTRING_T; }

}  // namespace engine

#endif
