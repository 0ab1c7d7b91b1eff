// Matrix by vector: dst = op(src1) src2, and Gaxpy: dst = src1 src2 + src3, where op is the identity or the transpose.
//
//   Shapes    m by k times k; the width and height arguments are those of the matrix as stored.
//   Paths     square matrices of side 3 to 6: written out (not in the `_L` kernels of the product). Else a general
//             path: rows in groups (of 8, or in array forms of 4 for each of a pair of objects), simple (the running
//             sum is stored after every addition), or, in the pointer layout, the sum runs through the destination
//             element. Gaxpy has no groups of rows. The `_LS2` kernels of the product call the non-array kernel.
//   Order     objects and elements ascending; every sum in ascending p with one accumulator of the element type, which
//             starts at 0.0 in the general paths and at the first product in the written-out ones. src3 comes last.
//   Status    always 0.
//   In place  dst must not overlap a source: the operands are read again for every element of the result. There are
//             two exceptions for sides 3 to 6: Gaxpy on single adjacent operands stores its results at the end, and a
//             single src2 of a product in the strided layout is read once for all objects.
#pragma once

#include "family_products_core.hpp"
#include "frame_module.hpp"
#include "lanes_product_vector.hpp"

namespace smx {
inline namespace SMX_ISA {

// The general path of a row's strided array kernel with adjacent elements.
enum class Rows {
    paired,
    single_float // `float` takes one row of one object at a time
};

struct VectorSizes {
    using W1 = Size<Role::width1>;
    using H1 = Size<Role::height1>;
    using Len2 = Size<Role::len2>;
    using Len3 = Size<Role::len3>;

    // The product of row i with a vector of N elements, in ascending order.
    template <int N, class T, class A, class B>
    [[gnu::always_inline]] static T row_product(const A &a, int i, const B &b) {
        T sum = a(i, 0) * b(0);
#pragma GCC unroll 6
        for (int p = 1; p < N; ++p) sum += a(i, p) * b(p);
        return sum;
    }
};

template <Rows rows_of_plain = Rows::paired>
struct MatrixVectorProduct : VectorSizes {
    // ---- written out

    template <int N, class T, class A, class B, class D>
    static void written_out(const A &a, const B &b, const D &d) {
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) d(i) = row_product<N, T>(a, i, b);
    }

    // ---- general paths

    // R rows from i on of each of the objects first .. first + Objects - 1, one accumulator each.
    template <int R, int Objects, class T, class A, class B, class D>
    static void rows(const A &a, int columns, const B &b, const D &d, int first, int i, int k) {
        T sum[Objects][R] = {};
        for (int p = 0; p < k; ++p)
            for (int o = 0; o < Objects; ++o)
                for (int r = 0; r < R; ++r)
                    sum[o][r] += a.object(first + o, columns)(i + r, p) * b.object(first + o)(p);
        for (int o = 0; o < Objects; ++o)
            for (int r = 0; r < R; ++r) d.object(first + o)(i + r) = sum[o][r];
    }
    // Groups of R rows, then the rest together.
    template <int R, int Objects, class T, class A, class B, class D>
    static void grouped(const A &a, int columns, const B &b, const D &d, int first, int m, int k) {
        int i = 0;
        for (; i + R <= m; i += R) rows<R, Objects, T>(a, columns, b, d, first, i, k);
        rest<R - 1, Objects, T>(a, columns, b, d, first, i, m, k);
    }
    template <int R, int Objects, class T, class A, class B, class D>
    static void rest(const A &a, int columns, const B &b, const D &d, int first, int i, int m, int k) {
        if constexpr (R > 0) {
            if (m - i == R) rows<R, Objects, T>(a, columns, b, d, first, i, k);
            else rest<R - 1, Objects, T>(a, columns, b, d, first, i, m, k);
        }
    }
    template <class T, class A, class B, class D>
    static void simple(const A &a, const B &b, const D &d, int m, int k) {
        for (int i = 0; i < m; ++i) {
            T sum = 0;
            d(i) = sum;
            for (int p = 0; p < k; ++p) {
                sum += a(i, p) * b(p);
                d(i) = sum;
            }
        }
    }
    template <class A, class B, class D>
    static void through_result(const A &a, const B &b, const D &d, int m, int k) {
        for (int i = 0; i < m; ++i) {
            d(i) = 0;
            for (int p = 0; p < k; ++p) d(i) = d(i) + a(i, p) * b(p);
        }
    }
    template <class Tier, class A, class B, class D>
    static void general_path(const A &a, int columns, const B &b, const D &d, int first, int last, int m, int k) {
        using T = ElementOf<D>;
        constexpr bool one_row = std::is_same_v<Tier, Plain> && rows_of_plain == Rows::single_float && sizeof(T) == 4;
        if constexpr (one_row) {
            for (int n = first; n < last; ++n) grouped<1, 1, T>(a, columns, b, d, n, m, k);
        } else if constexpr (is_adjacent<Tier>) {
            int n = first;
            if constexpr (!is_single<D>)
                for (; n <= last - 2; n += 2) grouped<4, 2, T>(a, columns, b, d, n, m, k);
            if (n < last) grouped<8, 1, T>(a, columns, b, d, n, m, k);
        } else {
            for (int n = first; n < last; ++n)
                if constexpr (std::is_same_v<Tier, P>)
                    through_result(a.object(n, columns), b.object(n), d.object(n), m, k);
                else simple<T>(a.object(n, columns), b.object(n), d.object(n), m, k);
        }
    }

    // ---- kernels

    template <class Tier, class A, class B, class D>
    static SmxStatus objects(const A &a, int w1, int h1, const B &b, int len2, const D &d, int first, int last) {
        using T = ElementOf<D>;
        if constexpr (!is_list<Tier>) {
            constexpr bool vector_once = is_single<B> && !is_single<D> && !std::is_same_v<Tier, P>;
            if (with_side(w1 == h1 && w1 == len2 ? w1 : 0, [&]<int N>(Side<N>) {
                    T once[N];
                    if (vector_once)
                        for (int p = 0; p < N; ++p) once[p] = b.object(0)(p);
                    for (int n = first; n < last; ++n)
                        if constexpr (vector_once)
                            written_out<N, T>(
                                a.object(n, N), [&](int p) { return once[p]; }, d.object(n));
                        else written_out<N, T>(a.object(n, N), b.object(n), d.object(n));
                }))
                return smxStsNoErr;
        }
        const int m = is_transposed<A> ? w1 : h1, k = is_transposed<A> ? h1 : w1;
        general_path<Tier>(a, w1, b, d, first, last, m, k);
        return smxStsNoErr;
    }

    // Square matrices by the lane engine; the `_L` kernels, which have no path written out, start their sums at 0.0.
    template <bool from_zero, class A, class B, class D, class Range>
    static SmxStatus in_groups(const A &a, W1 w1, H1 h1, const B &b, Len2 len2, const D &d, int count,
                               Range one_by_one) {
        const int side = w1.value;
        if (side != h1.value || side != len2.value || !is_written_out(side)) return one_by_one(0, count);
        const LanePlan plan = lane_plan(
            count, {{a.lanes(side, side), SameObject::none}, {b.lanes(1, side), SameObject::none}}, {d.lanes(1, side)});
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, matrix_vector_lanes, plan, from_zero); }, one_by_one);
    }

    // Non-array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, W1 w1, H1 h1, const B &b, Len2 len2, const D &d) {
        return objects<Tier>(a, w1.value, h1.value, b, len2.value, d, 0, 1);
    }
    // Array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, W1 w1, H1 h1, const B &b, Len2 len2, const D &d, Count count) {
        const auto one_by_one = [&](int first, int last) {
            return objects<Tier>(a, w1.value, h1.value, b, len2.value, d, first, last);
        };
        return in_groups<is_list<Tier>>(a, w1, h1, b, len2, d, count.value, one_by_one);
    }
    // List kernels that call the non-array kernel.
    template <class Tier, class Call, class A, class B, class D>
    static SmxStatus run(Tier, const Inner<Call> &inner, const A &a, W1 w1, H1 h1, const B &b, Len2 len2, const D &d,
                         Count count) {
        const auto one_by_one = each_by(inner);
        if (inner.replaced) return one_by_one(0, count.value);
        return in_groups<false>(a, w1, h1, b, len2, d, count.value, one_by_one);
    }
};

