// A table of numbers in a CSV file.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace shared {

struct Table {
    std::string file;
    std::vector<std::string> names; // of the columns; without a heading "1", "2" and so on
    std::vector<double> values;     // row by row
    std::vector<int> lines;         // of the file, one for each row

    std::size_t columns() const { return names.size(); }
    std::size_t rows() const { return lines.size(); }
    double at(std::size_t row, std::size_t column) const { return values[row * columns() + column]; }
    std::runtime_error badRow(std::size_t row, const std::string &what) const;
};

// The first row is a heading if none of its cells is a number. Cells may be quoted; empty lines and lines that begin
// with # are skipped. `widths` are the numbers of columns that will do; if there are none, any. Throws
// std::runtime_error with one line that names the file, the line and what is wrong there.
Table readTable(const std::string &file, std::initializer_list<std::size_t> widths = {});

} // namespace shared
