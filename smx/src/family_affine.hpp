// Affine (projective) transform of 3D points by a 4 by 4 matrix, with the perspective division.
//
//   Formula   t[r] = ((m[r][0] x + m[r][3]) + m[r][1] y) + m[r][2] z for the four rows; dst = t[0..2] times 1 / t[3].
//   Order     the matrix is read once, then objects ascending; a point is read whole before its result is stored.
//   Status    smxStsDivByZeroErr if a point had a w = t[3] of at most the smallest normal number in magnitude, or not a
//             number. The pass goes on.
//   Written   all results; that of a bad point is the greatest finite float in all three elements.
//   In place  dst may be src2 with the same strides.
#pragma once

#include "family_products_core.hpp"
#include "frame_module.hpp"
#include "lanes_affine.hpp"

namespace smx {
inline namespace SMX_ISA {

struct AffineTransform {
    template <class Tier, class M, class A, class D>
    static SmxStatus run(Tier, const M &matrix, const A &points, const D &dst, Count count) {
        using T = ElementOf<D>;
        T m[4][4];
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = matrix.object(0)(i, j);
        bool bad = false;
        const LanePlan plan =
            lane_plan(count.value, {{matrix.lanes(4, 4), SameObject::any}, {points.lanes(1, 3), SameObject::any}},
                      {dst.lanes(1, 3)});
        for_each_object<T>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, affine_lanes, plan, &bad); },
            [&](int first, int last) {
                for (int n = first; n < last; ++n) {
                    T point[3], out[3];
                    for (int i = 0; i < 3; ++i) point[i] = points.object(n)(i);
                    if (!transform_point(m, point, out)) bad = true;
                    for (int i = 0; i < 3; ++i) dst.object(n)(i) = out[i];
                }
                return SmxStatus{smxStsNoErr};
            });
        return bad ? smxStsDivByZeroErr : smxStsNoErr;
    }
};

} // namespace SMX_ISA
} // namespace smx
