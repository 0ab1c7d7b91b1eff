#include "lanes_det_invert.hpp"

#include "family_det_invert_core.hpp"
#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// Of large matrices the loads are little beside the work.
template <bool large, class T, class Body, class... Operands>
[[gnu::always_inline]] inline int in_groups(const LanePlan &plan, int first, Body body, const Operands &...operands) {
    using enum Known;
    if constexpr (large) return each_group_by<T, packed, planes>(plan, first, body, operands...);
    else return each_group_by<T, packed, strided, listed, planes>(plan, first, body, operands...);
}

template <class T, int N>
SMX_LANE_LOOP int determinants(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> src(plan.source[0].operand);
    const LaneAccess<T, 1, 1> dst(plan.result[0]);
    if (few_lanes && N == 3 && sizeof(T) == 8) return first;
    return in_groups<(N > 5), T>(
        plan, first,
        [&](int n, const auto &from, const auto &to) {
            Num a[N][N];
            from.load(n, &a[0][0]);
            const Num det = determinant(a);
            to.store(n, &det);
            return true;
        },
        src, dst);
}

template <class T, int N>
SMX_LANE_LOOP int invert(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> src(plan.source[0].operand), dst(plan.result[0]);
    return in_groups<(N > 4), T>(
        plan, first,
        [&](int n, const auto &from, const auto &to) {
            Num a[N][N], inverse[N][N];
            Cofactors<Num, N> cofactors;
            Failure<Num> failure;
            from.load(n, &a[0][0]);
            cofactors.invert(a, inverse, failure,
                             [](Num det) { return !(magnitude(det) >= size_cubed_tolerance<T>(N)); });
            if (failure.any()) return false;
            to.store(n, &inverse[0][0]);
            return true;
        },
        src, dst);
}

} // namespace

int determinant_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        return determinants<decltype(zero), decltype(s)::value>(plan, first);
    });
}
int invert_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first,
                            [&](auto zero, auto s) { return invert<decltype(zero), decltype(s)::value>(plan, first); });
}

} // namespace SMX_ISA
} // namespace smx
