#include "lanes_matrix_sum.hpp"

#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <Arithmetic operation, class T, int N>
SMX_LANE_LOOP int square(const LanePlan &plan, int first) {
    using Access = LaneAccess<T, N, N>;
    const Access a(plan.source[0].operand), b(plan.source[1].operand), d(plan.result[0]);
    const auto by_rows = [](const Access &x) {
        return (x.way == Access::Way::rows ||
                (x.o.single && x.o.addressing == Addressing::strided && x.o.stride2 == Access::size)) &&
               !x.o.transposed;
    };
    if (by_rows(a) && by_rows(b) && by_rows(d)) {
        const auto sum = [](auto x, auto y) { return apply<operation>(x, y); };
        if (a.dense && b.dense && d.dense)
            return each_object_of<T, Loop::lists>(
                plan, first,
                [&](const Byte *x, const Byte *y, const Byte *z) { element_by_element<T, N * N>(sum, z, x, y); }, a.o,
                b.o, d.o);
        const std::ptrdiff_t a_row = a.o.stride1, b_row = b.o.stride1, d_row = d.o.stride1;
        return each_object_of<T, Loop::lists>(
            plan, first,
            [&](const Byte *x, const Byte *y, const Byte *z) {
#pragma GCC unroll 6
                for (int i = 0; i < N; ++i) element_by_element<T, N>(sum, z + i * d_row, x + i * a_row, y + i * b_row);
            },
            a.o, b.o, d.o);
    }
    return each_group<T>(plan, first, [&](int n) {
        Pack<T> x[N * N], y[N * N];
        a.load(n, x);
        b.load(n, y);
        for (int e = 0; e < N * N; ++e) x[e] = apply<operation>(x[e], y[e]);
        d.store(n, x);
        return true;
    });
}

template <Arithmetic operation>
int sum(const LanePlan &plan, int first) {
    const LaneOperand &d = plan.result[0];
    const auto sum = [](auto x, auto y) { return apply<operation>(x, y); };
    const LaneOperand &a = plan.source[0].operand, &b = plan.source[1].operand;
    first = d.element == sizeof(float) ? plane_by_plane<float>(plan, first, sum, d, a, b)
                                       : plane_by_plane<double>(plan, first, sum, d, a, b);
    if (d.rows != d.columns) return first;
    return by_type_and_side<Fewest::one>(plan, d.element, d.rows, first, [&](auto zero, auto side) {
        return square<operation, decltype(zero), decltype(side)::value>(plan, first);
    });
}

} // namespace

int matrix_sum_lanes(const LanePlan &plan, Arithmetic operation, int first) {
    return operation == Arithmetic::subtract ? sum<Arithmetic::subtract>(plan, first)
                                             : sum<Arithmetic::add>(plan, first);
}

} // namespace SMX_ISA
} // namespace smx
