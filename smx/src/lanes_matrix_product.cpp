#include "lanes_matrix_product.hpp"

#include "frame_lane_loops.hpp"
#include "frame_lane_row.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// One object: a row of the result is a sum of rows of the second operand, each times one element of the first.
// The blocked general path starts its sums at 0.0, which shows where all products are negative zeros.
template <class T, int N, bool from_zero>
[[gnu::always_inline]] inline void rows_product(const Byte *a, std::ptrdiff_t a_row, std::ptrdiff_t a_column,
                                                const Row<T, N> (&second)[N], const Byte *d, std::ptrdiff_t d_row) {
#pragma GCC unroll 6
    for (int i = 0; i < N; ++i) {
        const Byte *const row = a + i * a_row;
        Row<T, N> sum = Row<T, N>::all(load_element<T>(row)) * second[0];
        if constexpr (from_zero) sum = Row<T, N>::all(0) + sum;
#pragma GCC unroll 6
        for (int p = 1; p < N; ++p) sum = sum + Row<T, N>::all(load_element<T>(row + p * a_column)) * second[p];
        sum.store(d + i * d_row);
    }
}

// Registers that are longer than a row are read whole where rows follow each other, up to the matrix's end.
template <class T, int N, bool dense, int p>
[[gnu::always_inline]] inline Row<T, N> read_row(const Byte *b, std::ptrdiff_t b_row) {
    constexpr std::ptrdiff_t row = N * sizeof(T);
    if constexpr (dense && p * row + static_cast<std::ptrdiff_t>(sizeof(Row<T, N>)) <= N * row)
        return Row<T, N>::load_whole(b + p * row);
    else return Row<T, N>::load(b + p * b_row);
}
template <class T, int N, bool dense = false>
[[gnu::always_inline]] inline void read_rows(const Byte *b, std::ptrdiff_t b_row, Row<T, N> (&second)[N]) {
    [&]<int... p>(std::integer_sequence<int, p...>) __attribute__((always_inline)) {
        ((second[p] = read_row<T, N, dense, p>(b, b_row)), ...);
    }
    (std::make_integer_sequence<int, N>{});
}

template <class T, int N, bool from_zero>
SMX_LANE_LOOP int product(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    using Access = LaneAccess<T, N, N>;
    constexpr std::ptrdiff_t size = sizeof(T);
    const Access a(plan.source[0].operand), b(plan.source[1].operand), d(plan.result[0]);
    const bool by_rows = a.o.addressing != Addressing::pointers && b.o.addressing != Addressing::pointers &&
                         d.way == Access::Way::rows && b.o.stride2 == size && !b.o.transposed &&
                         (a.way == Access::Way::rows || a.o.single);
    if (by_rows) {
        const std::ptrdiff_t b_row = b.o.stride1, d_row = d.o.stride1;
        const Byte *const single_second = b.o.single ? static_cast<const Byte *>(b.o.base) : nullptr;
        if constexpr (Together<T, N>::exists)
            if (a.way == Access::Way::rows && a.dense && b.dense && d.dense && !a.o.transposed) {
                if (N == 4 && pack_bytes > 32 && splits_registers()) return first;
                const auto whole = [&]<bool some_listed>(Fixed<some_listed>) __attribute__((always_inline)) {
                    using All = Together<T, N, some_listed>;
                    if (single_second != nullptr) {
                        const All once(single_second);
                        return each_object_of<T, Loop::heavy, All::masked>(
                            plan, first,
                            [=](const Byte *x, const Byte *z)
                                __attribute__((always_inline)) { once.template product<from_zero>(x, z); },
                            a.o, d.o);
                    }
                    return each_object_of<T, Loop::heavy, All::masked>(
                        plan, first, [](const Byte *x, const Byte *y, const Byte *z) __attribute__((always_inline)) {
                            All(y).template product<from_zero>(x, z);
                        },
                        a.o, b.o, d.o);
                };
                const auto listed = [](const LaneOperand &o) { return o.addressing == Addressing::list; };
                if (N == 3 && !splits_registers() && (listed(a.o) || listed(b.o) || listed(d.o)))
                    return whole(Fixed<N == 3>{});
                return whole(Fixed<false>{});
            }
        const std::ptrdiff_t a_row = a.o.transposed ? a.o.stride2 : a.o.stride1;
        const std::ptrdiff_t a_column = a.o.transposed ? a.o.stride1 : a.o.stride2;
        if (single_second != nullptr) {
            Row<T, N> second[N];
            read_rows<T, N>(single_second, b_row, second);
            return each_object_of<T, Loop::heavy, Row<T, N>::masked>(
                plan, first,
                [=](const Byte *x, const Byte *z) __attribute__((always_inline)) {
                    rows_product<T, N, from_zero>(x, a_row, a_column, second, z, d_row);
                },
                a.o, d.o);
        }
        const auto each = [&]<bool dense>(Fixed<dense>) __attribute__((always_inline)) {
            return each_object_of<T, Loop::heavy, Row<T, N>::masked>(
                plan, first,
                [=](const Byte *x, const Byte *y, const Byte *z) __attribute__((always_inline)) {
                    Row<T, N> second[N];
                    read_rows<T, N, dense>(y, b_row, second);
                    rows_product<T, N, from_zero>(x, a_row, a_column, second, z, d_row);
                },
                a.o, b.o, d.o);
        };
        if constexpr (Row<T, N>::longer)
            if (b.dense) return each(Fixed<true>{});
        return each(Fixed<false>{});
    }
    const auto body = [](int n, const auto &left, const auto &right, const auto &to) {
        Num x[N * N], y[N * N], z[N * N];
        left.load(n, x);
        right.load(n, y);
        for (int i = 0; i < N; ++i)
#pragma GCC unroll 6
            for (int j = 0; j < N; ++j) {
                Num sum = x[i * N] * y[j];
                if constexpr (from_zero) sum = Num(T(0)) + sum;
#pragma GCC unroll 6
                for (int p = 1; p < N; ++p) sum = sum + x[i * N + p] * y[p * N + j];
                z[i * N + j] = sum;
            }
        to.store(n, z);
        return true;
    };
    return each_group_by<T, Known::planes>(plan, first, body, a, b, d);
}

} // namespace

int matrix_product_lanes(const LanePlan &plan, bool from_zero, int first) {
    const LaneOperand &d = plan.result[0];
    return by_type_and_side<Fewest::one>(plan, d.element, d.rows, first, [&](auto zero, auto side) {
        using T = decltype(zero);
        constexpr int N = decltype(side)::value;
        return from_zero ? product<T, N, true>(plan, first) : product<T, N, false>(plan, first);
    });
}

int one_product_lanes(const void *first, std::ptrdiff_t first_row, std::ptrdiff_t first_column, const void *second,
                      std::ptrdiff_t second_row, void *result, std::ptrdiff_t result_row, int element, int side) {
    const auto of_type = [&]<class T>(T) {
        with_side(side, [&]<int N>(Side<N>) {
            Row<T, N> rows[N];
            read_rows<T, N>(static_cast<const Byte *>(second), second_row, rows);
            rows_product<T, N, false>(static_cast<const Byte *>(first), first_row, first_column, rows,
                                      static_cast<const Byte *>(result), result_row);
        });
    };
    if (element == sizeof(float)) of_type(0.0F);
    else of_type(0.0);
    return 0;
}

} // namespace SMX_ISA
} // namespace smx