struct Gaxpy : VectorSizes {
    template <int N, bool stores_at_end, class T, class A, class B, class C, class D>
    static void written_out(const A &a, const B &b, const C &c, const D &d) {
        T kept[N];
#pragma GCC unroll 6
        for (int i = 0; i < N; ++i) {
            kept[i] = row_product<N, T>(a, i, b) + c(i);
            if (!stores_at_end) d(i) = kept[i];
        }
        if (stores_at_end)
            for (int i = 0; i < N; ++i) d(i) = kept[i];
    }
    template <class T, class A, class B, class C, class D>
    static void simple(const A &a, const B &b, const C &c, const D &d, int m, int k) {
        for (int i = 0; i < m; ++i) {
            T sum = 0;
            d(i) = sum;
            for (int p = 0; p < k; ++p) {
                sum += a(i, p) * b(p);
                d(i) = sum;
            }
            d(i) = sum + c(i);
        }
    }
    template <class A, class B, class C, class D>
    static void through_result(const A &a, const B &b, const C &c, const D &d, int m, int k) {
        for (int i = 0; i < m; ++i) {
            d(i) = 0;
            for (int p = 0; p < k; ++p) d(i) = d(i) + a(i, p) * b(p);
            d(i) = d(i) + c(i);
        }
    }

