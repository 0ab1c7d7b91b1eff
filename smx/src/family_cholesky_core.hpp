// The constant-size half of the Cholesky families (family_cholesky.hpp), for one object or for a group of them:
// templates over the number type.
#pragma once

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

// The lower triangle of one object, or of a group: first of the matrix, then of the factor with its diagonal inverted.
template <class Num, int N>
struct CholeskyFactor {
    Num row[N][N];

    // Factors, and returns the row whose radicand failed, or n. fails(radicand, row) is the test.
    template <class Test>
    [[gnu::always_inline]] int decompose(Failure<Num> &failure, Test fails) {
        using T = ElementOfNumber<Num>;
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
#pragma GCC unroll 6
            for (int j = 0; j < i; ++j) {
                Num value = row[i][j];
#pragma GCC unroll 6
                for (int t = 0; t < j; ++t) value = value - row[i][t] * row[j][t];
                row[i][j] = value * row[j][j];
            }
            Num radicand = row[i][i];
#pragma GCC unroll 6
            for (int t = 0; t < i; ++t) radicand = radicand - row[i][t] * row[i][t];
            if (failure.stop(fails(radicand, i))) return i;
            row[i][i] = T(1) / square_root(radicand);
        }
        return N;
    }

    // x = b solved in place.
    [[gnu::always_inline]] void solve(Num (&x)[N]) const {
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
#pragma GCC unroll 6
            for (int j = 0; j < i; ++j) x[i] = x[i] - row[i][j] * x[j];
            x[i] = x[i] * row[i][i];
        }
#pragma GCC unroll 6
        for (int i = N - 1; i >= 0; --i) {
#pragma GCC unroll 6
            for (int j = N - 1; j > i; --j) x[i] = x[i] - row[j][i] * x[j];
            x[i] = x[i] * row[i][i];
        }
    }
};

} // namespace SMX_ISA
} // namespace smx
