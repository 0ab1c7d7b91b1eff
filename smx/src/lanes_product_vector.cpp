#include "lanes_product_vector.hpp"

#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// The columns of a square without gaps, each in the first lanes of a register of its own.
template <int N, int column>
struct ColumnOf {
    static constexpr int at(int l) { return (l < N ? l : 0) * N + column; }
};

// One object at a time: column p of the matrix times element p of the vector.
template <class T, int N, bool from_zero, bool adds>
int product_by_columns(const LanePlan &plan, int first) {
    constexpr int W = Pack<T>::width, registers = (N * N + W - 1) / W, last = registers - 1;
    const ObjectStarts matrix(plan.source[0].operand), vector(plan.source[1].operand);
    const ObjectStarts added(plan.source[adds ? 2 : 1].operand), dst(plan.result[0]);
    const std::ptrdiff_t step = plan.source[1].operand.stride2;
    const auto one = [&](int n) {
        Pack<T> a[registers];
        const Byte *const from = matrix[n], *const b = vector[n];
        for (int k = 0; k < last; ++k) a[k] = load_pack<T>(from + k * pack_bytes);
        a[last] = load_end<T, N * N - last * W>(from + last * pack_bytes);
        const auto term = [&]<int p>(std::integral_constant<int, p>) {
            constexpr auto lanes = std::make_integer_sequence<int, W>{};
            return Pack<T>(Rearranged<T, ColumnOf<N, p>, 0, registers>::of(a, lanes)) *
                   Pack<T>(load_element<T>(b + p * step));
        };
        Pack<T> sum = term(std::integral_constant<int, 0>{});
        if constexpr (from_zero) sum = Pack<T>(T(0)) + sum;
        [&]<int... p>(std::integer_sequence<int, p...>) {
            ((sum = sum + term(std::integral_constant<int, p + 1>{})), ...);
        }
        (std::make_integer_sequence<int, N - 1>{});
        if constexpr (adds) sum = sum + load_end<T, N>(added[n]);
        store_end<T, N>(dst[n], sum);
    };
    // The list kernels that start at 0.0 take two objects at a time, so there the order shows between objects, too.
    if constexpr (!from_zero) return each_object(plan, first, one);
    return each_group<T>(plan, first, [&](int n) {
        for (int l = 0; l < W; ++l) one(n + l);
        return true;
    });
}

template <class T, int N, bool from_zero, bool adds>
SMX_LANE_LOOP int product(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> vector(plan.source[1].operand), added(plan.source[adds ? 2 : 1].operand);
    const LaneAccess<T, 1, N> dst(plan.result[0]);
    const auto compute = [&](int n, const Num *a, auto known) {
        Num b[N], c[N], d[N];
        vector.template load_by<known>(n, b);
        if constexpr (adds) added.template load_by<known>(n, c);
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            Num sum = a[i * N] * b[0];
            if constexpr (from_zero) sum = Num(T(0)) + sum;
#pragma GCC unroll 6
            for (int p = 1; p < N; ++p) sum = sum + a[i * N + p] * b[p];
            if constexpr (adds) sum = sum + c[i];
            d[i] = sum;
        }
        dst.template store_by<known>(n, d);
        return true;
    };
    if (matrix.o.single) {
        Num a[N * N];
        matrix.load(0, a);
        return each_group_by<false, T>(
            plan, first, [&](int n, auto known) { return compute(n, a, known); }, vector, added, dst);
    }
    if constexpr (masked_ends) {
        using Way = typename LaneAccess<T, 1, N>::Way;
        const bool adjacent =
            dst.way == Way::rows && (!adds || added.way == Way::rows) && vector.o.addressing != Addressing::pointers;
        if (adjacent && matrix.way == LaneAccess<T, N, N>::Way::rows && matrix.dense && !matrix.o.transposed)
            return product_by_columns<T, N, from_zero, adds>(plan, first);
    }
    return each_group<T>(plan, first, [&](int n) {
        Num a[N * N];
        matrix.load(n, a);
        return compute(n, a, Knows<Known::nothing>{});
    });
}

} // namespace

int matrix_vector_lanes(const LanePlan &plan, bool from_zero, int first) {
    const LaneOperand &d = plan.result[0];
    return by_type_and_side(plan, d.element, d.columns, first, [&](auto zero, auto side) {
        using T = decltype(zero);
        constexpr int N = decltype(side)::value;
        return plan.sources == 3 ? product<T, N, false, true>(plan, first)
               : from_zero       ? product<T, N, true, false>(plan, first)
                                 : product<T, N, false, false>(plan, first);
    });
}

} // namespace SMX_ISA
} // namespace smx
