#include "lanes_qr.hpp"

#include "family_qr_core.hpp"
#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <class T, int W, int H>
SMX_LANE_LOOP int decompose(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, H, W> src(plan.source[0].operand), dst(plan.result[0]);
    return each_group<T>(plan, first, [&](int n) {
        QRObject<Num, W, H> object;
        Failure<Num> failure;
        src.load(n, &object.a[0][0]);
        object.decompose(failure);
        if (failure.any()) return false;
        dst.store(n, &object.a[0][0]);
        return true;
    });
}

template <class T, int W, int H>
SMX_LANE_LOOP int solve(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, H, W> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, H> rhs(plan.source[1].operand);
    const LaneAccess<T, 1, W> dst(plan.result[0]);
    QRObject<Num, W, H> object;
    const bool single = plan.source[0].operand.single;
    if (single) matrix.load(0, &object.a[0][0]);
    return each_group<T>(plan, first, [&](int n) {
        if (!single) matrix.load(n, &object.a[0][0]);
        rhs.load(n, object.v);
        object.solve();
        dst.store(n, object.x);
        return true;
    });
}

} // namespace

int qr_decompose_lanes(const LanePlan &plan, int width, int height, int first) {
    int done = first;
    with_fixed_shape(width, height, [&](auto w, auto h) {
        done = plan.result[0].element == sizeof(float) ? decompose<float, w.value, h.value>(plan, first)
                                                       : decompose<double, w.value, h.value>(plan, first);
    });
    return done;
}
int qr_solve_lanes(const LanePlan &plan, int width, int height, int first) {
    int done = first;
    with_fixed_shape(width, height, [&](auto w, auto h) {
        done = plan.result[0].element == sizeof(float) ? solve<float, w.value, h.value>(plan, first)
                                                       : solve<double, w.value, h.value>(plan, first);
    });
    return done;
}

} // namespace SMX_ISA
} // namespace smx
