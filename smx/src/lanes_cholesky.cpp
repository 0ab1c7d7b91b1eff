#include "lanes_cholesky.hpp"

#include "family_cholesky_core.hpp"
#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// Rows of a lower triangle, whose other elements are neither read nor written.
template <class T, int N>
struct LowerAccess {
    using Num = Pack<T>;
    using Access = LaneAccess<T, N, N>;
    const Access all;
    explicit LowerAccess(const LaneOperand &operand) : all(operand) {}

    template <int i = 0>
    [[gnu::always_inline]] void load_rows(const Byte *const *rows, CholeskyFactor<Num, N> &factor) const {
        load_run<T, i + 1>(rows, i * all.o.stride1, factor.row[i]);
        if constexpr (i + 1 < N) load_rows<i + 1>(rows, factor);
    }
    template <int i = 0>
    [[gnu::always_inline]] void store_rows(const Byte *const *rows, const CholeskyFactor<Num, N> &factor) const {
        store_run<T, i + 1>(rows, i * all.o.stride1, factor.row[i]);
        if constexpr (i + 1 < N) store_rows<i + 1>(rows, factor);
    }
    [[gnu::always_inline]] void load(int n, CholeskyFactor<Num, N> &factor) const {
        if (all.way == Access::Way::rows && !all.o.single) {
            const Byte *here[Num::width];
            load_rows(all.rows_of(n, here), factor);
            return;
        }
        for (int i = 0; i < N; ++i)
            for (int j = 0; j <= i; ++j)
                if (all.o.single) {
                    factor.row[i][j] = Num(load_element<T>(all.address(0, i, j)));
                } else if (all.way == Access::Way::across) {
                    factor.row[i][j] = load_pack<T>(all.address(n, i, j));
                } else {
                    T lanes[Num::width];
                    for (int l = 0; l < Num::width; ++l) lanes[l] = load_element<T>(all.address(n + l, i, j));
                    factor.row[i][j] = load_pack<T>(lanes);
                }
    }
    [[gnu::always_inline]] void store(int n, const CholeskyFactor<Num, N> &factor) const {
        if (all.way == Access::Way::rows) {
            const Byte *here[Num::width];
            store_rows(all.rows_of(n, here), factor);
            return;
        }
        for (int i = 0; i < N; ++i)
            for (int j = 0; j <= i; ++j)
                if (all.way == Access::Way::across) {
                    store_pack(const_cast<Byte *>(all.address(n, i, j)), factor.row[i][j]);
                } else {
                    T lanes[Num::width];
                    store_pack(lanes, factor.row[i][j]);
                    for (int l = 0; l < Num::width; ++l) store_element(all.address(n + l, i, j), lanes[l]);
                }
    }
};

template <class T, int N>
SMX_LANE_LOOP int decompose(const LanePlan &plan, T bound, int first) {
    using Num = Pack<T>;
    const LowerAccess<T, N> src(plan.source[0].operand), dst(plan.result[0]);
    return each_group<T>(plan, first, [&](int n) {
        CholeskyFactor<Num, N> factor;
        Failure<Num> failure;
        src.load(n, factor);
        factor.decompose(failure, [&](Num radicand, int) { return !(radicand > bound); });
        if (failure.any()) return false;
        dst.store(n, factor);
        return true;
    });
}

template <class T, int N>
SMX_LANE_LOOP int solve(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LowerAccess<T, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    CholeskyFactor<Num, N> factor;
    const bool single = plan.source[0].operand.single;
    if (single) matrix.load(0, factor);
    return each_group<T>(plan, first, [&](int n) {
        Num x[N];
        if (!single) matrix.load(n, factor);
        rhs.load(n, x);
        factor.solve(x);
        dst.store(n, x);
        return true;
    });
}

} // namespace

int cholesky_decompose_lanes(const LanePlan &plan, double radicand_bound, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        using T = decltype(zero);
        return decompose<T, decltype(s)::value>(plan, static_cast<T>(radicand_bound), first);
    });
}
int cholesky_solve_lanes(const LanePlan &plan, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first,
                            [&](auto zero, auto s) { return solve<decltype(zero), decltype(s)::value>(plan, first); });
}

} // namespace SMX_ISA
} // namespace smx
