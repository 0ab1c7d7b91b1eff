#include "lanes_product_vector.hpp"

#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <class T, int N, bool from_zero, bool adds>
int product(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> vector(plan.source[1].operand), added(plan.source[adds ? 2 : 1].operand);
    const LaneAccess<T, 1, N> dst(plan.result[0]);
    const auto compute = [&](int n, const Num *a) {
        Num b[N], c[N], d[N];
        vector.load(n, b);
        if constexpr (adds) added.load(n, c);
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            Num sum = a[i * N] * b[0];
            if constexpr (from_zero) sum = Num(T(0)) + sum;
#pragma GCC unroll 6
            for (int p = 1; p < N; ++p) sum = sum + a[i * N + p] * b[p];
            if constexpr (adds) sum = sum + c[i];
            d[i] = sum;
        }
        dst.store(n, d);
        return true;
    };
    if (matrix.o.single) {
        Num a[N * N];
        matrix.load(0, a);
        return each_group<T>(plan, first, [&](int n) { return compute(n, a); });
    }
    return each_group<T>(plan, first, [&](int n) {
        Num a[N * N];
        matrix.load(n, a);
        return compute(n, a);
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
