// Cholesky decomposition A = L Lt of symmetric positive definite matrices, and its back substitution A x = b.
//
// Only lower triangles are read and written. The factor's diagonal holds 1 / L[i][i], so that no solve divides.
//
//   Paths      sides 3 to 6 in a local copy, else loops through dst.
//   Order      row by row; products are subtracted one by one, in rising order (falling in the second pass of a solve).
//   Test       a row fails when its radicand is at or below a bound or not a number. The bound is 0, but for the
//              members that RadicandTest names.
//   Status     smxStsNotPosDefErr at the first failing row. An array kernel stops there. A solve cannot fail.
//   Written    rows before the failing one and what stands left of its diagonal; in the pointer layout, sides 3 to 6,
//              nothing of the failing row, and of row 0 as held_back_row() tells.
//   In place   dst may be src, and in a solve src2.
#pragma once

#include "family_cholesky_core.hpp"
#include "frame_module.hpp"
#include "lanes_cholesky.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T>
struct RadicandTest {
    T bound = 0;
    bool reversed = false; // rows 0 and 2 ask for bound >= radicand, which a not-a-number passes
    bool fails(T radicand, int row) const {
        return reversed && (row == 0 || row == 2) ? bound >= radicand : !(radicand > bound);
    }
};
// The odd members: the pointer layout at side 3 has float's epsilon for both types, and its single kernel reversed
// tests; the strided array kernel for double has an epsilon at side 6 and wherever it takes the general path.
template <class Tier, class T, bool array>
constexpr RadicandTest<T> radicand_test(int side) {
    if (std::is_same_v<Tier, P> && side == 3) return {static_cast<T>(0x1p-23), !array};
    if (std::is_same_v<Tier, S2> && std::is_same_v<T, double> && array && (side < 3 || side > 5))
        return {static_cast<T>(0x1p-52), false};
    return {};
}
// In the pointer layout's single kernel row 0 waits for the test of row 1, but at side 4.
template <class Tier, bool array>
constexpr bool held_back_row(int side) {
    return std::is_same_v<Tier, P> && !array && side != 4;
}

template <class T, class A, class D>
SmxStatus cholesky_decompose_general(const A &src, const D &dst, int n, RadicandTest<T> test) {
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j) {
            T value = src(i, j);
            for (int t = 0; t < j; ++t) value -= dst(i, t) * dst(j, t);
            dst(i, j) = value * dst(j, j);
        }
        T radicand = src(i, i);
        for (int t = 0; t < i; ++t) radicand -= dst(i, t) * dst(i, t);
        if (test.fails(radicand, i)) return smxStsNotPosDefErr;
        dst(i, i) = T(1) / square_root(radicand);
    }
    return smxStsNoErr;
}

template <class T, int N>
[[gnu::noinline]] int cholesky_decompose_local(CholeskyFactor<T, N> &factor, RadicandTest<T> test) {
    Failure<T> failure;
    return factor.decompose(failure, [&](T radicand, int row) { return test.fails(radicand, row); });
}

struct CholeskyDecomposition {
    template <class Tier, bool array, int N, class A, class D>
    static SmxStatus local(const A &src, const D &dst) {
        using T = typename D::Value;
        CholeskyFactor<T, N> factor;
        for (int i = 0; i < N; ++i)
            for (int j = 0; j <= i; ++j) factor.row[i][j] = src(i, j);
        const int failed = cholesky_decompose_local(factor, radicand_test<Tier, T, array>(N));
        const int rows = failed == 1 && held_back_row<Tier, array>(N) ? 0 : failed;
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j <= i; ++j) dst(i, j) = factor.row[i][j];
        if (failed == N) return smxStsNoErr;
        if (!std::is_same_v<Tier, P>)
            for (int j = 0; j < failed; ++j) dst(failed, j) = factor.row[failed][j];
        return smxStsNotPosDefErr;
    }

    // `general` runs the general path for object n.
    template <class Tier, class A, class D, class General>
    static SmxStatus objects(Tier, const A &src, const D &dst, int side, int count, General general) {
        using T = ElementOf<D>;
        constexpr bool array = !is_single<D>;
        if (!is_written_out(side)) return until_failure(general)(0, count);
        const auto objects_written_out = until_failure(
            side, [&]<int N>(Side<N>, int n) { return local<Tier, array, N>(src.object(n, N), dst.object(n, N)); });
        if constexpr (array) {
            const double bound = static_cast<double>(radicand_test<Tier, T, array>(side).bound);
            const LanePlan plan = lane_plan(count, {{src.lanes(side, side), SameObject::any}}, {dst.lanes(side, side)});
            return for_each_object<T>(
                plan, [&](int n) { return SMX_ON_ALL_LANES(n, cholesky_decompose_lanes, plan, bound, side); },
                objects_written_out);
        } else {
            return objects_written_out(0, 1);
        }
    }

    template <class Tier, class A, class D>
    static SmxStatus run(Tier tier, const A &src, const D &dst, Size<Role::side> side, Count count = 1) {
        using T = ElementOf<D>;
        return objects(tier, src, dst, side.value, count.value, [&](int n) {
            return cholesky_decompose_general<T>(src.object(n, side.value), dst.object(n, side.value), side.value,
                                                 radicand_test<Tier, T, !is_single<D>>(side.value));
        });
    }
    // The pointer layout's array kernel calls the single one for its general path.
    template <class Tier, class Call, class A, class D>
    static SmxStatus run(Tier tier, const Inner<Call> &single, const A &src, const D &dst, Size<Role::side> side,
                         Count count) {
        using T = ElementOf<D>;
        return objects(tier, src, dst, side.value, count.value, [&](int n) {
            if (all_fit(n, src, dst)) return single.call(n);
            return cholesky_decompose_general<T>(src.object(n, side.value), dst.object(n, side.value), side.value,
                                                 radicand_test<Tier, T, false>(side.value));
        });
    }
};

