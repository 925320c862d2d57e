#include "table.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "texts.h"

namespace kytm {

Table::Table(std::vector<std::string> heading, const std::vector<std::size_t>& numeric) : toTheRight(heading.size()) {
    for (const std::size_t column : numeric) toTheRight[column] = true;
    rows.push_back(std::move(heading));
}

std::string Table::Joined(const std::vector<std::string>& row, const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i != 0) line += "  ";
        if (toTheRight[i]) line.append(widths[i] - DisplayWidth(row[i]), ' ');
        line += toTheRight[i] ? row[i] : Padded(row[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

void Table::Write(Output& out) const {
    std::vector<std::size_t> widths(toTheRight.size());
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], DisplayWidth(row[i]));
    }
    const Paint paint;
    for (const std::vector<std::string>& row : rows) {
        const std::string line = Joined(row, widths);
        out.Write((&row == rows.data() ? paint.Heading(line) : line) + "\n");
    }
}

void WriteList(const nlohmann::ordered_json& list, const Table& table, bool asJson, Output& out) {
    if (asJson) {
        out.Write(list.dump(2) + "\n");
    } else {
        table.Write(out);
    }
}

}  // namespace kytm