    template <class Tier, class A, class B, class C, class D>
    static SmxStatus objects(const A &a, int k, int m, const B &b, const C &c, const D &d, int first, int last) {
        using T = ElementOf<D>;
        constexpr bool stores_at_end = is_single<D> && std::is_same_v<Tier, Plain>;
        if (with_side(k == m ? k : 0, [&]<int N>(Side<N>) {
                for (int n = first; n < last; ++n)
                    written_out<N, stores_at_end, T>(a.object(n, N), b.object(n), c.object(n), d.object(n));
            }))
            return smxStsNoErr;
        for (int n = first; n < last; ++n)
            if constexpr (std::is_same_v<Tier, P>)
                through_result(a.object(n, k), b.object(n), c.object(n), d.object(n), m, k);
            else simple<T>(a.object(n, k), b.object(n), c.object(n), d.object(n), m, k);
        return smxStsNoErr;
    }

    template <class Tier, class A, class B, class C, class D>
    static SmxStatus run(Tier, const A &a, W1 w1, H1 h1, const B &b, Len2, const C &c, Len3, const D &d) {
        return objects<Tier>(a, w1.value, h1.value, b, c, d, 0, 1);
    }
    template <class Tier, class A, class B, class C, class D>
    static SmxStatus run(Tier, const A &a, W1 w1, H1 h1, const B &b, Len2, const C &c, Len3, const D &d, Count count) {
        const auto one_by_one = [&](int first, int last) {
            return objects<Tier>(a, w1.value, h1.value, b, c, d, first, last);
        };
        const int side = w1.value;
        if (side != h1.value || !is_written_out(side)) return one_by_one(0, count.value);
        const LanePlan plan = lane_plan(count.value,
                                        {{a.lanes(side, side), SameObject::none},
                                         {b.lanes(1, side), SameObject::none},
                                         {c.lanes(1, side), SameObject::none}},
                                        {d.lanes(1, side)});
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, matrix_vector_lanes, plan, false); }, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
