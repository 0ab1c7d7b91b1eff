#include "table.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "program.hpp"

namespace shared {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

std::vector<std::string> cells(std::string_view text) {
    std::vector<std::string> found(1);
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        else if (c == ',' && !quoted) found.emplace_back();
        else found.back() += c;
    }
    for (std::string &cell : found) cell = std::string(trimmed(cell));
    return found;
}

bool isNumber(std::string_view cell, double &value) {
    if (cell.starts_with('+') && !cell.starts_with("+-")) cell.remove_prefix(1);
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    return error == std::errc() && end == cell.data() + cell.size() && std::isfinite(value);
}

} // namespace

std::runtime_error Table::badRow(std::size_t row, const std::string &what) const {
    return badLine(file, lines[row], what);
}

Table readTable(const std::string &file, std::initializer_list<std::size_t> widths) {
    Table table{file, {}, {}, {}};
    Lines in(file);
    std::vector<std::size_t> allowed = widths;
    for (std::string text; in.next(text);) {
        if (trimmed(text).empty() || text[0] == '#') continue;
        const std::vector<std::string> row = cells(text);
        if (!allowed.empty() && std::ranges::find(allowed, row.size()) == allowed.end()) {
            std::vector<std::string> wanted;
            for (const std::size_t width : allowed) wanted.push_back(std::to_string(width));
            throw badLine(file, in.line, "a row has " + listed(wanted) + " columns, not " + std::to_string(row.size()));
        }
        allowed = {row.size()};
        const bool first = table.names.empty();
        std::size_t numbers = 0, bad = row.size();
        for (std::size_t column = 0; column < row.size(); ++column) {
            double value = 0;
            if (isNumber(row[column], value)) {
                table.values.push_back(value);
                ++numbers;
            } else if (bad == row.size()) bad = column;
        }
        if (first && numbers == 0) {
            table.names = row;
            continue;
        }
        if (first)
            for (std::size_t column = 1; column <= row.size(); ++column) table.names.push_back(std::to_string(column));
        if (bad != row.size()) throw badLine(file, in.line, "column " + std::to_string(bad + 1) + " is not a number");
        table.lines.push_back(in.line);
    }
    if (table.rows() == 0) throw std::runtime_error(file + " has no rows");
    return table;
}

} // namespace shared
