// Moves without arithmetic: Copy between the layouts, Extract into a dense array, LoadIdentity. They have neither
// kernels nor drivers: this is the body of the interface functions, and it runs on the calling thread.
//
//   Shapes    width and height are those of the result; a transposed source is stored with width rows.
//   Order     objects, rows and columns ascending, each element read and written before the next one is read; but
//             Extract va and ma from the pointer layout take one pointer after the other, and its element of all
//             objects in turn. LoadIdentity sets a row to 0 before it writes the row's 1.
//   Status    always 0.
//   In place  a destination that overlaps the source shows the order above. Blocks are copied only where nobody can
//             tell.
#pragma once

#include "frame_module.hpp"
#include "lanes_copy.hpp"

namespace smx {
inline namespace SMX_ISA {

template <class Operand>
constexpr bool is_pointers = false;
template <class T, int Rank, bool Array>
constexpr bool is_pointers<Pointers<T, Rank, Array>> = true;
template <class Stored>
constexpr bool is_pointers<Transposed<Stored>> = is_pointers<Stored>;

struct Moves {
    template <class A, class D>
    [[gnu::always_inline]] static void each(const A &a, const D &d, int height, int width, int first, int last) {
        for (int n = first; n < last; ++n) {
            const auto from = a.object(n, is_transposed<A> ? height : width);
            const auto to = d.object(n, width);
            for (int i = 0; i < height; ++i)
                for (int j = 0; j < width; ++j) to(i, j) = from(i, j);
        }
    }
    // Narrow objects with their width as a constant.
    template <class A, class D>
    static void objects(const A &a, const D &d, int height, int width, int first, int last) {
        if (!with_side(width, [&]<int N>(Side<N>) {
                if (height == 1) each(a, d, 1, N, first, last);
                else each(a, d, height, N, first, last);
            }))
            each(a, d, height, width, first, last);
    }
    template <class A, class D>
    [[gnu::always_inline]] static SmxStatus move(const A &a, const D &d, int height, int width, int count) {
        if constexpr (!is_pointers<A> && !is_pointers<D>) {
            const LaneOperand source = a.lanes(height, width), result = d.lanes(height, width);
            if (const std::ptrdiff_t bytes = run_bytes(count, result, source)) {
                copy_run(source.base, result.base, bytes);
                return smxStsNoErr;
            }
        }
        return move_objects(a, d, height, width, count);
    }
    template <class A, class D>
    [[gnu::noinline]] static SmxStatus move_objects(const A &a, const D &d, int height, int width, int count) {
        const auto one_by_one = [&](int first, int last) {
            objects(a, d, height, width, first, last);
            return SmxStatus{smxStsNoErr};
        };
        // A long pointer table takes longer to look through than to walk.
        constexpr bool by_table = is_pointers<A> || is_pointers<D>;
        if (by_table && (width > 6 || height > 6)) return one_by_one(0, count);
        const LaneOperand source = a.lanes(height, width), result = d.lanes(height, width);
        const LanePlan plan = lane_plan(count, {{source, SameObject::identical}}, {result}, groups_at_once(result));
        if (plan.verdict == Verdict::always && plan.packed && plan_copies_run(plan)) return smxStsNoErr;
        return for_each_object<ElementOf<D>>(
            plan, [&](int n) { return SMX_ON_ALL_LANES(n, copy_lanes, plan); }, one_by_one);
    }
};

struct Copy : Moves {
    template <class Tier, class A, class D>
    static SmxStatus run(Tier, const A &a, const D &d, Size<Role::len> len, Count count) {
        return move(a, d, 1, len.value, count.value);
    }
    template <class Tier, class A, class D>
    static SmxStatus run(Tier, const A &a, const D &d, Size<Role::width> width, Size<Role::height> height,
                         Count count) {
        return move(a, d, height.value, width.value, count.value);
    }
};

// Objects of `rows` rows, one behind the other without a gap.
template <class T>
struct Dense {
    T *base;
    std::ptrdiff_t row, object_size; // bytes
    Dense(T *base_, int rows, int columns)
        : base(base_), row(static_cast<std::ptrdiff_t>(columns) * static_cast<std::ptrdiff_t>(sizeof(T))),
          object_size(row * rows) {}
    auto object(int n, int /*columns*/ = 0) const {
        return StridedView<T, true>{stepped(base, object_size, n), row, 0};
    }
    LaneOperand lanes(int rows, int columns) const {
        constexpr std::ptrdiff_t size = sizeof(T);
        return {base,  nullptr, 0, object_size, row, size, static_cast<int>(size), rows, columns, Addressing::strided,
                false, false};
    }
};
template <class T>
struct Traits<Dense<T>> {
    using Element = T;
};

struct Extract : Moves {
    // Does the destination stay away from the pointers and all elements that they reach?
    template <class A, class T>
    static bool apart(const A &a, const Dense<T> &d, int elements, int count) {
        using Address = std::uintptr_t;
        const Address low = reinterpret_cast<Address>(d.base);
        const Address high = low + static_cast<Address>(d.object_size * count);
        const Address reach = static_cast<Address>(static_cast<std::ptrdiff_t>(a.stride0) * (count - 1)) + sizeof(T);
        const Address table = reinterpret_cast<Address>(a.table);
        if (table < high && low < table + static_cast<Address>(elements) * sizeof *a.table) return false;
        for (int e = 0; e < elements; ++e) {
            const Address from = reinterpret_cast<Address>(stepped(a.table[e], a.shift, 1));
            if (from < high && low < from + reach) return false;
        }
        return true;
    }
    template <class A, class T>
    static SmxStatus extract(const A &a, T *dst, int height, int width, int count) {
        const Dense<T> d(dst, height, width);
        // ta keeps the usual order.
        if constexpr (is_pointers<A> && !is_transposed<A>)
            if (count > 1 && (width > 6 || height > 6 || !apart(a, d, height * width, count))) {
                for (int i = 0; i < height; ++i)
                    for (int j = 0; j < width; ++j) {
                        const auto entry =
                            a.table[std::ptrdiff_t{i} * width + j]; // read once: dst may lie on the table
                        const A one(&entry, a.shift, a.stride0);
                        for (int n = 0; n < count; ++n) d.object(n)(i, j) = one.object(n, 1)(0, 0);
                    }
                return smxStsNoErr;
            }
        return move(a, d, height, width, count);
    }

    template <class Tier, class A, class T>
    static SmxStatus run(Tier, const A &a, const Packed<T> &d, Size<Role::len> len) {
        return extract(a, d.base, 1, len.value, 1);
    }
    template <class Tier, class A, class T>
    static SmxStatus run(Tier, const A &a, const Packed<T> &d, Size<Role::len> len, Count count) {
        return extract(a, d.base, 1, len.value, count.value);
    }
    template <class Tier, class A, class T>
    static SmxStatus run(Tier, const A &a, const Packed<T> &d, Size<Role::width> width, Size<Role::height> height) {
        return extract(a, d.base, height.value, width.value, 1);
    }
    template <class Tier, class A, class T>
    static SmxStatus run(Tier, const A &a, const Packed<T> &d, Size<Role::width> width, Size<Role::height> height,
                         Count count) {
        return extract(a, d.base, height.value, width.value, count.value);
    }
};

struct LoadIdentity {
    template <class D>
    [[gnu::always_inline]] static void each(const D &d, int width, int height, int count) {
        for (int n = 0; n < count; ++n) {
            const auto out = d.object(n, width);
            for (int i = 0; i < height; ++i) {
                for (int j = 0; j < width; ++j) out(i, j) = 0;
                if (i < width) out(i, i) = 1;
            }
        }
    }
    template <class Tier, class D>
    static SmxStatus run(Tier, const D &d, Size<Role::width> width, Size<Role::height> height, Count count) {
        if (!with_side(width.value == height.value ? width.value : 0,
                       [&]<int N>(Side<N>) { each(d, N, N, count.value); }))
            each(d, width.value, height.value, count.value);
        return smxStsNoErr;
    }
};

} // namespace SMX_ISA
} // namespace smx
