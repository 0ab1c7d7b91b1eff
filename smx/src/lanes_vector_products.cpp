#include "lanes_vector_products.hpp"

#include "family_products_core.hpp"
#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <SumOrder order, class T, int N>
int dot(const LanePlan &plan, int first) {
    const LaneAccess<T, 1, N> a(plan.source[0].operand), b(plan.source[1].operand);
    const LaneAccess<T, 1, 1> dst(plan.result[0]);
    Pack<T> x[N], y[N];
    if (b.o.single) b.load_there(0, y);
    const bool side_by_side = a.side_by_side() && (b.o.single || b.side_by_side()) && dst.side_by_side();
    return each_group_by<T>(plan, first, side_by_side, [&](int n, auto known) {
        a.template load_by<known>(n, x);
        if (!b.o.single) b.template load_by<known>(n, y);
        const Pack<T> sum = dot_of<order>(x, y);
        dst.template store_by<known>(n, &sum);
        return true;
    });
}

template <class T>
int cross(const LanePlan &plan, int first) {
    const LaneAccess<T, 1, 3> a(plan.source[0].operand), b(plan.source[1].operand), dst(plan.result[0]);
    const bool side_by_side = a.side_by_side() && b.side_by_side() && dst.side_by_side();
    return each_group_by<T>(plan, first, side_by_side, [&](int n, auto known) {
        Pack<T> x[3], y[3], z[3];
        a.template load_by<known>(n, x);
        b.template load_by<known>(n, y);
        for (int i = 0; i < 3; ++i)
            z[i] = cross_element(
                i, [&](int p) { return x[p]; }, [&](int p) { return y[p]; });
        dst.template store_by<known>(n, z);
        return true;
    });
}

} // namespace

int dot_product_lanes(const LanePlan &plan, bool tail_second, int first) {
    return by_type_and_side(plan, plan.result[0].element, plan.source[0].operand.columns, first,
                            [&](auto zero, auto side) {
                                using T = decltype(zero);
                                constexpr int N = decltype(side)::value;
                                return tail_second ? dot<SumOrder::dot_tail_second, T, N>(plan, first)
                                                   : dot<SumOrder::ascending, T, N>(plan, first);
                            });
}
int cross_product_lanes(const LanePlan &plan, int first) {
    return plan.result[0].element == sizeof(float) ? cross<float>(plan, first) : cross<double>(plan, first);
}

} // namespace SMX_ISA
} // namespace smx
