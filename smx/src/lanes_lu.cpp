#include "lanes_lu.hpp"

#include "family_lu_core.hpp"
#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <class T, int N>
int decompose(const LanePlan &plan, int *pivots, int first) {
    using Num = Pack<T>;
    constexpr int W = Num::width;
    const LaneAccess<T, N, N> src(plan.source[0].operand), dst(plan.result[0]);
    return each_group<T>(plan, first, [&](int n) {
        LUFactors<Num, N> factors;
        Failure<Num> failure;
        src.load(n, &factors.row[0][0]);
        factors.decompose(failure);
        if (failure.any()) return false;
        int row[W];
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            T physical[W];
            store_pack(physical, factors.physical[i]);
            for (int l = 0; l < W; ++l) row[l] = static_cast<int>(physical[l]);
            for (int l = 0; l < W; ++l) pivots[static_cast<std::ptrdiff_t>(n + l) * N + i] = row[l];
            dst.store_rows(n, row, factors.row[i]);
        }
        return true;
    });
}

// One matrix for all vectors: everything that depends on it alone is made once.
template <class T, int N>
int solve_one_matrix(const LanePlan &plan, const int *pivots, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    Num f[N][N], reciprocal[N];
    for (int i = 0; i < N; ++i) {
        if (pivots[i] < 0 || pivots[i] >= N) return first;
        for (int j = 0; j < N; ++j) f[i][j] = Num(load_element<T>(matrix.address(0, pivots[i], j)));
        reciprocal[i] = T(1) / f[i][i];
    }
    return each_group<T>(plan, first, [&](int n) {
        Num right[N], b[N], x[N];
        rhs.load(n, right);
        for (int i = 0; i < N; ++i) b[i] = right[pivots[i]];
        lu_solve(f, b, x, [&](Num value, int i) { return value * reciprocal[i]; });
        dst.store(n, x);
        return true;
    });
}

template <class T, int N>
int solve(const LanePlan &plan, const int *pivots, int first) {
    using Num = Pack<T>;
    constexpr int W = Num::width;
    if (plan.source[0].operand.single) return solve_one_matrix<T, N>(plan, pivots, first);
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    return each_group<T>(plan, first, [&](int n) {
        Num f[N][N], b[N], x[N];
        int row[W];
        T right[W];
        for (int i = 0; i < N; ++i) {
            for (int l = 0; l < W; ++l) row[l] = pivots[static_cast<std::ptrdiff_t>(n + l) * N + i];
            matrix.load_rows(n, row, f[i]);
            for (int l = 0; l < W; ++l) right[l] = load_element<T>(rhs.address(n + l, 0, row[l]));
            b[i] = load_pack<T>(right);
        }
        lu_solve(f, b, x, [&](Num value, int i) { return value / f[i][i]; });
        dst.store(n, x);
        return true;
    });
}

} // namespace

int lu_decompose_lanes(const LanePlan &plan, int *pivots, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        return decompose<decltype(zero), decltype(s)::value>(plan, pivots, first);
    });
}
int lu_solve_lanes(const LanePlan &plan, const int *pivots, int side, int first) {
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        return solve<decltype(zero), decltype(s)::value>(plan, pivots, first);
    });
}

} // namespace SMX_ISA
} // namespace smx
