// LU decomposition with partial pivoting, P A = L U, and its back substitution A x = b.
//
// Rows are never moved: logical row i of the factorization is physical row r(i) = pivotIndex[i] of dst.
//
//   Paths      decomposition: sides 3 to 6 in a local copy, all others in place in dst by the `_com` kernels (for a
//              single matrix or each of an array). Back substitution: sides 3 to 6 written out, else loops through dst.
//   Pivot      the greatest magnitude of the column, the lowest logical row among equals; a not-a-number never
//              replaces a candidate.
//   Tolerance  absolute, and another one in each path (LUTolerance). The local path's last test reads the element
//              at physical row n-1 of the copy, which is the last pivot only if r(n-1) is n-1.
//   Status     smxStsSingularErr at the first failing test. An array kernel stops there.
//   Written    general path: the copy with the eliminations and exchanges before the failing step. Local path: the rows
//              finished before the failing step and the exchanges up to and with it; in the pointer layout no row.
//   In place   dst may be src. Back substitution: src2 may be dst for sides 3 to 6.
#pragma once

#include "family_lu_core.hpp"
#include "frame_module.hpp"
#include "lanes_lu.hpp"

namespace smx {
inline namespace SMX_ISA {

// The general path of one matrix, in place in dst.
template <class T, class A, class D>
SmxStatus lu_decompose_in_place(const A &src, int *r, const D &dst, int n) {
    constexpr T tolerance = LUTolerance<T>::general;
    const auto fails = [](T pivot) { return !(magnitude(pivot) > tolerance); };
    for (int i = 0; i < n; ++i) {
        r[i] = i;
        for (int j = 0; j < n; ++j) dst(i, j) = src(i, j);
    }
    for (int k = 0; k < n - 1; ++k) {
        int best = k;
        T pivot = dst(r[k], k);
        for (int i = k + 1; i < n; ++i)
            if (magnitude(dst(r[i], k)) > magnitude(pivot)) {
                pivot = dst(r[i], k);
                best = i;
            }
        if (fails(pivot)) return smxStsSingularErr;
        if (best != k) {
            const int row = r[k];
            r[k] = r[best];
            r[best] = row;
        }
        const T reciprocal = T(1) / dst(r[k], k);
        for (int i = k + 1; i < n; ++i) dst(r[i], k) = dst(r[i], k) * reciprocal;
        for (int i = k + 1; i < n; ++i)
            for (int j = k + 1; j < n; ++j) dst(r[i], j) = dst(r[i], j) - dst(r[i], k) * dst(r[k], j);
    }
    return fails(dst(r[n - 1], n - 1)) ? smxStsSingularErr : smxStsNoErr;
}

struct LUDecomposition {
    // One matrix by the local copy. The pointer layout stores all rows at the end, the others those that are finished.
    template <int N, bool store_at_end, class A, class D>
    static SmxStatus local(const A &src, int *r, const D &dst) {
        using T = typename D::Value;
        LUFactors<T, N> factors;
        Failure<T> failure;
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j) factors.row[i][j] = src(i, j);
        const int step = factors.decompose(failure);
        for (int i = 0; i < N; ++i) r[i] = factors.physical[i];
        if (step == N || !store_at_end)
            for (int i = 0; i < step; ++i)
                for (int j = 0; j < N; ++j) dst(r[i], j) = factors.row[i][j];
        return step == N ? smxStsNoErr : smxStsSingularErr;
    }

    // Kernels of one matrix and of an array; `general` calls the `_com` kernel for object n.
    template <class Tier, class Call, class A, class R, class D>
    static SmxStatus objects(Tier, const Inner<Call> &general, const A &src, const R &pivots, const D &dst, int side,
                             int count) {
        if (is_written_out(side)) {
            const auto objects_written_out = until_failure(side, [&]<int N>(Side<N>, int n) {
                return local<N, std::is_same_v<Tier, P>>(src.object(n, N), pivots.object(n), dst.object(n, N));
            });
            if constexpr (is_single<D>) {
                return objects_written_out(0, 1);
            } else {
                const LanePlan plan = lane_plan(count, {{src.lanes(side, side), SameObject::any}},
                                                {dst.lanes(side, side), pivots.lanes(side)});
                return for_each_object<ElementOf<D>>(
                    plan, [&](int n) { return SMX_ON_ALL_LANES(n, lu_decompose_lanes, plan, pivots.base, side); },
                    objects_written_out);
            }
        }
        SmxStatus status = smxStsNoErr;
        for (int n = 0; n < count && status == smxStsNoErr; ++n)
            if (all_fit(n, src, dst)) status = general.call(n);
            else // the object's shift is no int
                status = lu_decompose_in_place<ElementOf<D>>(src.object(n, side), pivots.object(n), dst.object(n, side),
                                                             side);
        return status;
    }

    template <class Tier, class Call, class A, class R, class D>
    static SmxStatus run(Tier tier, const Inner<Call> &general, const A &src, const R &pivots, const D &dst,
                         Size<Role::side> side) {
        return objects(tier, general, src, pivots, dst, side.value, 1);
    }
    template <class Tier, class Call, class A, class R, class D>
    static SmxStatus run(Tier tier, const Inner<Call> &general, const A &src, const R &pivots, const D &dst,
                         Size<Role::side> side, Count count) {
        return objects(tier, general, src, pivots, dst, side.value, count.value);
    }
};

// The `_com` kernels: the general path alone.
struct LUGeneral {
    template <class Tier, class A, class R, class D>
    static SmxStatus run(Tier, const A &src, const R &pivots, const D &dst, Size<Role::side> side) {
        return lu_decompose_in_place<ElementOf<D>>(src.object(0, side.value), pivots.object(0),
                                                   dst.object(0, side.value), side.value);
    }
};

struct LUBackSubstitution {
    template <class A, class B, class X>
    static void general(const A &f, const int *r, const B &b, const X &x, int n) {
        using T = typename X::Value;
        x(0) = b(r[0]);
        for (int i = 1; i < n; ++i) {
            T sum = 0;
            for (int j = 0; j < i; ++j) sum += f(r[i], j) * x(j);
            x(i) = b(r[i]) - sum;
        }
        x(n - 1) = x(n - 1) / f(r[n - 1], n - 1);
        for (int i = n - 2; i >= 0; --i) {
            T sum = 0;
            for (int j = i + 1; j < n; ++j) sum += f(r[i], j) * x(j);
            x(i) = (x(i) - sum) / f(r[i], i);
        }
    }