struct CholeskyBackSubstitution {
    template <class A, class B, class X>
    static void general(const A &f, const B &b, const X &x, int n) {
        using T = typename X::Value;
        for (int i = 0; i < n; ++i) {
            T value = b(i);
            for (int j = 0; j < i; ++j) value -= f(i, j) * x(j);
            x(i) = value * f(i, i);
        }
        for (int i = n - 1; i >= 0; --i) {
            T value = x(i);
            for (int j = n - 1; j > i; --j) value -= f(j, i) * x(j);
            x(i) = value * f(i, i);
        }
    }

    template <class T, int N>
    [[gnu::noinline]] static void solve_local(const CholeskyFactor<T, N> &factor, T (&x)[N]) {
        factor.solve(x);
    }
    template <int N, class A, class B, class X>
    static void local(const A &matrix, const B &b, const X &dst) {
        using T = typename X::Value;
        CholeskyFactor<T, N> factor;
        T x[N];
        for (int i = 0; i < N; ++i) {
            x[i] = b(i);
            for (int j = 0; j <= i; ++j) factor.row[i][j] = matrix(i, j);
        }
        solve_local(factor, x);
        for (int i = 0; i < N; ++i) dst(i) = x[i];
    }

    // The pointer layout's kernel of matrix and vector arrays in double has no path written out for side 6.
    template <class Tier, class A, class X>
    static constexpr bool is_written(int side) {
        return !(side == 6 && std::is_same_v<Tier, P> && std::is_same_v<ElementOf<X>, double> && !is_single<A>);
    }

    template <class Tier, class A, class B, class X, class General>
    static SmxStatus objects(Tier, const A &matrix, const B &b, const X &dst, int side, int count,
                             General general_object) {
        using T = ElementOf<X>;
        if (!is_written_out(side)) {
            for (int n = 0; n < count; ++n) general_object(n);
            return smxStsNoErr;
        }
        const auto objects_written_out = until_failure(side, [&]<int N>(Side<N>, int n) -> SmxStatus {
            if constexpr (is_written<Tier, A, X>(N)) local<N>(matrix.object(n, N), b.object(n), dst.object(n));
            else general(matrix.object(n, N), b.object(n), dst.object(n), N);
            return smxStsNoErr;
        });
        if constexpr (is_single<X>) {
            return objects_written_out(0, 1);
        } else {
            const bool written = is_written<Tier, A, X>(side);
            const LanePlan plan = lane_plan(count,
                                            {{matrix.lanes(side, side), written ? SameObject::any : SameObject::none},
                                             {b.lanes(1, side), written ? SameObject::any : SameObject::identical}},
                                            {dst.lanes(1, side)});
            return for_each_object<T>(
                plan, [&](int n) { return SMX_ON_ALL_LANES(n, cholesky_solve_lanes, plan, side); },
                objects_written_out);
        }
    }

    template <class Tier, class A, class B, class X>
    static SmxStatus run(Tier tier, const A &matrix, const B &b, const X &dst, Size<Role::side> side, Count count = 1) {
        return objects(tier, matrix, b, dst, side.value, count.value,
                       [&](int n) { general(matrix.object(n, side.value), b.object(n), dst.object(n), side.value); });
    }
    // One kernel calls the one of a single vector for its general path.
    template <class Tier, class Call, class A, class B, class X>
    static SmxStatus run(Tier tier, const Inner<Call> &single, const A &matrix, const B &b, const X &dst,
                         Size<Role::side> side, Count count) {
        return objects(tier, matrix, b, dst, side.value, count.value, [&](int n) { single.call(n); });
    }
};

} // namespace SMX_ISA
} // namespace smx
