// Determinant and inverse by minors, each computed once and shared, for one object or for a group of them: templates
// over the number type. Sets of columns are bit masks; everything about them is known to the compiler.
#pragma once

#include <utility>

#include "frame_number.hpp"

namespace smx {
inline namespace SMX_ISA {

enum class MinorRows { first, last };

// The minors of the first or the last rows: value[set] is the one on as many rows as `set` has columns. Each expands
// along the row that it has more than the smaller ones, the first rows from the highest column down, the last rows from
// the lowest column up.
template <class Num, int N, MinorRows rows>
struct Minors {
    Num value[1 << N];

    // All sets below `end`: a set comes after its subsets.
    template <int end>
    [[gnu::always_inline]] void make(const Num (&a)[N][N]) {
        [&]<int... set>(std::integer_sequence<int, set...>) __attribute__((always_inline)) {
            (make_one<set + 1>(a), ...);
        }
        (std::make_integer_sequence<int, end - 1>{});
    }

    template <int set>
    [[gnu::always_inline]] void make_one(const Num (&a)[N][N]) {
        constexpr int size = __builtin_popcount(set);
        constexpr int row = rows == MinorRows::first ? size - 1 : N - size;
        constexpr int column = first_of(set);
        if constexpr (size == 1) value[set] = a[row][column];
        else value[set] = rest<row, set, set ^ 1 << column, true>(a, a[row][column] * value[set ^ 1 << column]);
    }

    template <int row, int set, int left, bool minus>
    [[gnu::always_inline]] Num rest(const Num (&a)[N][N], Num sum) const {
        if constexpr (left == 0) {
            return sum;
        } else {
            constexpr int column = first_of(left);
            const Num product = a[row][column] * value[set ^ 1 << column];
            return rest<row, set, left ^ 1 << column, !minus>(a, minus ? sum - product : sum + product);
        }
    }

    static constexpr int first_of(int set) {
        return rows == MinorRows::first ? 31 - __builtin_clz(static_cast<unsigned>(set))
                                        : __builtin_ctz(static_cast<unsigned>(set));
    }
};

template <class Num, int N>
[[gnu::always_inline]] inline Num determinant(const Num (&a)[N][N]) {
    Minors<Num, N, MinorRows::first> minors;
    minors.template make<1 << N>(a);
    return minors.value[(1 << N) - 1];
}

// The twice size cubed of the tolerances, wrapped, times the smallest normal number.
template <class T>
constexpr T size_cubed_tolerance(int n) {
    const unsigned side = static_cast<unsigned>(n);
    return static_cast<T>(static_cast<int>(2 * side * side * side)) *
           (sizeof(T) == 4 ? static_cast<T>(0x1p-126) : static_cast<T>(0x1p-1022));
}

// The inverse as cofactors over the determinant. The minor that leaves row i and column j out is the sum over sets of i
// columns: minors of the rows above i on the set, times minors of the rows below i on the other columns.
template <class Num, int N>
struct Cofactors {
    static constexpr int full = (1 << N) - 1;
    Minors<Num, N, MinorRows::first> above;
    Minors<Num, N, MinorRows::last> below;

    // false if the determinant's test failed, with the result not complete; fails(determinant) is the test.
    template <class Test>
    [[gnu::always_inline]] bool invert(const Num (&a)[N][N], Num (&inverse)[N][N], Failure<Num> &failure, Test fails) {
        using T = ElementOfNumber<Num>;
        above.template make<full>(a);
        below.template make<full>(a);
        column<0>(inverse);
        // Side 3 sums from the last row up.
        constexpr int start = N == 3 ? N - 1 : 0, step = N == 3 ? -1 : 1;
        Num det = a[start][0] * inverse[0][start];
#pragma GCC unroll 6
        for (int i = 1; i < N; ++i) det = det + a[start + step * i][0] * inverse[0][start + step * i];
        if (failure.stop(fails(det))) return false;
        other_columns<1>(inverse);
        const Num reciprocal = T(1) / det;
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i)
#pragma GCC unroll 6
            for (int j = 0; j < N; ++j) inverse[i][j] = inverse[i][j] * reciprocal;
        return true;
    }

    template <int j>
    [[gnu::always_inline]] void other_columns(Num (&adjugate)[N][N]) const {
        if constexpr (j < N) {
            column<j>(adjugate);
            other_columns<j + 1>(adjugate);
        }
    }
    template <int j, int i = 0>
    [[gnu::always_inline]] void column(Num (&adjugate)[N][N]) const {
        if constexpr (i < N) {
            adjugate[j][i] = (i + j) % 2 == 0 ? minor<i, j>() : -minor<i, j>();
            column<j, i + 1>(adjugate);
        }
    }

    template <int i, int j>
    [[gnu::always_inline]] Num minor() const {
        constexpr int columns = full ^ 1 << j;
        if constexpr (i == 0) return below.value[columns];
        else if constexpr (i == N - 1) return above.value[columns];
        else return terms<columns, next(columns, i, (1 << i) - 1)>(product<columns, next(columns, i, (1 << i) - 1)>());
    }
    template <int columns, int set>
    [[gnu::always_inline]] Num product() const {
        return above.value[set] * below.value[columns ^ set];
    }
    // Adds what follows the term of `set`.
    template <int columns, int set>
    [[gnu::always_inline]] Num terms(Num sum) const {
        constexpr int following = next(columns, __builtin_popcount(set), set + 1);
        if constexpr (following == 0) {
            return sum;
        } else {
            const Num term = product<columns, following>();
            return terms<columns, following>(odd(following, columns ^ following) ? sum - term : sum + term);
        }
    }

    // The lowest set of `size` of the columns that is not below `from`, or 0.
    static constexpr int next(int columns, int size, int from) {
        for (int set = from; set <= full; ++set)
            if ((set & ~columns) == 0 && __builtin_popcount(static_cast<unsigned>(set)) == size) return set;
        return 0;
    }
    // Does it take an odd number of exchanges to bring the columns of `set` before the others?
    static constexpr bool odd(int set, int others) {
        int exchanges = 0;
        for (int c = 0; c < N; ++c)
            if (set >> c & 1) exchanges += __builtin_popcount(static_cast<unsigned>(others & ((1 << c) - 1)));
        return exchanges % 2 != 0;
    }
};

} // namespace SMX_ISA
} // namespace smx
