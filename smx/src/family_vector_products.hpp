// Dot product: dst = sum of src1[p] src2[p], and cross product of vectors of 3.
//
//   Paths     dot product: lengths 3 to 6 written out, else a loop, in every kernel. Lists have loops of their own.
//   Order     objects ascending. Dot products: one accumulator of the element type, in ascending p from 0.0 in the loop
//             and from the first product in the written-out paths; there the kernels for a general stride2 take the
//             products from the fifth on after the first one (SumOrder::dot_tail_second). Cross products: the elements
//             0, 1 and 2, each stored as it is computed.
//   Status    always 0.
//   In place  dot product: a single vector of 3 to 6 elements is read once for all objects, and an object whole before
//             its result is stored. Cross product: dst must not overlap a source, which is read again for each element.
#pragma once

#include "family_products_core.hpp"
#include "frame_module.hpp"
#include "lanes_vector_products.hpp"

namespace smx {
inline namespace SMX_ISA {

struct DotProduct {
    template <class Tier>
    static constexpr SumOrder order =
        is_adjacent<Tier> || std::is_same_v<Tier, P> ? SumOrder::ascending : SumOrder::dot_tail_second;

    template <int N, class T, class View>
    static void read(const View &view, T (&x)[N]) {
        for (int p = 0; p < N; ++p) x[p] = view(p);
    }

    template <class Tier, class A, class B, class R>
    static SmxStatus objects(const A &a, const B &b, const R &dst, int len, int first, int last) {
        using T = ElementOf<A>;
        if (with_side(len, [&]<int N>(Side<N>) {
                T x[N], y[N];
                if (is_single<B>) read(b.object(0), y);
                for (int n = first; n < last; ++n) {
                    read(a.object(n), x);
                    if (!is_single<B>) read(b.object(n), y);
                    *dst.object(n) = dot_of<order<Tier>>(x, y);
                }
            }))
            return smxStsNoErr;
        for (int n = first; n < last; ++n) {
            const auto x = a.object(n);
            const auto y = b.object(n);
            T sum = 0;
            for (int p = 0; p < len; ++p) sum += x(p) * y(p);
            *dst.object(n) = sum;
        }
        return smxStsNoErr;
    }

    template <class Tier, class A, class B, class R>
    static SmxStatus run(Tier, const A &a, const B &b, const R &dst, Size<Role::len> len) {
        return objects<Tier>(a, b, dst, len.value, 0, 1);
    }
    template <class Tier, class A, class B, class R>
    static SmxStatus run(Tier, const A &a, const B &b, const R &dst, Size<Role::len> len, Count count) {
        const auto one_by_one = [&](int first, int last) { return objects<Tier>(a, b, dst, len.value, first, last); };
        if (!is_written_out(len.value)) return one_by_one(0, count.value);
        const LanePlan plan =
            lane_plan(count.value, {{a.lanes(1, len.value), SameObject::any}, {b.lanes(1, len.value), SameObject::any}},
                      {dst.lanes(1)});
        constexpr bool tail_second = order<Tier> == SumOrder::dot_tail_second;
        return for_each_object<ElementOf<A>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, dot_product_lanes, plan, tail_second); }, one_by_one);
    }
};

struct CrossProduct {
    template <class A, class B, class D>
    static SmxStatus objects(const A &a, const B &b, const D &dst, int first, int last) {
        for (int n = first; n < last; ++n) {
            const auto d = dst.object(n);
            for (int i = 0; i < 3; ++i) d(i) = cross_element(i, a.object(n), b.object(n));
        }
        return smxStsNoErr;
    }

    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, const B &b, const D &dst) {
        return objects(a, b, dst, 0, 1);
    }
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier, const A &a, const B &b, const D &dst, Count count) {
        const LanePlan plan = lane_plan(
            count.value, {{a.lanes(1, 3), SameObject::none}, {b.lanes(1, 3), SameObject::none}}, {dst.lanes(1, 3)});
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, cross_product_lanes, plan); },
            [&](int first, int last) { return objects(a, b, dst, first, last); });
    }
};

} // namespace SMX_ISA
} // namespace smx
