// Eigenvalues of general real matrices, with or without eigenvectors. All work is done on H, the transpose of src.
//
//   Steps      copy, Householder reduction to Hessenberg form, double-shift iteration down to blocks of one or two
//              rows; with vectors also Q, back substitution on the quasi-triangular form, normalisation. No balancing.
//   Order      of the final diagonal; a complex pair with its positive imaginary part first.
//   Reads      all elements of an object before anything is written.
//   Status     smxStsConvergeErr after 30 n double steps, smxStsErr for a singular complex 2 by 2 block in the back
//              substitution. A singular real block ends the call with smxStsNoErr: a silent return. In all three events
//              an array kernel stops there.
//   Written    not converged: the values found so far. A singular block: all values of the object, none of its vectors.
//   Vectors    right and left are meant with respect to H: "right" vectors multiply src from the left.
//   In place   the vectors may go to src.
#pragma once

#include "family_eigen_vectors.hpp"
#include "frame_module.hpp"
#include "lanes_eigen.hpp"

namespace smx {
inline namespace SMX_ISA {

// W[r][c] = src(r, c), which is H(c + 1, r + 1).
template <class T, class A>
inline void copy_transposed_into(const Columns<T> &h, const A &src) {
    const std::ptrdiff_t n = h.n;
    for (std::ptrdiff_t i = 0; i < n; ++i)
        for (std::ptrdiff_t j = 0; j < n; ++j) h.at[i * n + j] = src(i, j);
}
template <class T, class D>
inline void copy_vectors(const Columns<T> &vectors, const D &dst) {
    const std::ptrdiff_t n = vectors.n;
    for (std::ptrdiff_t r = 0; r < n; ++r)
        for (std::ptrdiff_t j = 0; j < n; ++j) dst(r, j) = vectors.at[j * n + r];
}

// The values of h; buffer holds h, and room for two vectors.
template <class T>
SmxStatus eigen_values(T *buffer, T *re, T *im, int n) {
    T *const small = buffer + static_cast<std::ptrdiff_t>(n) * n;
    return find_values(Columns<T>{buffer, n}, small, small + n, re, im) ? smxStsNoErr : smxStsConvergeErr;
}

constexpr SmxStatus status_of(Solved solved) {
    return solved == Solved::no ? smxStsErr : smxStsNoErr;
}

struct EigenValuesGeneral {
    template <class T, class A>
    static SmxStatus one(const A &src, T *re, T *im, int n, T *buffer) {
        copy_transposed_into(Columns<T>{buffer, n}, src);
        return eigen_values(buffer, re, im, n);
    }

    template <class Tier, class T, class A>
    static SmxStatus run(Tier, const A &src, Packed<T> re, Packed<T> im, Size<Role::side> side, Buffer<T> buffer) {
        return one(src.object(0, side.value), re.base, im.base, side.value, buffer.base);
    }
    template <class Tier, class T, class A>
    static SmxStatus run(Tier, const A &src, Packed<T> re, Packed<T> im, Size<Role::side> side, Count count,
                         Buffer<T> buffer) {
        const int n = side.value;
        const auto objects =
            until_failure([&](int k) { return one(src.object(k, n), re.object(k), im.object(k), n, buffer.base); });
        if (!is_written_out(n)) return objects(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{src.lanes(n, n), SameObject::any}}, {re.lanes(n), im.lanes(n)},
                                        eigen_groups_at_once<T>);
        return for_each_object<T>(
            plan, [&](int k) { return SMX_ON_ALL_LANES(k, eigen_lanes, plan, n); }, objects);
    }
};

// One object with vectors: `store` takes them from the scratch.
template <unsigned modes, class T, class A, class Store>
SmxStatus eigen_with_vectors(const A &src, T *re, T *im, int n, T *buffer, Store store, bool &silent) {
    const VectorScratch<T, modes> scratch(buffer, n);
    copy_transposed_into(scratch.h, src);
    if (!reduce_to_triangular(scratch.h, scratch.q, scratch.small[0], scratch.small[1], re, im))
        return smxStsConvergeErr;
    const Solved solved = eigen_vectors_of_form(scratch, im, n);
    if (solved == Solved::yes) store(scratch);
    silent = solved == Solved::silently;
    return status_of(solved);
}

// Objects first .. last - 1 until one fails. After a silent return, `silent` keeps the kernel from going on.
template <class One>
SmxStatus until_failure_or_silence(int first, int last, bool &silent, One one) {
    SmxStatus status = smxStsNoErr;
    for (int k = first; k < last && status == smxStsNoErr && !silent; ++k) status = one(k);
    return status;
}

template <unsigned mode>
struct EigenVectorsGeneral {
    template <class T, class A, class D>
    static SmxStatus one(const A &src, const D &dst, T *re, T *im, int n, T *buffer, bool &silent) {
        return eigen_with_vectors<mode>(
            src, re, im, n, buffer, [&](const auto &scratch) { copy_vectors(scratch.q, dst); }, silent);
    }

