// Transpose: dst(c, r) = src(r, c), width and height being those of the source.
//
//   Paths     one text; square matrices of side 3 to 6 are unrolled.
//   Order     objects ascending; in an object destination row by destination row, but in the pointer layout, in shapes
//             that are not square of side 3 to 6, source row by source row. An element is read and stored before the
//             next one is read. The array kernels of the pointer layout read their tables once for sides 3 to 6.
//   Status    always 0.
//   In place  dst must not overlap src: elements would be overwritten before they are read.
#pragma once

#include "frame_module.hpp"
#include "lanes_copy.hpp"

namespace smx {
inline namespace SMX_ISA {

struct Transpose {
    // A pointer table of N entries, read.
    template <class T, int N>
    struct Table {
        T *entry[N];
        int shift, stride0;
        template <class Operand>
        explicit Table(const Operand &o) : shift(o.shift), stride0(o.stride0) {
            for (int e = 0; e < N; ++e) entry[e] = o.table[e];
        }
        PointerView<T> object(int n, int columns) const {
            return {entry, shift + static_cast<std::ptrdiff_t>(stride0) * n, columns};
        }
    };

    template <class A, class D>
    [[gnu::always_inline]] static void by_result_rows(const A &a, const D &d, int width, int height, int first,
                                                      int last) {
        for (int n = first; n < last; ++n) {
            const auto from = a.object(n, width);
            const auto to = d.object(n, height);
            for (int c = 0; c < width; ++c)
                for (int r = 0; r < height; ++r) to(c, r) = from(r, c);
        }
    }
    template <class A, class D>
    static void by_source_rows(const A &a, const D &d, int width, int height, int first, int last) {
        for (int n = first; n < last; ++n) {
            const auto from = a.object(n, width);
            const auto to = d.object(n, height);
            for (int r = 0; r < height; ++r)
                for (int c = 0; c < width; ++c) to(c, r) = from(r, c);
        }
    }

    template <class Tier, class A, class D>
    static SmxStatus objects(Tier, const A &a, const D &d, int width, int height, int first, int last) {
        using T = ElementOf<D>;
        const bool square = with_side(width == height ? width : 0, [&]<int N>(Side<N>) {
            if constexpr (std::is_same_v<Tier, P> && !is_single<D>)
                by_result_rows(Table<const T, N * N>(a), Table<T, N * N>(d), N, N, first, last);
            else by_result_rows(a, d, N, N, first, last);
        });
        if (square) return smxStsNoErr;
        if constexpr (std::is_same_v<Tier, P>) by_source_rows(a, d, width, height, first, last);
        else by_result_rows(a, d, width, height, first, last);
        return smxStsNoErr;
    }

    // Non-array kernels.
    template <class Tier, class A, class D>
    static SmxStatus run(Tier tier, const A &a, Size<Role::width> width, Size<Role::height> height, const D &d) {
        return objects(tier, a, d, width.value, height.value, 0, 1);
    }
    // Array kernels.
    template <class Tier, class A, class D>
    static SmxStatus run(Tier tier, const A &a, Size<Role::width> width, Size<Role::height> height, const D &d,
                         Count count) {
        const int side = width.value;
        const auto one_by_one = [&](int first, int last) {
            return objects(tier, a, d, width.value, height.value, first, last);
        };
        if (side != height.value || !is_written_out(side)) return one_by_one(0, count.value);
        // A copy of the source as seen transposed.
        const LaneOperand result = d.lanes(side, side);
        const LanePlan plan = lane_plan(count.value, {{transposed(a).lanes(side, side), SameObject::none}}, {result},
                                        groups_at_once(result));
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, copy_lanes, plan); }, one_by_one);
    }
};

} // namespace SMX_ISA
} // namespace smx