    // One solve with everything read first. `reciprocal` is null, or the diagonal's reciprocals.
    template <int N, class T, class A, class B, class X>
    static void local(const A &matrix, const int *r, const B &rhs, const X &dst, const T *reciprocal) {
        T f[N][N], b[N], x[N];
        for (int i = 0; i < N; ++i) {
            b[i] = rhs(r[i]);
            for (int j = 0; j < N; ++j) f[i][j] = matrix(r[i], j);
        }
        if (reciprocal == nullptr) lu_solve(f, b, x, [&](T value, int i) { return value / f[i][i]; });
        else lu_solve(f, b, x, [&](T value, int i) { return value * reciprocal[i]; });
        for (int i = 0; i < N; ++i) dst(i) = x[i];
    }

    // One matrix for an array of vectors multiplies by reciprocals made once; the other forms divide.
    template <bool by_reciprocals, class A, class R, class B, class X>
    static SmxStatus objects(const A &matrix, const R &pivots, const B &rhs, const X &dst, int side, int count) {
        using T = ElementOf<X>;
        if (!is_written_out(side)) {
            for (int n = 0; n < count; ++n)
                general(matrix.object(n, side), pivots.object(n), rhs.object(n), dst.object(n), side);
            return smxStsNoErr;
        }
        T reciprocal[6];
        if (by_reciprocals)
            for (int i = 0; i < side; ++i) reciprocal[i] = T(1) / matrix.object(0, side)(pivots.object(0)[i], i);
        const T *const given = by_reciprocals ? reciprocal : nullptr;
        const auto objects_written_out = until_failure(side, [&]<int N>(Side<N>, int n) {
            local<N, T>(matrix.object(n, N), pivots.object(n), rhs.object(n), dst.object(n), given);
            return SmxStatus{smxStsNoErr};
        });
        if constexpr (is_single<X>) {
            return objects_written_out(0, 1);
        } else {
            const LanePlan plan = lane_plan(count,
                                            {{matrix.lanes(side, side), SameObject::any},
                                             {rhs.lanes(1, side), SameObject::any},
                                             {pivots.lanes(side), SameObject::any}},
                                            {dst.lanes(1, side)});
            return for_each_object<T>(
                plan, [&](int n) { return SMX_ON_ALL_LANES(n, lu_solve_lanes, plan, pivots.base, given, side); },
                objects_written_out);
        }
    }

    template <class Tier, class A, class R, class B, class X>
    static SmxStatus run(Tier, const A &matrix, const R &pivots, const B &rhs, const X &dst, Size<Role::side> side) {
        return objects<false>(matrix, pivots, rhs, dst, side.value, 1);
    }
    template <class Tier, class A, class R, class B, class X>
    static SmxStatus run(Tier, const A &matrix, const R &pivots, const B &rhs, const X &dst, Size<Role::side> side,
                         Count count) {
        return objects<is_single<A>>(matrix, pivots, rhs, dst, side.value, count.value);
    }
};

} // namespace SMX_ISA
} // namespace smx
