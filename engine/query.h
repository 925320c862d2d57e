#ifndef ENGINE_QUERY_H
#define ENGINE_QUERY_H

/// A query: which objects of a class, in which order.
///
///   Character
///   name, code from Character where name = "LATIN*" and code < 1000 order by name desc, code limit 10
///   Word where text = "strasse" nocase noaccent or text >= "z" and not_listed = 0
///   Leap where date = "*-12-31" and total > "0.00:00:20"
///
/// A comparison is an attribute (of an array one element, `samples[0]`), one of = <> < <= > >=, and a constant: a
/// number, a text in double quotes (two of them stand for one inside), or "?" for one that is given when the query
/// runs. Behind it `nocase` and `noaccent` ignore the case and the accents of strings; `exact` takes wildcards ("*",
/// "?" and "\" in strings, "*" for a part of a date or time) for what they are. `and` binds closer than `or`; brackets
/// group. Words of the language are recognised in any case, names of classes and attributes only as they are written.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema.h"

namespace engine {

struct Comparison {
    std::size_t attribute;
    std::size_t element = 0;  ///< of an array
    unsigned short op;        ///< compare-operator word: relation bits and modifiers
    std::size_t constant;     ///< its place among the query's
    std::string text;         ///< as it stands in the query
};

struct Condition {
    enum class Kind { comparison, all, any };

    Kind kind = Kind::all;
    std::vector<Condition> parts;  ///< of `all` and `any`; an `all` without parts always holds
    Comparison comparison{};
};

struct SortKey {
    std::size_t attribute;
    bool descending = false;
};

struct Query {
    std::size_t classAt = 0;
    std::vector<std::size_t> columns;  ///< attributes to be shown
    Condition where;
    std::vector<SortKey> order;
    std::optional<std::size_t> limit;
    std::vector<std::optional<std::string>> constants;  ///< texts; none where the query has a "?"
    std::vector<std::size_t> constantPositions;         ///< where they stand in the query
};

/// Throws `TextError`.
Query ParseQuery(const Schema& schema, std::string_view text);

}  // namespace engine

#endif