    template <class Tier, class T, class A, class D>
    static SmxStatus run(Tier, const A &src, const D &dst, Packed<T> re, Packed<T> im, Size<Role::side> side,
                         Buffer<T> buffer) {
        const int n = side.value;
        bool silent = false;
        return one(src.object(0, n), dst.object(0, n), re.base, im.base, n, buffer.base, silent);
    }
    template <class Tier, class T, class A, class D>
    static SmxStatus run(Tier, const A &src, const D &dst, Packed<T> re, Packed<T> im, Size<Role::side> side,
                         Count count, Buffer<T> buffer) {
        const int n = side.value;
        bool silent = false;
        const auto objects = [&](int first, int last) {
            return until_failure_or_silence(first, last, silent, [&](int k) {
                return one(src.object(k, n), dst.object(k, n), re.object(k), im.object(k), n, buffer.base, silent);
            });
        };
        if (!is_written_out(n)) return objects(0, count.value);
        const LanePlan plan =
            lane_plan(count.value, {{src.lanes(n, n), SameObject::any}}, {dst.lanes(n, n), re.lanes(n), im.lanes(n)});
        return for_each_object<T>(
            plan, [&](int k) { return silent ? plan.count : SMX_ON_ALL_LANES(k, eigen_vectors_lanes, plan, n, mode); },
            objects);
    }
};

struct EigenVectorsBoth {
    static constexpr unsigned modes = right_mode | left_mode;
    template <class T, class A, class R, class L>
    static SmxStatus one(const A &src, const R &right, const L &left, T *re, T *im, int n, T *buffer, bool &silent) {
        return eigen_with_vectors<modes>(
            src, re, im, n, buffer,
            [&](const auto &scratch) {
                copy_vectors(scratch.q, right);
                copy_vectors(scratch.left(), left);
            },
            silent);
    }

    template <class Tier, class T, class A, class R, class L>
    static SmxStatus run(Tier, const A &src, const R &right, const L &left, Packed<T> re, Packed<T> im,
                         Size<Role::side> side, Buffer<T> buffer) {
        const int n = side.value;
        bool silent = false;
        return one(src.object(0, n), right.object(0, n), left.object(0, n), re.base, im.base, n, buffer.base, silent);
    }
    template <class Tier, class T, class A, class R, class L>
    static SmxStatus run(Tier, const A &src, const R &right, const L &left, Packed<T> re, Packed<T> im,
                         Size<Role::side> side, Count count, Buffer<T> buffer) {
        const int n = side.value;
        bool silent = false;
        const auto objects = [&](int first, int last) {
            return until_failure_or_silence(first, last, silent, [&](int k) {
                return one(src.object(k, n), right.object(k, n), left.object(k, n), re.object(k), im.object(k), n,
                           buffer.base, silent);
            });
        };
        if (!is_written_out(n)) return objects(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{src.lanes(n, n), SameObject::any}},
                                        {right.lanes(n, n), left.lanes(n, n), re.lanes(n), im.lanes(n)});
        return for_each_object<T>(
            plan, [&](int k) { return silent ? plan.count : SMX_ON_ALL_LANES(k, eigen_vectors_lanes, plan, n, modes); },
            objects);
    }
};

} // namespace SMX_ISA
} // namespace smx
