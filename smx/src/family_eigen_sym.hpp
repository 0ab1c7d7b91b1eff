// Eigenvalues of symmetric matrices, with or without eigenvectors: A = Z diag(values) Zt.
//
//   Paths      sides 1 and 2 closed forms; others Householder reduction and implicit-shift sweeps (QL or QR by the ends
//              of the diagonal) in `buffer`, at most 30 for one value. Array forms compute several objects at once.
//   Order      sides 3 and up descending; side 2 with a negative trace ascending.
//   Reads      all elements of an object before anything is written; side 2 its upper triangle, others the lower one
//              (the reduction transforms the whole square).
//   Status     smxStsSingularErr if the determinant of a side-2 matrix or the product of the eigenvalues is tiny (side
//              1 is not tested), smxStsConvergeErr if the sweeps are used up. An array kernel stops there.
//   Written    singular, side 2: nothing. Other sides: all values and vectors; sorted only in the single form with
//              vectors. Not converged: nothing meaningful.
//   In place   dstVectors may be src.
#pragma once

#include "family_eigen_sym_core.hpp"
#include "frame_module.hpp"
#include "lanes_eigen_sym.hpp"

namespace smx {
inline namespace SMX_ISA {

// One type for the vectors of all layouts with strides, so that the algorithms are not compiled for each.
template <class T, bool Adjacent>
inline StridedView<T, false> any_strides(const StridedView<T, Adjacent> &view) {
    return {view.base, view.stride1, Adjacent ? static_cast<std::ptrdiff_t>(sizeof(T)) : view.stride2};
}
template <class T>
inline PointerView<T> any_strides(const PointerView<T> &view) {
    return view;
}

// Both eigenvalues of ((a, b), (b, c)).
template <class T>
struct SymmetricPair {
    T first, second, difference, root, off_diagonal;
    bool singular, descending;
    SymmetricPair(T a, T b, T c, T tolerance) {
        constexpr T eps = EigenEpsilon<T>::value;
        const T determinant = a * c - b * b, sum = a + c;
        difference = a - c;
        off_diagonal = T(2) * b;
        singular = magnitude(determinant) <= tolerance;
        root = square_root(difference * difference + off_diagonal * off_diagonal);
        descending = true;
        if (sum > eps) {
            first = T(0.5) * (sum + root);
            second = determinant / first;
        } else if (sum >= -eps) {
            first = T(0.5) * root;
            second = T(-0.5) * root;
        } else {
            first = T(0.5) * (sum - root);
            second = determinant / first;
            descending = false;
        }
    }

    // The vectors. The forms find them in different ways, which is kept.
    template <class Z>
    void vectors_single(const Z &z) const {
        constexpr T eps = EigenEpsilon<T>::value;
        const bool turned = !(difference >= -eps);
        const T q = turned ? difference - root : difference + root;
        T x = 1, y = 0;
        if (magnitude(off_diagonal) >= magnitude(q)) {
            if (!(magnitude(off_diagonal) <= eps)) {
                const T rho = -q / off_diagonal;
                x = T(1) / square_root(T(1) + rho * rho);
                y = rho * x;
            }
        } else {
            const T rho = -off_diagonal / q, w = square_root(T(1) + rho * rho);
            x = rho / w;
            y = T(1) / w;
        }
        if (descending == turned) store(z, x, -y, y, x);
        else store(z, -y, -x, x, -y);
    }
    template <class Z>
    void vectors_array(const Z &z) const {
        constexpr T eps = EigenEpsilon<T>::value;
        const T q = difference + root;
        T p = 1, r = 0;
        if (q == T(0)) {
            if (!(magnitude(off_diagonal) <= eps)) {
                const T rho = -q / off_diagonal;
                p = T(1) / square_root(rho * rho + T(1));
                r = rho * p;
            }
        } else {
            const T rho = -off_diagonal / q, w = square_root(rho * rho + T(1));
            p = rho / w;
            r = T(1) / w;
        }
        if (descending) store(z, -r, -p, p, -r);
        else store(z, p, -r, r, p);
    }
    template <class Z>
    static void store(const Z &z, T z00, T z01, T z10, T z11) {
        z(0, 0) = z00;
        z(0, 1) = z01;
        z(1, 0) = z10;
        z(1, 1) = z11;
    }
};

// Sides 3 and up. W stands in w with the rows adjacent, z holds the identity; values serves as scratch on the way.
template <class Form, class T, class Z>
SmxStatus eigen_symmetric(T *w, T *values, const Z &z, int n, T gate) {
    const std::ptrdiff_t side = n;
    reduce_symmetric<Form>(w, values, z, n, gate);
    T *const d = w, *const e = w + side; // the diagonals move to the first two rows
    for (std::ptrdiff_t i = 0; i < side; ++i) d[i] = w[i * side + i];
    for (std::ptrdiff_t i = 0; i < side - 1; ++i) e[i] = w[(i + 1) * side + i];
    bool singular;
    if (!sweep_symmetric<Form>(d, e, z, n, singular)) return smxStsConvergeErr;
    for (int i = 0; i < n; ++i) values[i] = d[i];
    if (!singular || Form::sorts_before_test) sort_symmetric<Form>(values, z, n);
    return singular ? smxStsSingularErr : smxStsNoErr;
}

template <bool array_form, bool with_vectors>
struct SymmetricTolerances {
    // Two kernels for `float` have the tolerance of `double`: this one in the reduction ...
    template <class Tier, class T>
    static constexpr T reduction = array_form &&with_vectors &&std::is_same_v<Tier, L> ? T(0x1p-52)
                                                                                       : EigenEpsilon<T>::value;
    // ... and this one for the determinant of side 2.
    template <class Tier, class T>
    static constexpr T pair =
        array_form && !with_vectors && std::is_same_v<Tier, Plain> ? T(0x1p-52) : EigenEpsilon<T>::value;
};

template <class T, class A>
inline void copy_square(const A &src, T *w, int n) {
    const std::ptrdiff_t side = n;
    for (std::ptrdiff_t i = 0; i < side; ++i)
        for (std::ptrdiff_t j = 0; j < side; ++j) w[i * side + j] = src(i, j);
}

struct EigenValuesSymmetric {
    template <class Tier, bool array_form, class T, class A>
    static SmxStatus one(const A &src, T *buffer, T *values, int n) {
        using Tolerances = SymmetricTolerances<array_form, false>;
        if (n == 1) {
            values[0] = src(0, 0);
            return smxStsNoErr;
        }
        if (n == 2) {
            const SymmetricPair<T> pair(src(0, 0), src(0, 1), src(1, 1), Tolerances::template pair<Tier, T>);
            if (pair.singular) return smxStsSingularErr;
            values[0] = pair.first;
            values[1] = pair.second;
            return smxStsNoErr;
        }
        copy_square(src, buffer, n);
        return eigen_symmetric<SymmetricForm<array_form, false>>(buffer, values, NoVectors{}, n,
                                                                 Tolerances::template reduction<Tier, T>);
    }

    template <class Tier, class T, class A>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, Packed<T> values, Size<Role::side> side) {
        return one<Tier, false>(src.object(0, side.value), buffer.base, values.base, side.value);
    }
    template <class Tier, class T, class A>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, Packed<T> values, Size<Role::side> side, Count count) {
        const int n = side.value;
        const auto single = [&](int k) { return one<Tier, true>(src.object(k, n), buffer.base, values.object(k), n); };
        if (!is_written_out(n)) return until_failure(single)(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{src.lanes(n, n), SameObject::any}}, {values.lanes(n)});
        return for_each_object<T>(
            plan, [&](int k) { return SMX_ON_ALL_LANES(k, eigen_sym_lanes, plan, n); }, until_failure(single));
    }
};

