// Element by element with constants: Mul of a matrix by a constant, dst = op(src) val; Saxpy, dst = val src1 + src2;
// LComb, dst = val1 src1 + val2 src2.
//
//   Shapes    Mul: width and height are those of dst; a transposed src is stored with width rows and height columns.
//   Paths     one text: nothing depends on the order of the elements. Sides and lengths 3 to 6 are unrolled. The list
//             kernels of Mul call the non-array kernel.
//   Order     objects, rows and columns ascending; an element is read, computed and stored before the next one is read.
//             Products come before the sum. A single vector is read again for every object.
//   Status    always 0. The constants are not examined: a not-a-number in a vector times 0 stays one.
//   In place  dst may be a source with the same addresses. Other overlaps show the order above.
#pragma once

#include "frame_module.hpp"
#include "lanes_combinations.hpp"
#include "lanes_runs.hpp"

namespace smx {
inline namespace SMX_ISA {

struct MatrixByConstant {
    template <class A, class C, class D>
    static SmxStatus objects(const A &a, const C &factor, const D &dst, int width, int height, int first, int last) {
        const auto each = [&](int w, int h) {
            for (int n = first; n < last; ++n) {
                const auto x = a.object(n, is_transposed<A> ? h : w);
                const auto d = dst.object(n, w);
                for (int i = 0; i < h; ++i)
                    for (int j = 0; j < w; ++j) d(i, j) = x(i, j) * factor.value;
            }
        };
        if (!with_side(width == height ? width : 0, [&]<int N>(Side<N>) { each(N, N); })) each(width, height);
        return smxStsNoErr;
    }
    template <class A, class C, class D, class Range>
    static SmxStatus in_groups(const A &a, const C &factor, const D &dst, int width, int height, int count,
                               Range one_by_one) {
        const LaneOperand x = a.lanes(height, width), result = dst.lanes(height, width);
        if (computes_run(Arithmetic::multiply, count, result, x, factor.value)) return smxStsNoErr;
        const LanePlan plan = lane_plan(count, {{x, SameObject::identical}}, {result}, groups_at_once(result));
        if (computes_run(plan, Arithmetic::multiply, factor.value)) return smxStsNoErr;
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, combination_lanes, plan, factor.value, 0); }, one_by_one);
    }

    // Non-array kernels.
    template <class Tier, class A, class C, class D>
    static SmxStatus run(Tier, const A &a, const C &factor, const D &dst, Size<Role::width> width,
                         Size<Role::height> height) {
        return objects(a, factor, dst, width.value, height.value, 0, 1);
    }
    // Array kernels.
    template <class Tier, class A, class C, class D>
    static SmxStatus run(Tier, const A &a, const C &factor, const D &dst, Size<Role::width> width,
                         Size<Role::height> height, Count count) {
        return in_groups(a, factor, dst, width.value, height.value, count.value, [&](int first, int last) {
            return objects(a, factor, dst, width.value, height.value, first, last);
        });
    }
    // List kernels that call the non-array kernel.
    template <class Tier, class Call, class A, class C, class D>
    static SmxStatus run(Tier, const Inner<Call> &inner, const A &a, const C &factor, const D &dst,
                         Size<Role::width> width, Size<Role::height> height, Count count) {
        const auto one_by_one = each_by(inner);
        if (inner.replaced) return one_by_one(0, count.value);
        return in_groups(a, factor, dst, width.value, height.value, count.value, one_by_one);
    }
};

// Both vector families: a Saxpy has no second factor.
struct VectorCombination {
    template <bool has_factor2, class A, class B, class D>
    static SmxStatus objects(const A &a, ElementOf<D> factor1, const B &b, ElementOf<D> factor2, const D &dst, int len,
                             int first, int last) {
        const auto each = [&](int l) {
            for (int n = first; n < last; ++n) {
                const auto x = a.object(n);
                const auto y = b.object(n);
                const auto d = dst.object(n);
                for (int p = 0; p < l; ++p)
                    if constexpr (has_factor2) d(p) = factor1 * x(p) + factor2 * y(p);
                    else d(p) = factor1 * x(p) + y(p);
            }
        };
        if (!with_side(len, [&]<int N>(Side<N>) { each(N); })) each(len);
        return smxStsNoErr;
    }
    template <bool has_factor2, class A, class B, class D>
    static SmxStatus in_groups(const A &a, ElementOf<D> factor1, const B &b, ElementOf<D> factor2, const D &dst,
                               int len, int count) {
        const LaneOperand result = dst.lanes(1, len);
        const LanePlan plan =
            lane_plan(count, {{a.lanes(1, len), SameObject::identical}, {b.lanes(1, len), SameObject::identical}},
                      {result}, groups_at_once(result));
        const double second = has_factor2 ? factor2 : 1;
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, combination_lanes, plan, factor1, second); },
            [&](int first, int last) { return objects<has_factor2>(a, factor1, b, factor2, dst, len, first, last); });
    }
};

struct Saxpy : VectorCombination {
    template <class Tier, class A, class C, class B, class D>
    static SmxStatus run(Tier, const A &a, const C &factor, const B &b, const D &dst, Size<Role::len> len) {
        return objects<false>(a, factor.value, b, 1, dst, len.value, 0, 1);
    }
    template <class Tier, class A, class C, class B, class D>
    static SmxStatus run(Tier, const A &a, const C &factor, const B &b, const D &dst, Size<Role::len> len,
                         Count count) {
        return in_groups<false>(a, factor.value, b, 1, dst, len.value, count.value);
    }
};

struct LinearCombination : VectorCombination {
    template <class Tier, class A, class C, class B, class D>
    static SmxStatus run(Tier, const A &a, const C &factor1, const B &b, const C &factor2, const D &dst,
                         Size<Role::len> len) {
        return objects<true>(a, factor1.value, b, factor2.value, dst, len.value, 0, 1);
    }
    template <class Tier, class A, class C, class B, class D>
    static SmxStatus run(Tier, const A &a, const C &factor1, const B &b, const C &factor2, const D &dst,
                         Size<Role::len> len, Count count) {
        return in_groups<true>(a, factor1.value, b, factor2.value, dst, len.value, count.value);
    }
};

} // namespace SMX_ISA
} // namespace smx
