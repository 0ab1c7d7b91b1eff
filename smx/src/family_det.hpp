// Determinant of square matrices.
//
//   Paths      sides 3 to 6 by expansion in shared minors of the leading rows; all others by elimination with partial
//              pivoting in the caller's buffer.
//   Tolerance  elimination only: 2 n n n smallest normal numbers, absolute. A pivot below it, and a last pivot at or
//              below it, mean zero; so does a not-a-number.
//   Status     always 0.
//   Written    the elimination keeps its running product in the result.
#pragma once

#include "family_elimination.hpp"
#include "frame_module.hpp"
#include "lanes_det_invert.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class T, int N>
[[gnu::noinline]] T determinant_local(const T (&a)[N][N]) {
    return determinant(a);
}

struct Determinant {
    // A single kernel ends with a plain zero at a failing pivot; an array kernel goes on to the last pivot with sign 0,
    // so that its zero may be negative, or a not-a-number.
    enum class AtFailure { zero, sign_zero };

    template <class T, class A>
    static void general(const A &src, int n, T *buffer, T *det, AtFailure at_failure) {
        const T tolerance = size_cubed_tolerance<T>(n);
        const WorkingCopy<T> copy(buffer, n);
        *det = T(1);
        copy.copy(src, n, n);
        T sign = T(1);
        for (int k = 0; k < n - 1; ++k) {
            const T pivot = copy.pivot(k, n, sign);
            if (magnitude(pivot) < tolerance || pivot != pivot) {
                if (at_failure == AtFailure::zero) {
                    *det = T(0);
                    return;
                }
                sign = T(0);
                break;
            }
            copy.eliminate(k, n, [pivot](T x) { return x / pivot; });
            *det = *det * pivot;
        }
        const T last = copy.at(n - 1, n - 1);
        if (magnitude(last) <= tolerance || last != last) *det = T(0);
        else *det = *det * (last * sign);
    }

    template <class Tier, class A, class T>
    static SmxStatus run(Tier, const A &src, Size<Role::side> side, Buffer<T> buffer, const Packed<T> &dst,
                         Count count = 1) {
        constexpr bool single = is_single<A>;
        const int s = side.value;
        if (!is_written_out(s)) {
            for (int n = 0; n < count.value; ++n)
                general(src.object(n, s), s, buffer.base, dst.object(n),
                        single ? AtFailure::zero : AtFailure::sign_zero);
            return smxStsNoErr;
        }
        const auto objects = until_failure(s, [&]<int N>(Side<N>, int n) -> SmxStatus {
            const auto object = src.object(n, N);
            T a[N][N];
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j) a[i][j] = object(i, j);
            *dst.object(n) = determinant_local(a);
            return smxStsNoErr;
        });
        if constexpr (single) {
            return objects(0, 1);
        } else {
            const LanePlan plan = lane_plan(count.value, {{src.lanes(s, s), SameObject::any}}, {dst.lanes(1)});
            return for_each_object<T>(
                plan, [&](int n) { return SMX_ON_ALL_LANES(n, determinant_lanes, plan, s); }, objects);
        }
    }
};

} // namespace SMX_ISA
} // namespace smx