struct EigenValuesVectorsSymmetric {
    template <class Tier, bool array_form, class T, class A, class D>
    static SmxStatus one(const A &src, T *buffer, const D &dst, T *values, int n) {
        using Tolerances = SymmetricTolerances<array_form, true>;
        if (n == 1) {
            values[0] = src(0, 0);
            dst(0, 0) = T(1);
            return smxStsNoErr;
        }
        if (n == 2) {
            const SymmetricPair<T> pair(src(0, 0), src(0, 1), src(1, 1), Tolerances::template pair<Tier, T>);
            if (pair.singular) return smxStsSingularErr;
            if (array_form) pair.vectors_array(dst);
            else pair.vectors_single(dst);
            values[0] = pair.first;
            values[1] = pair.second;
            return smxStsNoErr;
        }
        copy_square(src, buffer, n);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) dst(i, j) = T(i == j);
        return eigen_symmetric<SymmetricForm<array_form, true>>(buffer, values, any_strides(dst), n,
                                                                Tolerances::template reduction<Tier, T>);
    }

    template <class Tier, class T, class A, class D>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, const D &dst, Packed<T> values, Size<Role::side> side) {
        return one<Tier, false>(src.object(0, side.value), buffer.base, dst.object(0, side.value), values.base,
                                side.value);
    }
    template <class Tier, class T, class A, class D>
    static SmxStatus run(Tier, const A &src, Buffer<T> buffer, const D &dst, Packed<T> values, Size<Role::side> side,
                         Count count) {
        const int n = side.value;
        const auto single = [&](int k) {
            return one<Tier, true>(src.object(k, n), buffer.base, dst.object(k, n), values.object(k), n);
        };
        if (!is_written_out(n)) return until_failure(single)(0, count.value);
        const LanePlan plan =
            lane_plan(count.value, {{src.lanes(n, n), SameObject::any}}, {dst.lanes(n, n), values.lanes(n)});
        const double gate = SymmetricTolerances<true, true>::template reduction<Tier, T>;
        return for_each_object<T>(
            plan, [&](int k) { return SMX_ON_ALL_LANES(k, eigen_vectors_sym_lanes, plan, n, gate); },
            until_failure(single));
    }
};

} // namespace SMX_ISA
} // namespace smx
