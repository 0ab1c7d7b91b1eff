// L2 norm of a vector, trace and Frobenius norm of a matrix: one number an object.
//
//   Paths     L2 norm and trace: lengths and sides 3 to 6 written out, else a loop. Frobenius norm: see CutOff.
//   Order     objects ascending. Norms: squares in ascending order, of a matrix by rows, with one accumulator; but the
//             pointer layout adds the squares of a matrix in pairs. Trace: ascending from 0.0 in the loop; the
//             written-out paths of sides 5 and 6 begin with the last elements, but not in the pointer layout
//             (SumOrder::trace_tail_first).
//   Width     norms add the squares of floats in double, and round once, after the root. Traces run in the element
//             type.
//   Status    always 0.
//   Written   one element an object, once; but the loop of the trace stores the running sum after every addition.
#pragma once

#include "family_products_core.hpp"
#include "frame_module.hpp"
#include "lanes_norms.hpp"

namespace smx {
inline namespace SMX_ISA {

struct L2Norm {
    template <class A, class R>
    static SmxStatus objects(const A &a, const R &dst, int len, int first, int last) {
        const auto each = [&](int l) {
            for (int n = first; n < last; ++n) {
                const auto x = a.object(n);
                double sum = 0;
                for (int p = 0; p < l; ++p) sum += static_cast<double>(x(p)) * static_cast<double>(x(p));
                *dst.object(n) = static_cast<ElementOf<A>>(square_root(sum));
            }
        };
        if (!with_side(len, [&]<int N>(Side<N>) { each(N); })) each(len);
        return smxStsNoErr;
    }

    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, const R &dst, Size<Role::len> len) {
        return objects(a, dst, len.value, 0, 1);
    }
    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, const R &dst, Size<Role::len> len, Count count) {
        const auto one_by_one = [&](int first, int last) { return objects(a, dst, len.value, first, last); };
        if (!is_written_out(len.value)) return one_by_one(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{a.lanes(1, len.value), SameObject::any}}, {dst.lanes(1)});
        return for_each_object<ElementOf<A>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, norm_lanes, plan, false, false); }, one_by_one);
    }
};

struct Trace {
    // Asked ahead of the plan, which takes longer than ten objects. Beyond the first cache, a few elements of each object
    // come sooner than whole objects.
    static bool takes_lanes(const LaneOperand &o, int count) {
        const bool small =
            o.element == sizeof(float) && o.columns <= 4 && is_packed(o) && count * o.stride0 <= near_bytes;
        return o.addressing != Addressing::list && (o.stride0 == o.element || small);
    }

    template <class Tier, class A, class R>
    static SmxStatus objects(const A &a, const R &dst, int side, int first, int last) {
        using T = ElementOf<A>;
        constexpr SumOrder order = std::is_same_v<Tier, P> ? SumOrder::ascending : SumOrder::trace_tail_first;
        if (with_side(side, [&]<int N>(Side<N>) {
                for (int n = first; n < last; ++n) {
                    const auto x = a.object(n, N);
                    T diagonal[N];
                    for (int i = 0; i < N; ++i) diagonal[i] = x(i, i);
                    *dst.object(n) = sum_of<order>(diagonal);
                }
            }))
            return smxStsNoErr;
        for (int n = first; n < last; ++n) {
            const auto x = a.object(n, side);
            T sum = 0;
            *dst.object(n) = sum;
            for (int i = 0; i < side; ++i) {
                sum += x(i, i);
                *dst.object(n) = sum;
            }
        }
        return smxStsNoErr;
    }

    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, Size<Role::side> side, const R &dst) {
        return objects<Tier>(a, dst, side.value, 0, 1);
    }
    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, Size<Role::side> side, const R &dst, Count count) {
        const auto one_by_one = [&](int first, int last) { return objects<Tier>(a, dst, side.value, first, last); };
        if (!is_written_out(side.value)) return one_by_one(0, count.value);
        const LaneOperand matrices = a.lanes(side.value, side.value);
        if (!takes_lanes(matrices, count.value)) return one_by_one(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{matrices, SameObject::any}}, {dst.lanes(1)});
        constexpr bool tail_first = !std::is_same_v<Tier, P>;
        return for_each_object<ElementOf<A>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, trace_lanes, plan, tail_first); }, one_by_one);
    }
};

