// QR decomposition by Householder reflections, A = Q R with at least as many rows as columns, and its back
// substitution, which solves A x = b in the sense of least squares.
//
// The result is one packed matrix: R on and above the diagonal, below it in column k the entries of reflector k behind
// its leading 1. A reflection is I + beta v vt with beta = -2 / (vt v), which a solve computes again.
//
//   Paths      decomposition: one for all shapes. Back substitution: square matrices of sides 3 to 6 written out, else
//              through `buffer`. The shapes of with_fixed_shape() run in local copies, which nobody can tell.
//   Order      all sums in rising order.
//   Test       a column's sum of squares below the machine epsilon, or not a number. The last column of a square matrix
//              has no reflection and no test.
//   Status     smxStsDivByZeroErr at the first failing column. An array kernel stops there. A solve cannot fail.
//   Written    the copy with the reflections before the failing one.
//   In place   dst may be src, and in a solve src2.
#pragma once

#include "family_qr_core.hpp"
#include "frame_module.hpp"
#include "lanes_qr.hpp"

namespace smx {
inline namespace SMX_ISA {

inline bool is_fixed_shape(int width, int height) {
    return with_fixed_shape(width, height, [](auto, auto) {});
}

template <class T, int W, int H>
[[gnu::noinline]] bool qr_decompose_local(QRObject<T, W, H> &object) {
    Failure<T> failure;
    return object.decompose(failure);
}
template <class T, int W, int H>
[[gnu::noinline]] void qr_solve_local(QRObject<T, W, H> &object) {
    object.solve();
}

struct QRDecomposition {
    template <class T, class D>
    [[gnu::noinline]] static bool in_place(const D &dst, T *buffer, int w, int h) {
        Failure<T> failure;
        return qr_decompose(
            dst, [=](int i) -> T & { return buffer[i]; }, w, h, failure);
    }

    template <class T, class A, class D>
    static SmxStatus one(const A &src, T *buffer, const D &dst, int w, int h) {
        for (int i = 0; i < h; ++i)
            for (int j = 0; j < w; ++j) dst(i, j) = src(i, j);
        bool done = false;
        if (!with_fixed_shape(w, h, [&]<int W, int H>(Fixed<W>, Fixed<H>) {
                QRObject<T, W, H> object;
                for (int i = 0; i < H; ++i) {
                    object.v[i] = buffer[i];
                    for (int j = 0; j < W; ++j) object.a[i][j] = dst(i, j);
                }
                done = qr_decompose_local(object);
                for (int i = 0; i < H; ++i) {
                    buffer[i] = object.v[i];
                    for (int j = 0; j < W; ++j) dst(i, j) = object.a[i][j];
                }
            }))
            done = in_place(dst, buffer, w, h);
        return done ? smxStsNoErr : smxStsDivByZeroErr;
    }

    template <class Tier, class A, class T, class D>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, const D &dst, Size<Role::width> width,
                         Size<Role::height> height, Count count = 1) {
        const int w = width.value, h = height.value;
        const auto single = [&](int n) { return one(src.object(n, w), buffer.base, dst.object(n, w), w, h); };
        const auto objects = until_failure(single);
        if constexpr (!is_single<D>)
            if (is_fixed_shape(w, h)) {
                // The copy comes before everything else, element by element.
                const LanePlan plan =
                    lane_plan(count.value, {{src.lanes(h, w), SameObject::identical}}, {dst.lanes(h, w)});
                return for_each_object<T>(
                    plan, [&](int n) { return SMX_ON_ALL_LANES(n, qr_decompose_lanes, plan, w, h); }, objects);
            }
        return objects(0, count.value);
    }
};

struct QRBackSubstitution {
    template <int N, class T, class A, class B, class X>
    static void local(const A &matrix, const B &b, const X &dst) {
        QRObject<T, N, N> object;
        for (int i = 0; i < N; ++i) {
            object.v[i] = b(i);
            for (int j = 0; j < N; ++j) object.a[i][j] = matrix(i, j);
        }
        qr_solve_local(object);
        for (int i = 0; i < N; ++i) dst(i) = object.x[i];
    }
    template <class T, class A, class B, class X>
    [[gnu::noinline]] static void through_buffer(const A &matrix, T *buffer, const B &b, const X &dst, int w, int h) {
        for (int i = 0; i < h; ++i) buffer[i] = b(i);
        qr_solve<T>(
            matrix, [=](int i) -> T & { return buffer[i]; }, dst, w, h);
    }

    template <class Tier, class A, class T, class B, class X>
    static SmxStatus run(Tier, const A &matrix, Buffer<T> buffer, const B &b, const X &dst, Size<Role::width> width,
                         Size<Role::height> height, Count count = 1) {
        const int w = width.value, h = height.value;
        const auto one = [&](int n) -> SmxStatus {
            if (!with_side(w == h ? w : 0,
                           [&]<int N>(Side<N>) { local<N, T>(matrix.object(n, N), b.object(n), dst.object(n)); }))
                through_buffer(matrix.object(n, w), buffer.base, b.object(n), dst.object(n), w, h);
            return smxStsNoErr;
        };
        const auto objects = until_failure(one);
        if constexpr (!is_single<X>)
            if (is_fixed_shape(w, h)) {
                const LanePlan plan = lane_plan(count.value,
                                                {{matrix.lanes(h, w), w == h ? SameObject::any : SameObject::none},
                                                 {b.lanes(1, h), SameObject::any}},
                                                {dst.lanes(1, w)});
                return for_each_object<T>(
                    plan, [&](int n) { return SMX_ON_ALL_LANES(n, qr_solve_lanes, plan, w, h); }, objects);
            }
        return objects(0, count.value);
    }
};

} // namespace SMX_ISA
} // namespace smx
