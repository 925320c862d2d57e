#ifndef KYTM_TABLE_H
#define KYTM_TABLE_H

/// Rows of cells under a heading, in columns as wide as they need to be.

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "terminal.h"

namespace kytm {

class Table {
public:
    /// `numeric`: the columns that stand at the right of their width.
    explicit Table(std::vector<std::string> heading, const std::vector<std::size_t>& numeric = {});

    /// As many cells as the heading has; UTF-8 without control characters.
    void Add(std::vector<std::string> row) { rows.push_back(std::move(row)); }
    void Write(Output& out) const;

private:
    std::vector<std::vector<std::string>> rows;  ///< the heading first
    std::vector<bool> toTheRight;

    std::string Joined(const std::vector<std::string>& row, const std::vector<std::size_t>& widths) const;
};

/// A list as JSON or as a table of the same rows.
void WriteList(const nlohmann::ordered_json& list, const Table& table, bool asJson, Output& out);

}  // namespace kytm

#endif