// Which Frobenius norms come out as 0 where the sum of squares is below the machine epsilon of the element type, or
// not a number. The members differ, and callers see it.
enum class CutOff { always, never, not_3x3, not_3x3_nor_4_to_6_wide };

template <class Tier, class T, bool array>
constexpr CutOff cut_off = array ? (std::is_same_v<Tier, P> ? CutOff::not_3x3 : CutOff::not_3x3_nor_4_to_6_wide)
                           : std::is_same_v<Tier, P> || sizeof(T) == 4 ? CutOff::always
                                                                       : CutOff::never;

constexpr bool cuts_off(CutOff rule, int width, int height) {
    const bool is_3x3 = width == 3 && height == 3;
    return rule == CutOff::always || (rule == CutOff::not_3x3 && !is_3x3) ||
           (rule == CutOff::not_3x3_nor_4_to_6_wide && !is_3x3 && !(width >= 4 && width <= 6));
}

struct FrobeniusNorm {
    template <class View>
    static double by_rows(const View &x, int width, int height) {
        double sum = 0;
        for (int i = 0; i < height; ++i)
            for (int j = 0; j < width; ++j) sum += static_cast<double>(x(i, j)) * static_cast<double>(x(i, j));
        return sum;
    }
    // The squares of table entries 0 and 1, 2 and 3, ...; the last one alone if their number is odd.
    template <class View>
    static double by_pairs(const View &x, int elements) {
        const auto square = [&](int e) { return static_cast<double>(x(e)) * static_cast<double>(x(e)); };
        double sum = 0;
        for (int e = 0; e + 1 < elements; e += 2) sum += square(e) + square(e + 1);
        if (elements % 2 != 0) sum += square(elements - 1);
        return sum;
    }

    template <class Tier, bool array, class A, class R>
    static SmxStatus objects(const A &a, const R &dst, int width, int height, int first, int last) {
        using T = ElementOf<A>;
        const bool cuts = cuts_off(cut_off<Tier, T, array>, width, height);
        const auto each = [&](int w, int h) {
            for (int n = first; n < last; ++n) {
                const auto x = a.object(n, w);
                double sum;
                // 3 by 3 matrices of an array are a chain in the pointer layout too.
                if constexpr (std::is_same_v<Tier, P>)
                    sum = array && w == 3 && h == 3 ? by_rows(x, w, h) : by_pairs(x, w * h);
                else sum = by_rows(x, w, h);
                *dst.object(n) = static_cast<T>(norm_of<T>(sum, cuts));
            }
        };
        if (!with_side(width == height ? width : 0, [&]<int N>(Side<N>) { each(N, N); })) each(width, height);
        return smxStsNoErr;
    }

    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, Size<Role::width> width, Size<Role::height> height, const R &dst) {
        return objects<Tier, false>(a, dst, width.value, height.value, 0, 1);
    }
    template <class Tier, class A, class R>
    static SmxStatus run(Tier, const A &a, Size<Role::width> width, Size<Role::height> height, const R &dst,
                         Count count) {
        using T = ElementOf<A>;
        const int w = width.value, h = height.value;
        const auto one_by_one = [&](int first, int last) { return objects<Tier, true>(a, dst, w, h, first, last); };
        if (w != h || !is_written_out(w)) return one_by_one(0, count.value);
        const LanePlan plan = lane_plan(count.value, {{a.lanes(h, w), SameObject::any}}, {dst.lanes(1)});
        const bool pairs = std::is_same_v<Tier, P> && w != 3, cuts = cuts_off(cut_off<Tier, T, true>, w, h);
        return for_each_object<T>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, norm_lanes, plan, pairs, cuts); }, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
