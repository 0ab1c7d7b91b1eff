// Inverse of square matrices by cofactors over the determinant.
//
//   Paths      side 1 in the interface function. Sides 3 to 6 in closed form with one division. All others by the
//              `_com` kernels, and in the pointer layout's array kernel inline: every cofactor by its own elimination
//              with partial pivoting in the caller's buffer.
//   Tolerance  2 n n n smallest normal numbers, absolute. A minor that it calls singular counts as the tolerance.
//   Status     smxStsSingularErr; an array kernel stops at the first failing object, of which nothing is written.
//   Odd        the six `_com` kernels store through a null pointer when a pivot before the last one fails.
//   In place   dst may be src at sides 1 and 3 to 6.
#pragma once

#include "family_elimination.hpp"
#include "frame_module.hpp"
#include "lanes_det_invert.hpp"

namespace smx {
inline namespace SMX_ISA {

// A zero into a determinant that has no place: on a system with a protected first page it ends the process. It is part
// of the behaviour of the `_com` kernels, so no sanitizer looks at it and no compiler may drop it.
template <class T>
[[gnu::noinline]] __attribute__((no_sanitize("undefined", "address", "thread"))) void store_zero_through_null() {
    T *volatile null = nullptr;
    *static_cast<volatile T *>(null) = T(0);
}

template <class T, int N>
[[gnu::noinline]] bool invert_local(const T (&a)[N][N], T (&inverse)[N][N], bool accepts_nan) {
    constexpr T tolerance = size_cubed_tolerance<T>(N);
    Cofactors<T, N> cofactors;
    Failure<T> failure;
    return cofactors.invert(a, inverse, failure, [&](T det) {
        return accepts_nan ? magnitude(det) < tolerance : !(magnitude(det) >= tolerance);
    });
}

// The general path's two members: the `_com` kernels, and the pointer layout's array kernel, which returns where those
// store through null and then tests its last pivot instead of the determinant.
enum class InverseBy { com_kernel, pointer_array_kernel };

template <InverseBy by, class T, class A, class D>
SmxStatus invert_general(const A &src, T *buffer, const D &dst, int n) {
    const T tolerance = size_cubed_tolerance<T>(n);
    const auto pivot_fails = [tolerance](T pivot) { return magnitude(pivot) < tolerance || pivot != pivot; };
    const auto last_fails = [tolerance](T value) { return magnitude(value) <= tolerance || value != value; };
    const WorkingCopy<T> copy(buffer, n);

    copy.copy(src, n, n);
    T sign = T(1), product = T(1);
    for (int k = 0; k < n - 1; ++k) {
        const T pivot = copy.pivot(k, n, sign);
        if (pivot_fails(pivot)) {
            if constexpr (by == InverseBy::com_kernel) store_zero_through_null<T>();
            return smxStsSingularErr;
        }
        copy.eliminate(k, n, [reciprocal = T(1) / pivot](T x) { return x * reciprocal; });
        product = product * pivot;
    }
    const T last = copy.at(n - 1, n - 1);
    const T determinant = product * (sign * last);
    if (last_fails(by == InverseBy::com_kernel ? determinant : last)) return smxStsSingularErr;
    const T reciprocal_determinant = T(1) / determinant;

    const auto minor = [&](int row, int column) {
        const int m = n - 1;
        T value = T(1), minor_sign = T(1);
        if (m == 0) return value;
        copy.copy(src, row, column);
        for (int k = 0; k < m - 1; ++k) {
            const T pivot = copy.pivot(k, m, minor_sign);
            if (pivot_fails(pivot)) {
                value = tolerance;
                break;
            }
            copy.eliminate(k, m, [reciprocal = T(1) / pivot](T x) { return x * reciprocal; });
            value = value * pivot;
        }
        const T q = copy.at(m - 1, m - 1);
        return magnitude(q) > tolerance ? value * (q * minor_sign) : tolerance;
    };
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            dst(j, i) = minor(i, j) * reciprocal_determinant * static_cast<T>((i + j) % 2 == 0 ? 1 : -1);
    return smxStsNoErr;
}

struct Inverse {
    // The plain kernel of a single matrix lets a not-a-number determinant pass, but at side 3.
    template <class Tier, bool array>
    static constexpr bool accepts_nan(int side) {
        return std::is_same_v<Tier, Plain> && !array && side != 3;
    }

    template <class Tier, class A, class D, class General>
    static SmxStatus objects(Tier, const A &src, const D &dst, int side, int count, General general) {
        using T = ElementOf<D>;
        constexpr bool array = !is_single<D>;
        if (!is_written_out(side)) return until_failure(general)(0, count);
        const auto objects_written_out = until_failure(side, [&]<int N>(Side<N>, int n) -> SmxStatus {
            const auto from = src.object(n, N);
            const auto to = dst.object(n, N);
            T a[N][N], inverse[N][N];
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j) a[i][j] = from(i, j);
            if (!invert_local(a, inverse, accepts_nan<Tier, array>(N))) return smxStsSingularErr;
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j) to(i, j) = inverse[i][j];
            return smxStsNoErr;
        });
        if constexpr (array) {
            const LanePlan plan = lane_plan(count, {{src.lanes(side, side), SameObject::any}}, {dst.lanes(side, side)});
            return for_each_object<T>(
                plan, [&](int n) { return SMX_ON_ALL_LANES(n, invert_lanes, plan, side); }, objects_written_out);
        } else {
            return objects_written_out(0, 1);
        }
    }

    // Kernels that leave their general path to a `_com` kernel.
    template <class Tier, class Call, class A, class T, class D>
    static SmxStatus run(Tier tier, const Inner<Call> &com, const A &src, Buffer<T>, const D &dst,
                         Size<Role::side> side, Count count = 1) {
        return objects(tier, src, dst, side.value, count.value, [&](int n) { return com.call(n); });
    }
    // The pointer layout's array kernel.
    template <class A, class T, class D>
    static SmxStatus run(P tier, const A &src, Buffer<T> buffer, const D &dst, Size<Role::side> side, Count count) {
        return objects(tier, src, dst, side.value, count.value, [&](int n) {
            return invert_general<InverseBy::pointer_array_kernel>(src.object(n, side.value), buffer.base,
                                                                   dst.object(n, side.value), side.value);
        });
    }
};

// The `_com` kernels: the general path alone.
struct InverseGeneral {
    template <class Tier, class A, class T, class D>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, const D &dst, Size<Role::side> side) {
        return invert_general<InverseBy::com_kernel>(src.object(0, side.value), buffer.base, dst.object(0, side.value),
                                                     side.value);
    }
};

// Side 1, in the interface functions. A not-a-number fails in the array forms only.
template <class A, class B, class D, class... Counts>
SmxStatus side_one_at_once(const A &src, const B &, const D &dst, Size<Role::side>, Counts... count) {
    using T = ElementOf<D>;
    constexpr T tolerance = size_cubed_tolerance<T>(1);
    const int objects = (1 * ... * count.value);
    for (int n = 0; n < objects; ++n) {
        const T value = src.object(n, 1)(0, 0);
        if (sizeof...(count) == 0 ? tolerance >= magnitude(value) : !(magnitude(value) > tolerance))
            return smxStsSingularErr;
        dst.object(n, 1)(0, 0) = T(1) / value;
    }
    return smxStsNoErr;
}

} // namespace SMX_ISA
} // namespace smx
