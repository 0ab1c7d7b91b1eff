#include "lanes_combinations.hpp"

#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// Two sources and a result without gaps.
template <class T>
int flat(const LanePlan &plan, T factor1, T factor2, int first) {
    const LaneOperand &d = plan.result[0];
    const std::ptrdiff_t done = first * d.stride0, bytes = (plan.count - first) * d.stride0;
    if (leaves_run(bytes, 3)) return first;
    run_of_elements<T>([=](auto x, auto y) { return factor1 * x + factor2 * y; }, at(d.base, done), bytes,
                       at(plan.source[0].operand.base, done), at(plan.source[1].operand.base, done));
    return plan.count;
}

template <bool two, class T, int R, int C>
SMX_LANE_LOOP int objects(const LanePlan &plan, T factor1, T factor2, int first) {
    using Access = LaneAccess<T, R, C>;
    const Access a(plan.source[0].operand), b(plan.source[two ? 1 : 0].operand), d(plan.result[0]);
    const auto combined = [=](auto x, [[maybe_unused]] auto y) {
        x = factor1 * x;
        if constexpr (two) x = x + factor2 * y;
        return x;
    };
    const auto dense = [](const Access &x) {
        return x.o.addressing != Addressing::pointers && x.o.stride2 == Access::size && x.dense && !x.o.transposed;
    };
    if (dense(a) && dense(b) && dense(d))
        return each_object_of<T>(
            plan, first,
            [&](const Byte *x, const Byte *y, const Byte *z) { element_by_element<T, R * C>(combined, z, x, y); }, a.o,
            b.o, d.o);
    first = two ? plane_by_plane<T>(plan, first, combined, d.o, a.o, b.o)
                : plane_by_plane<T>(
                      plan, first, [&](auto x) { return combined(x, x); }, d.o, a.o);
    return each_group_by<T>(
        plan, first,
        [&](int n, const auto &from, [[maybe_unused]] const auto &beside, const auto &to) {
            Pack<T> x[R * C], y[R * C];
            from.load(n, x);
            if constexpr (two) beside.load(n, y);
#pragma GCC unroll 36
            for (int e = 0; e < R * C; ++e) x[e] = combined(x[e], y[two ? e : 0]);
            to.store(n, x);
            return true;
        },
        a, b, d);
}

template <bool two>
int combine(const LanePlan &plan, double factor1, double factor2, int first) {
    const LaneOperand &d = plan.result[0];
    const auto with = [&](auto zero) {
        using T = decltype(zero);
        const T f1 = static_cast<T>(factor1), f2 = static_cast<T>(factor2);
        if constexpr (two)
            if (plan.packed && !plan.source[0].operand.single && !plan.source[1].operand.single)
                return flat(plan, f1, f2, first);
        int done = first;
        with_side(d.columns, [&]<int N>(Side<N>) {
            if (two) done = objects<true, T, 1, N>(plan, f1, f2, first);
            else if (d.rows == N) done = objects<false, T, N, N>(plan, f1, f2, first);
        });
        return done;
    };
    return d.element == sizeof(float) ? with(float{}) : with(double{});
}

} // namespace

int combination_lanes(const LanePlan &plan, double factor1, double factor2, int first) {
    return plan.sources == 2 ? combine<true>(plan, factor1, factor2, first)
                             : combine<false>(plan, factor1, factor2, first);
}

} // namespace SMX_ISA
} // namespace smx
