#include "lanes_lu.hpp"

#include "family_lu_core.hpp"
#include "frame_lane_loops.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

// Rows are exchanged by selects: an address a lane would cost more.
template <int N, class Num>
[[gnu::always_inline]] inline void to_physical_order(const Num (&physical)[N], const Num (&row)[N][N],
                                                     Num (&out)[N][N]) {
    using T = ElementOfNumber<Num>;
#pragma GCC unroll 6
    for (int r = 0; r < N; ++r) {
#pragma GCC unroll 6
        for (int j = 0; j < N; ++j) out[r][j] = row[0][j];
#pragma GCC unroll 6
        for (int i = 1; i < N; ++i) {
            const auto here = physical[i] == static_cast<T>(r);
#pragma GCC unroll 6
            for (int j = 0; j < N; ++j) out[r][j] = select(here, row[i][j], out[r][j]);
        }
    }
}
template <int N, int C, class Num>
[[gnu::always_inline]] inline void to_logical_order(const Num (&physical)[N], const Num (&stored)[N][C],
                                                    Num (&out)[N][C]) {
    using T = ElementOfNumber<Num>;
#pragma GCC unroll 6
    for (int i = 0; i < N; ++i) {
#pragma GCC unroll 6
        for (int j = 0; j < C; ++j) out[i][j] = stored[0][j];
#pragma GCC unroll 6
        for (int r = 1; r < N; ++r) {
            const auto here = physical[i] == static_cast<T>(r);
#pragma GCC unroll 6
            for (int j = 0; j < C; ++j) out[i][j] = select(here, stored[r][j], out[i][j]);
        }
    }
}

// The pivot indexes of a group, N packed integers an object. Where lanes can be rearranged, the integers are converted
// as they lie: put together or taken apart one by one in memory, they would have to wait for each other.
template <class T, int N>
[[gnu::always_inline]] inline void store_pivots(int *pivots, const Pack<T> (&physical)[N]) {
    constexpr int W = Pack<T>::width;
    using Ints = typename VectorOf<T>::Indexes;
    if constexpr (rearranges) {
        Pack<T> together[N];
        put_together<T, N>(physical, together);
#pragma GCC unroll 6
        for (int k = 0; k < N; ++k) {
            const Ints part = __builtin_convertvector(together[k].v, Ints);
            std::memcpy(pivots + k * W, &part, sizeof part);
        }
    } else {
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            const Ints row = __builtin_convertvector(physical[i].v, Ints);
            for (int l = 0; l < W; ++l) pivots[l * N + i] = row[l];
        }
    }
}
template <class T, int N>
[[gnu::always_inline]] inline bool load_pivots(const int *pivots, Pack<T> (&physical)[N]) {
    constexpr int W = Pack<T>::width;
    using Ints = typename VectorOf<T>::Indexes;
    const auto converted = [](Ints v) { return Pack<T>(__builtin_convertvector(v, typename Pack<T>::Vector)); };
    if constexpr (rearranges) {
        Pack<T> together[N];
#pragma GCC unroll 6
        for (int k = 0; k < N; ++k) {
            Ints part;
            std::memcpy(&part, pivots + k * W, sizeof part);
            together[k] = converted(part);
        }
        take_apart<T, N>(together, physical);
    } else {
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            Ints v = {};
            for (int l = 0; l < W; ++l) v[l] = pivots[l * N + i];
            physical[i] = converted(v);
        }
    }
    Mask<T> bad(false);
#pragma GCC unroll 6
    for (int i = 0; i < N; ++i) bad = bad | (physical[i] < T(0)) | (physical[i] > T(N - 1));
    return !any(bad);
}

template <class T, int N>
SMX_LANE_LOOP int decompose(const LanePlan &plan, int *pivots, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> src(plan.source[0].operand), dst(plan.result[0]);
    const auto body = [pivots](int n, const auto &from, const auto &to) {
        LUFactors<Num, N> factors;
        Failure<Num> failure;
        from.load(n, &factors.row[0][0]);
        factors.decompose(failure);
        if (failure.any()) return false;
        Num out[N][N];
        to_physical_order(factors.physical, factors.row, out);
        to.store(n, &out[0][0]);
        store_pivots<T, N>(pivots + static_cast<std::ptrdiff_t>(n) * N, factors.physical);
        return true;
    };
    using enum Known;
    if constexpr (N <= 5) return each_group_by<T, packed, strided, listed, planes>(plan, first, body, src, dst);
    else return each_group_by<T, packed, planes>(plan, first, body, src, dst);
}

// One matrix for all vectors: everything that depends on it alone is made once.
template <class T, int N>
SMX_LANE_LOOP int solve_one_matrix(const LanePlan &plan, const int *pivots, const T *reciprocal, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    Num f[N][N];
    for (int i = 0; i < N; ++i) {
        if (pivots[i] < 0 || pivots[i] >= N) return first;
        for (int j = 0; j < N; ++j) f[i][j] = Num(load_element<T>(matrix.address(0, pivots[i], j)));
    }
    return each_group<T>(plan, first, [&](int n) {
        Num right[N], b[N], x[N];
        rhs.load(n, right);
        for (int i = 0; i < N; ++i) b[i] = right[pivots[i]];
        lu_solve(f, b, x, [&](Num value, int i) { return value * Num(reciprocal[i]); });
        dst.store(n, x);
        return true;
    });
}

template <class T, int N>
SMX_LANE_LOOP int solve(const LanePlan &plan, const int *pivots, const void *reciprocals, int first) {
    using Num = Pack<T>;
    if (reciprocals != nullptr) return solve_one_matrix<T, N>(plan, pivots, static_cast<const T *>(reciprocals), first);
    const LaneAccess<T, N, N> matrix(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    const auto body = [pivots](int n, const auto &factors, const auto &from, const auto &to) {
        Num physical[N], stored[N][N], f[N][N], right[N][1], b[N][1], x[N];
        // An index that leaves its object reads what lies there: the sequential kernel does that.
        if (!load_pivots<T, N>(pivots + static_cast<std::ptrdiff_t>(n) * N, physical)) return false;
        factors.load(n, &stored[0][0]);
        from.load(n, &right[0][0]);
        to_logical_order(physical, stored, f);
        to_logical_order(physical, right, b);
        lu_solve(f, reinterpret_cast<const Num(&)[N]>(b), x, [&](Num value, int i) { return value / f[i][i]; });
        to.store(n, x);
        return true;
    };
    using enum Known;
    if constexpr (N <= 4) return each_group_by<T, packed, strided, listed, planes>(plan, first, body, matrix, rhs, dst);
    else return each_group_by<T, dense, planes>(plan, first, body, matrix, rhs, dst);
}

} // namespace

int lu_decompose_lanes(const LanePlan &plan, int *pivots, int side, int first) {
    if (few_lanes && plan.result[0].element == sizeof(double)) return first;
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        return decompose<decltype(zero), decltype(s)::value>(plan, pivots, first);
    });
}
int lu_solve_lanes(const LanePlan &plan, const int *pivots, const void *reciprocals, int side, int first) {
    if constexpr (few_lanes) return first;
    return by_type_and_side(plan, plan.result[0].element, side, first, [&](auto zero, auto s) {
        return solve<decltype(zero), decltype(s)::value>(plan, pivots, reciprocals, first);
    });
}

} // namespace SMX_ISA
} // namespace smx
