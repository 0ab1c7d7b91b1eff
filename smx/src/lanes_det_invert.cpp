#include "lanes_det_invert.hpp"

#include "family_det_invert_core.hpp"
#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <class T, int N>
SMX_LANE_LOOP int determinants(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const Shaped<T, N, N> src{plan.source[0].operand};
    const Shaped<T, 1, 1> dst{plan.result[0]};
    if (few_lanes && N == 3 && sizeof(T) == 8) return first;
    const auto body = [&](int n, const auto &from, const auto &to) {
        Num a[N][N];
        from.load(n, &a[0][0]);
        const Num det = determinant(a);
        to.store(n, &det);
        return true;
    };
    using enum Known;
    if constexpr (N <= 5) return each_group_by<T, packed, strided, listed, planes>(plan, first, body, src, dst);
    else return each_group_by<T, packed, dense, planes>(plan, first, body, src, dst);
}

template <class T, int N>
SMX_LANE_LOOP int invert(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const Shaped<T, N, N> src{plan.source[0].operand}, dst{plan.result[0]};
    // To bring so little into the widest lanes and back takes longer than to compute half as many at once.
    if (pack_bytes == 64 && N == 3 && sizeof(T) == 8 && splits_registers() &&
        !is_known(LaneAccess<T, N, N>(dst.o), Known::planes))
        return first;
    const auto body = [&](int n, const auto &from, const auto &to) {
        Num a[N][N], inverse[N][N];
        Cofactors<Num, N> cofactors;
        Failure<Num> failure;
        from.load(n, &a[0][0]);
        cofactors.invert(a, inverse, failure, [](Num det) { return !(magnitude(det) >= size_cubed_tolerance<T>(N)); });
        if (failure.any()) return false;
        to.store(n, &inverse[0][0]);
        return true;
    };
    using enum Known;
    if constexpr (N <= 5) return each_group_by<T, packed, strided, listed, planes>(plan, first, body, src, dst);
    else if constexpr (sizeof(T) == 8) return each_group_by<T, packed, dense, planes>(plan, first, body, src, dst);
    else return each_group_by<T, packed, planes>(plan, first, body, src, dst);
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
