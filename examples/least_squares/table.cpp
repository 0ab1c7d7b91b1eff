#include "table.hpp"

#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace table {
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

std::runtime_error badLine(const std::string &file, int line, const std::string &what) {
    return std::runtime_error(file + ":" + std::to_string(line) + ": " + what);
}

Table read(const std::string &file) {
    std::ifstream in(file);
    if (!in) throw std::runtime_error("cannot read " + file);
    Table table;
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        if (line == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3); // a byte order mark
        if (!text.empty() && text.back() == '\r') text.pop_back();
        if (trimmed(text).empty() || text[0] == '#') continue;
        const std::vector<std::string> row = cells(text);
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
        if (row.size() != table.columns())
            throw badLine(file, line,
                          "a row has " + std::to_string(table.columns()) + " columns, not " +
                              std::to_string(row.size()));
        if (bad != row.size()) throw badLine(file, line, "column " + std::to_string(bad + 1) + " is not a number");
        table.lines.push_back(line);
    }
    if (in.bad()) throw std::runtime_error("cannot read " + file);
    if (table.rows() == 0) throw std::runtime_error(file + " has no rows");
    return table;
}

} // namespace table
