#include "lanes_affine.hpp"

#include "family_products_core.hpp"
#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

SMX_LANE_LOOP int affine_lanes(const LanePlan &plan, bool *bad, int first) {
    if constexpr (few_lanes) return first;
    using Num = Pack<float>;
    const LaneAccess<float, 4, 4> matrix(plan.source[0].operand);
    const LaneAccess<float, 1, 3> src(plan.source[1].operand), dst(plan.result[0]);
    Num m[4][4];
    matrix.load(0, &m[0][0]);
    Mask<float> good(true);
    using enum Known;
    const int done = each_group_by<float, packed, strided, planes>(
        plan, first,
        [&](int n, const auto &from, const auto &to) {
            Num point[3], out[3];
            from.load(n, point);
            Mask<float> fine = transform_point(m, point, out);
            if constexpr (std::remove_cvref_t<decltype(from)>::few) fine = fine | !from.objects();
            good = good & fine;
            to.store(n, out);
            return true;
        },
        src, dst);
    *bad = *bad || !all(good);
    return done;
}

} // namespace SMX_ISA
} // namespace smx
