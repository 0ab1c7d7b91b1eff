// The constant-size half of the LU families (family_lu.hpp), for one object or for a group of them: templates over the
// number type.
#pragma once

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

// Twice the smallest normal number for the local copy, the machine epsilon for the general path.
template <class T>
struct LUTolerance;
template <>
struct LUTolerance<float> {
    static constexpr float local = 0x1p-125F, general = 0x1p-23F;
};
template <>
struct LUTolerance<double> {
    static constexpr double local = 0x1p-1021, general = 0x1p-52;
};

// The factors of one object, or of a group: rows in logical order.
template <class Num, int N>
struct LUFactors {
    Num row[N][N];
    IndexOf<Num> physical[N];

    // Eliminates, and returns the step whose test failed: k for the pivot of step k, n-1 for the last test, n for none.
    // On entry the rows are in physical order.
    [[gnu::always_inline]] int decompose(Failure<Num> &failure) {
        using T = ElementOfNumber<Num>;
        constexpr T tolerance = LUTolerance<T>::local;
        for (int i = 0; i < N; ++i) physical[i] = IndexOf<Num>(static_cast<T>(i));
#pragma GCC unroll 6
        for (int k = 0; k < N - 1; ++k) {
            Num pivot = row[k][k], best = magnitude(pivot);
#pragma GCC unroll 6
            for (int i = k + 1; i < N; ++i) best = select(magnitude(row[i][k]) > best, magnitude(row[i][k]), best);
            // The first row that holds the best magnitude takes the exchange; a not-a-number in row k keeps its place.
            MaskOf<Num> open = magnitude(pivot) < best;
#pragma GCC unroll 6
            for (int i = k + 1; i < N; ++i) {
                const MaskOf<Num> here = open & (magnitude(row[i][k]) == best);
                open = open & !here;
#pragma GCC unroll 6
                for (int j = 0; j < N; ++j) exchange(here, row[k][j], row[i][j]);
                exchange(here, physical[k], physical[i]);
            }
            pivot = row[k][k];
            if (failure.stop(!(magnitude(pivot) >= tolerance))) return k;
            if (k < N - 2) {
                const Num reciprocal = T(1) / pivot;
#pragma GCC unroll 6
                for (int i = k + 1; i < N; ++i) row[i][k] = row[i][k] * reciprocal;
            } else {
                row[N - 1][k] = row[N - 1][k] / pivot;
            }
#pragma GCC unroll 6
            for (int i = k + 1; i < N; ++i)
#pragma GCC unroll 6
                for (int j = k + 1; j < N; ++j) row[i][j] = row[i][j] - row[i][k] * row[k][j];
        }
        Num last = row[N - 1][N - 1];
#pragma GCC unroll 6
        for (int i = 0; i < N - 1; ++i)
            last = select(physical[i] == IndexOf<Num>(static_cast<T>(N - 1)), row[i][N - 1], last);
        if (failure.stop(!(magnitude(last) >= tolerance))) return N - 1;
        return N;
    }

    template <class X>
    static void exchange(MaskOf<Num> mask, X &a, X &b) {
        const X kept = a;
        a = select(mask, b, a);
        b = select(mask, kept, b);
    }
};

// x from the factors f (rows in logical order) and the right-hand side b in logical order. `diagonal` divides by
// f[i][i], or multiplies by its reciprocal.
template <int N, class Num, class Diagonal>
[[gnu::always_inline]] inline void lu_solve(const Num (&f)[N][N], const Num (&b)[N], Num (&x)[N], Diagonal diagonal) {
    Num y[N];
    y[0] = b[0];
#pragma GCC unroll 6
    for (int i = 1; i < N; ++i) {
        Num value = b[i];
#pragma GCC unroll 6
        for (int j = 1; j < i; ++j) value = value - f[i][j] * y[j];
        y[i] = value - f[i][0] * y[0];
    }
    x[N - 1] = diagonal(y[N - 1], N - 1);
#pragma GCC unroll 6
    for (int i = N - 2; i >= 0; --i) {
        Num value = y[i];
#pragma GCC unroll 6
        for (int j = N - 1; j > i; --j) value = value - f[i][j] * x[j];
        x[i] = diagonal(value, i);
    }
}

} // namespace SMX_ISA
} // namespace smx
