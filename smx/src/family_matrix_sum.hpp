// Matrix addition and subtraction: dst = a + b or dst = a - b, element by element.
//
//   Paths     sides 3 to 6 written out, all other shapes by loops. List kernels call the non-array kernel for each
//             object where there is one. A few rows lack some of the written-out paths (enum Written).
//   Order     objects, rows and columns ascending; an element is read, computed and stored before the next one is
//             read. The written-out paths of the pointer layout read an object whole before they store, and a single
//             source once for all objects.
//   Status    always 0.
//   In place  dst may be a source with the same addresses. Other overlaps show the order above.
#pragma once

#include "frame_module.hpp"
#include "lanes_matrix_sum.hpp"

namespace smx {
inline namespace SMX_ISA {

// Which kernels of a row have the paths written out.
enum class Written { all, not_pointers, plain_float, none };

template <Arithmetic operation, Written written = Written::all>
struct MatrixSum {
    template <class Tier, class T>
    static constexpr bool is_written = written == Written::all ||
                                       (written == Written::not_pointers && !std::is_same_v<Tier, P>) ||
                                       (written == Written::plain_float && sizeof(T) == 4 &&
                                        (std::is_same_v<Tier, Plain> || std::is_same_v<Tier, S2>));

    // One object, element by element.
    template <class A, class B, class D>
    static void each_element(const A &a, const B &b, const D &d, int width, int height) {
        for (int i = 0; i < height; ++i)
            for (int j = 0; j < width; ++j) d(i, j) = apply<operation, typename D::Value>(a(i, j), b(i, j));
    }

    // The elements of a written-out object, read whole.
    template <class T, int N>
    struct Whole {
        T value[N * N];
        template <class View>
        void read(const View &view) {
#pragma GCC unroll 1
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j) value[i * N + j] = view(i, j);
        }
    };

    template <int N, class T, bool single_a, bool single_b, class A, class B, class D>
    static void whole_objects(const A &a, const B &b, const D &d, int first, int last) {
        Whole<T, N> x, y;
        if (single_a) x.read(a.object(0, N));
        if (single_b) y.read(b.object(0, N));
        for (int n = first; n < last; ++n) {
            if (!single_a) x.read(a.object(n, N));
            if (!single_b) y.read(b.object(n, N));
            const auto out = d.object(n, N);
            T sums[N * N];
            for (int e = 0; e < N * N; ++e) sums[e] = apply<operation>(x.value[e], y.value[e]);
#pragma GCC unroll 1
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j) out(i, j) = sums[i * N + j];
        }
    }

    template <class Tier, class T, class A, class B, class D>
    static void objects(Tier, const A &a, const B &b, const D &d, int width, int height, int first, int last) {
        const int columns_a = is_transposed<A> ? height : width;
        const int columns_b = is_transposed<B> ? height : width;
        if constexpr (is_written<Tier, T> && std::is_same_v<Tier, P>) {
            constexpr bool single_a = is_single<A>, single_b = is_single<B>;
            if (with_side(width == height ? width : 0,
                          [&]<int N>(Side<N>) { whole_objects<N, T, single_a, single_b>(a, b, d, first, last); }))
                return;
        } else if constexpr (is_written<Tier, T>) {
            if (with_side(width == height ? width : 0, [&]<int N>(Side<N>) {
                    for (int n = first; n < last; ++n) each_element(a.object(n), b.object(n), d.object(n), N, N);
                }))
                return;
        }
        for (int n = first; n < last; ++n)
            each_element(a.object(n, columns_a), b.object(n, columns_b), d.object(n, width), width, height);
    }

    // Whole groups by the lane engine where it has a way, which is the same for every tier: one operation an element.
    template <class T, class A, class B, class D, class Range>
    static SmxStatus in_groups(const A &a, const B &b, const D &d, int width, int height, int count, Range one_by_one) {
        const LaneOperand x = a.lanes(height, width), y = b.lanes(height, width), result = d.lanes(height, width);
        const LanePlan plan = lane_plan(count, {{x, SameObject::identical}, {y, SameObject::identical}}, {result},
                                        groups_at_once(result));
        if (computes_run(plan, operation)) return smxStsNoErr;
        return for_each_object<T>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, matrix_sum_lanes, plan, operation); }, one_by_one);
    }

    // Non-array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier tier, const A &a, const B &b, const D &d, Size<Role::width> width,
                         Size<Role::height> height) {
        using T = ElementOf<D>;
        objects<Tier, T>(tier, a, b, d, width.value, height.value, 0, 1);
        return smxStsNoErr;
    }

    // Array kernels.
    template <class Tier, class A, class B, class D>
    static SmxStatus run(Tier tier, const A &a, const B &b, const D &d, Size<Role::width> width,
                         Size<Role::height> height, Count count) {
        const int w = width.value, h = height.value;
        if (computes_run(operation, count.value, d.lanes(h, w), a.lanes(h, w), b.lanes(h, w))) return smxStsNoErr;
        return with_gaps(tier, a, b, d, w, h, count.value);
    }
    // By value: a run does without the operands in memory.
    template <class Tier, class A, class B, class D>
    [[gnu::noinline]] static SmxStatus with_gaps(Tier tier, A a, B b, D d, int width, int height, int count) {
        using T = ElementOf<D>;
        return in_groups<T>(a, b, d, width, height, count, [&](int first, int last) {
            objects<Tier, T>(tier, a, b, d, width, height, first, last);
            return smxStsNoErr;
        });
    }

    // List kernels that call the non-array kernel.
    template <class Tier, class Call, class A, class B, class D>
    static SmxStatus run(Tier, const Inner<Call> &inner, const A &a, const B &b, const D &d, Size<Role::width> width,
                         Size<Role::height> height, Count count) {
        const auto one_by_one = each_by(inner);
        if (inner.replaced) return one_by_one(0, count.value);
        return in_groups<ElementOf<D>>(a, b, d, width.value, height.value, count.value, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
