// Matrix product: dst = op(src1) op(src2), where op is the identity or the transpose.
//
//   Shapes    m by k times k by n; the width and height arguments are those of the operands as stored.
//   Paths     both operands square with the same side 3 to 6: written out. Else one of three general paths: blocked 4
//             rows by 2 columns, simple (the running sum is stored after every addition), or, in the pointer layout,
//             the sum runs through the destination element itself.
//   Order     objects, rows and columns ascending; every sum in ascending p with one accumulator of the element type,
//             which starts at 0.0 in the general paths and at the first product in the written-out ones.
//   Status    always 0.
//   In place  the written-out paths read src2 whole before the first store of an object (a single src2 once for all
//             objects, but not in the pointer layout), and src1 again for every element. dst must not overlap src1.
#pragma once

#include "frame_module.hpp"
#include "lanes_matrix_product.hpp"

namespace smx {
inline namespace SMX_ISA {

// The general path of a row's strided kernel with adjacent elements.
enum class General { blocked, simple, blocked_float };

template <General general>
struct MatrixProduct {
    template <class A>
    static int rows(const A &, int width, int height) {
        return is_transposed<A> ? width : height;
    }
    template <class A>
    static int columns(const A &, int width, int height) {
        return is_transposed<A> ? height : width;
    }

    // ---- written out

    template <int N, class B, class T>
    static void read_second(const B &b, T (&second)[N][N]) {
        for (int p = 0; p < N; ++p)
            for (int j = 0; j < N; ++j) second[p][j] = b(p, j);
    }
    template <int N, class A, class T, class D>
    static void written_out(const A &a, const T (&second)[N][N], const D &d) {
#pragma GCC unroll 1
        for (int i = 0; i < N; ++i)
#pragma GCC unroll 6
            for (int j = 0; j < N; ++j) {
                T sum = a(i, 0) * second[0][j];
#pragma GCC unroll 6
                for (int p = 1; p < N; ++p) sum += a(i, p) * second[p][j];
                d(i, j) = sum;
            }
    }

    // ---- general paths of one object

    // R rows and C columns of the result at (i, j), one accumulator each; stored column by column.
    template <int R, int C, class T, class A, class B, class D>
    static void block(const A &a, const B &b, const D &d, int i, int j, int k) {
        T sum[R][C] = {};
        for (int p = 0; p < k; ++p)
            for (int c = 0; c < C; ++c)
                for (int r = 0; r < R; ++r) sum[r][c] += a(i + r, p) * b(p, j + c);
        for (int c = 0; c < C; ++c)
            for (int r = 0; r < R; ++r) d(i + r, j + c) = sum[r][c];
    }
    template <class T, class A, class B, class D>
    static void blocked(const A &a, const B &b, const D &d, int m, int k, int n) {
        const int m_block = m & ~3, n_block = n & ~1;
        for (int i = 0; i < m_block; i += 4)
            for (int j = 0; j < n_block; j += 2) block<4, 2, T>(a, b, d, i, j, k);
        if (n_block != n)
            for (int i = 0; i < m_block; i += 4) block<4, 1, T>(a, b, d, i, n_block, k);
        for (int j = 0; j < n; ++j) switch (m - m_block) {
            case 1: block<1, 1, T>(a, b, d, m_block, j, k); break;
            case 2: block<2, 1, T>(a, b, d, m_block, j, k); break;
            case 3: block<3, 1, T>(a, b, d, m_block, j, k); break;
            default: break;
            }
    }
    template <class T, class A, class B, class D>
    static void simple(const A &a, const B &b, const D &d, int m, int k, int n) {
        for (int i = 0; i < m; ++i)
            for (int j = 0; j < n; ++j) {
                T sum = 0;
                d(i, j) = sum;
                for (int p = 0; p < k; ++p) {
                    sum += a(i, p) * b(p, j);
                    d(i, j) = sum;
                }
            }
    }
    template <class A, class B, class D>
    static void through_result(const A &a, const B &b, const D &d, int m, int k, int n) {
        for (int i = 0; i < m; ++i)
            for (int j = 0; j < n; ++j) {
                d(i, j) = 0;
                for (int p = 0; p < k; ++p) d(i, j) = d(i, j) + a(i, p) * b(p, j);
            }
    }
    template <class Tier, class T, class A, class B, class D>
    static void general_path(const A &a, const B &b, const D &d, int m, int k, int n) {
        constexpr bool is_blocked =
            std::is_same_v<Tier, L> ||
            (std::is_same_v<Tier, Plain> &&
             (general == General::blocked || (general == General::blocked_float && sizeof(T) == 4)));
        if constexpr (std::is_same_v<Tier, P>) through_result(a, b, d, m, k, n);
        else if constexpr (is_blocked) blocked<T>(a, b, d, m, k, n);
        else simple<T>(a, b, d, m, k, n);
    }

    // ---- kernels

    template <class Tier, class A, class B, class D>
    static SmxStatus objects(const A &a, int w1, int h1, const B &b, int w2, int h2, const D &d, int first, int last) {
        using T = ElementOf<D>;
        // The list kernels that are not loops over the non-array kernel have no path written out.
        if constexpr (!is_list<Tier>) {
            const bool square = w1 == h1 && w1 == w2 && w1 == h2;
            constexpr bool second_once = is_single<B> && !std::is_same_v<Tier, P>;
            if (with_side(square ? w1 : 0, [&]<int N>(Side<N>) {
                    T second[N][N];
                    if (second_once) read_second<N>(b.object(0, N), second);
                    for (int n = first; n < last; ++n) {
                        if (!second_once) read_second<N>(b.object(n, N), second);
                        written_out<N>(a.object(n, N), second, d.object(n, N));
                    }
                }))
                return smxStsNoErr;
        }
        const int m = rows(a, w1, h1), k = columns(a, w1, h1), columns2 = columns(b, w2, h2);
        for (int n = first; n < last; ++n)
            general_path<Tier, T>(a.object(n, w1), b.object(n, w2), d.object(n, columns2), m, k, columns2);
        return smxStsNoErr;
    }

    using W1 = Size<Role::width1>;
    using H1 = Size<Role::height1>;
    using W2 = Size<Role::width2>;
    using H2 = Size<Role::height2>;

    // Square operands by the lane engine; the list kernels without a path written out start their sums at 0.0.
    template <bool from_zero, class A, class B, class D, class Range>
    static SmxStatus in_groups(const A &a, W1 w1, H1 h1, const B &b, W2 w2, H2 h2, const D &d, int count,
                               Range one_by_one) {
        const int side = w1.value;
        if (side != h1.value || side != w2.value || side != h2.value || !is_written_out(side))
            return one_by_one(0, count);
        const SameObject second = from_zero ? SameObject::none : SameObject::any;
        const LanePlan plan = lane_plan(count, {{a.lanes(side, side), SameObject::none}, {b.lanes(side, side), second}},
                                        {d.lanes(side, side)});
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, matrix_product_lanes, plan, from_zero); }, one_by_one);
    }

    // Non-array kernels. The paths written out take a whole row of the result at a time where it does not meet src1.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, W1 w1, H1 h1, const B &b, W2 w2, H2 h2, const D &d) {
        if constexpr (std::is_same_v<Tier, Plain> && !is_transposed<B>) {
            const int side = w1.value;
            if (is_written_out(side) && side == h1.value && side == w2.value && side == h2.value &&
                instruction_set() != InstructionSet::sequential && are_apart(a, d, side)) {
                constexpr int size = sizeof(ElementOf<D>);
                constexpr bool turned = is_transposed<A>;
                return SMX_ON_LANES(one_product_lanes, a.base, turned ? size : a.stride1, turned ? a.stride1 : size,
                                    b.base, b.stride1, d.base, d.stride1, size, side);
            }
        }
        return objects<Tier>(a, w1.value, h1.value, b, w2.value, h2.value, d, 0, 1);
    }
    // Nothing from the first to the last element of the one lies between those of the other.
    template <class A, class D>
    static bool are_apart(const A &a, const D &d, int side) {
        constexpr std::ptrdiff_t size = sizeof(ElementOf<D>);
        const auto bytes = [&](int row) {
            return static_cast<std::uintptr_t>((side - 1) * std::ptrdiff_t{row} + side * size);
        };
        const auto from = reinterpret_cast<std::uintptr_t>(a.base), to = reinterpret_cast<std::uintptr_t>(d.base);
        return a.stride1 > 0 && d.stride1 > 0 && (from + bytes(a.stride1) <= to || to + bytes(d.stride1) <= from);
    }
    // Array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier tier, const A &a, W1 w1, H1 h1, const B &b, W2 w2, H2 h2, const D &d, Count count) {
        if (std::is_same_v<Tier, Plain> && count.value == 1) return run(tier, a, w1, h1, b, w2, h2, d);
        const auto one_by_one = [&](int first, int last) {
            return objects<Tier>(a, w1.value, h1.value, b, w2.value, h2.value, d, first, last);
        };
        return in_groups<is_list<Tier>>(a, w1, h1, b, w2, h2, d, count.value, one_by_one);
    }
    // List kernels that call the non-array kernel.
    template <class Tier, class Call, class A, class B, class D>
    static SmxStatus run(Tier, const Inner<Call> &inner, const A &a, W1 w1, H1 h1, const B &b, W2 w2, H2 h2, const D &d,
                         Count count) {
        const auto one_by_one = each_by(inner);
        if (inner.replaced) return one_by_one(0, count.value);
        return in_groups<false>(a, w1, h1, b, w2, h2, d, count.value, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
