// A picture's samples, row by row, and those that a shape covers.
#pragma once

#include <array>
#include <cstddef>

#include "vec.hpp"

namespace shared {

struct Grid {
    std::size_t columns, rows;

    std::size_t size() const { return columns * rows; }
    std::size_t at(std::size_t column, std::size_t row) const { return row * columns + column; }

    // Calls visit(x, y, n) for the samples of a box, with their centres and numbers.
    template <class T>
    void box(T left, T top, T right, T bottom, const auto &visit) const {
        const auto bound = [](T v, std::size_t most) {
            return static_cast<std::size_t>(std::clamp(v, T(0), static_cast<T>(most)));
        };
        const std::size_t lastColumn = bound(right + 1, columns), lastRow = bound(bottom + 1, rows);
        for (std::size_t row = bound(top, rows); row < lastRow; ++row)
            for (std::size_t column = bound(left, columns); column < lastColumn; ++column)
                visit(static_cast<T>(column) + T(0.5), static_cast<T>(row) + T(0.5), at(column, row));
    }

    // Calls visit(n, a, b, c, area) for the samples of a triangle, whose corners have there the weights a, b and c. The
    // area is doubled, and above 0 if the corners run clockwise on the screen, whose rows run downwards.
    template <class T>
    void triangle(const std::array<Vec3<T>, 3> &p, const auto &visit) const {
        const auto edge = [](Vec3<T> a, Vec3<T> b, T x, T y) {
            return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        };
        const T area = edge(p[0], p[1], p[2].x, p[2].y);
        if (!(std::abs(area) > T(1e-6F))) return;
        box(std::min({p[0].x, p[1].x, p[2].x}), std::min({p[0].y, p[1].y, p[2].y}), std::max({p[0].x, p[1].x, p[2].x}),
            std::max({p[0].y, p[1].y, p[2].y}), [&](T x, T y, std::size_t n) {
                const T a = edge(p[1], p[2], x, y) / area, b = edge(p[2], p[0], x, y) / area, c = 1 - a - b;
                if (a >= 0 && b >= 0 && c >= 0) visit(n, a, b, c, area);
            });
    }
};

} // namespace shared
