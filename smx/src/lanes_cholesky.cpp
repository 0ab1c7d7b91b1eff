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
    const Access &all;
    explicit LowerAccess(const Access &access) : all(access) {}

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

// The lower triangle of dense objects, object after object: row i is the run of i + 1 elements from i * N on.
template <class T, int N, int i = 0, int j = 0, class Rows, class... Earlier>
[[gnu::always_inline]] inline void store_lower_rows(const Rows &rows, const Pack<T> *all, const Earlier &...earlier) {
    if constexpr (i == N) {
        store_pieces<T>(rows, 0, earlier...);
    } else {
        constexpr Piece piece = piece_from<T, i + 1>(j, stores_long_chunks<T>);
        constexpr bool last = piece.next == i + 1;
        const Outgoing<T, Piece{i * N + piece.first, piece.elements, 0}> outgoing(all);
        store_lower_rows<T, N, last ? i + 1 : i, last ? 0 : piece.next>(rows, all, earlier..., outgoing);
    }
}

// Objects of a layout that is known are loaded whole, which nobody can tell: their first and their last element are of
// the lower triangle.
template <class T, int N, class Matrices>
[[gnu::always_inline]] inline void load_lower(const Matrices &matrices, int n, CholeskyFactor<Pack<T>, N> &factor) {
    if constexpr (requires { matrices.rows(n); }) matrices.load(n, &factor.row[0][0]);
    else LowerAccess<T, N>(matrices.access).load(n, factor);
}
template <class T, int N, class Matrices>
[[gnu::always_inline]] inline void store_lower(const Matrices &matrices, int n,
                                               const CholeskyFactor<Pack<T>, N> &factor) {
    if constexpr (requires { matrices.rows(n); }) store_lower_rows<T, N>(matrices.rows(n), &factor.row[0][0]);
    else LowerAccess<T, N>(matrices.access).store(n, factor);
}

// Calls each_group_by() for small objects, of which the way of the loads is a large part.
template <class T, int N, class Body, class... Operands>
[[gnu::always_inline]] inline int each_small_group(const LanePlan &plan, int first, Body body,
                                                   const Operands &...operands) {
    using enum Known;
    if constexpr (N <= 4) return each_group_by<T, packed, strided, listed>(plan, first, body, operands...);
    else return each_group_by<T>(plan, first, body, operands...);
}

template <class T, int N>
SMX_LANE_LOOP int decompose(const LanePlan &plan, T bound, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> src(plan.source[0].operand), dst(plan.result[0]);
    const auto body = [&](int n, const auto &from, const auto &to) {
        CholeskyFactor<Num, N> factor;
        Failure<Num> failure;
        load_lower<T, N>(from, n, factor);
        factor.decompose(failure, [&](Num radicand, int) { return !(radicand > bound); });
        if (failure.any()) return false;
        store_lower<T, N>(to, n, factor);
        return true;
    };
    return each_small_group<T, N>(plan, first, body, src, dst);
}

template <class T, int N>
SMX_LANE_LOOP int solve(const LanePlan &plan, int first) {
    using Num = Pack<T>;
    const LaneAccess<T, N, N> matrices(plan.source[0].operand);
    const LaneAccess<T, 1, N> rhs(plan.source[1].operand), dst(plan.result[0]);
    if (matrices.o.single) {
        CholeskyFactor<Num, N> factor;
        LowerAccess<T, N>(matrices).load(0, factor);
        return each_group<T>(plan, first, [&](int n) {
            Num x[N];
            rhs.load(n, x);
            factor.solve(x);
            dst.store(n, x);
            return true;
        });
    }
    const auto body = [](int n, const auto &factors, const auto &from, const auto &to) {
        CholeskyFactor<Num, N> factor;
        Num x[N];
        load_lower<T, N>(factors, n, factor);
        from.load(n, x);
        factor.solve(x);
        to.store(n, x);
        return true;
    };
    return each_small_group<T, N>(plan, first, body, matrices, rhs, dst);
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
