// Gaussian elimination with partial pivoting in a working copy, for the general paths of the determinant and the
// inverse. Rows are not moved: logical row i is physical row r[i] of the copy.
#pragma once

#include <cstddef>

#include "family_det_invert_core.hpp"
#include "frame_operands.hpp"

namespace smx {
inline namespace SMX_ISA {

// The caller's buffer: n by n elements, and behind them the row index.
template <class T>
struct WorkingCopy {
    T *w;
    int *r;
    int n;
    WorkingCopy(T *buffer, int side)
        : w(buffer), r(reinterpret_cast<int *>(buffer + static_cast<std::ptrdiff_t>(side) * side)), n(side) {}
    T &at(int i, int j) const { return w[static_cast<std::ptrdiff_t>(r[i]) * n + j]; }

    // The matrix without row `row` and column `column`, where these are not n.
    template <class A>
    void copy(const A &src, int row, int column) const {
        for (int i = 0, to = 0; i < n; ++i) {
            r[i] = i;
            if (i == row) continue;
            T *out = w + static_cast<std::ptrdiff_t>(to++) * n;
            for (int j = 0; j < n; ++j)
                if (j != column) *out++ = src(i, j);
        }
    }

    // One step k on the leading m rows and columns: the pivot, the greatest magnitude with the lowest row among equals.
    T pivot(int k, int m, T &sign) const {
        int best = k;
        T found = at(k, k);
        for (int i = k + 1; i < m; ++i)
            if (magnitude(at(i, k)) > magnitude(found)) {
                found = at(i, k);
                best = i;
            }
        if (best != k) {
            const int row = r[k];
            r[k] = r[best];
            r[best] = row;
            sign = -sign;
        }
        return found;
    }
    // multiplier(x) is x over the pivot.
    template <class Multiplier>
    void eliminate(int k, int m, Multiplier multiplier) const {
        for (int i = k + 1; i < m; ++i) {
            const T factor = multiplier(at(i, k));
            for (int j = k + 1; j < m; ++j) at(i, j) = at(i, j) - at(k, j) * factor;
        }
    }
};

} // namespace SMX_ISA
} // namespace smx
