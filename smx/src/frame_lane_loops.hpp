// The loops of the lane units: over groups of objects, over single objects, over runs of elements.
#pragma once

#include "frame_lane_access.hpp"
#include "frame_lanes.hpp"
#include "lanes_lists.hpp"

namespace smx {
inline namespace SMX_ISA {

// ---- loops over groups

// A loop over groups as one function, with all that its body calls: GCC would leave a body with several uses of its
// operands out of line, and read them anew for each group.
#define SMX_LANE_LOOP [[gnu::flatten, gnu::noinline]]

// Objects first .. count - 1 in groups: body(n) computes the group from object n on (or as many groups as its plan was
// judged for) and says whether it may stand. `in_order` if it stores one object of a group after the other. `light` if
// it does so little that groups which nobody watches need a loop of their own: beside a call, it would load all its
// constants again each time.
template <class T, int at_once = 1, bool in_order = false, bool light = false, class Body>
[[gnu::always_inline]] inline int each_group(const LanePlan &plan, int first, Body body) {
    constexpr int W = at_once * Pack<T>::width;
    const int count = plan.count;
    const bool watched = plan.watched && begins_groups(plan) && !(in_order && only_results_may_meet(plan));
    int n = first;
    if constexpr (light) {
        for (int end = count; n <= count - W;) {
            if (watched) {
                if (!begin_group(plan, n, W)) break;
                end = n + W;
            }
            for (; n <= end - W; n += W)
                if (!body(n)) return n;
        }
    } else {
        for (; n <= count - W; n += W) {
            if (watched && !begin_group(plan, n, W)) break;
            if (!body(n)) break;
        }
    }
    return n;
}

// The same, body(n, objects...), where the layout of all operands is known.
template <Known known, class T, class Body, template <class, int, int> class Operand, int... R, int... C>
[[gnu::always_inline]] inline int each_group_known(const LanePlan &plan, int first, Body body,
                                                   const Operand<T, R, C> &...operands) {
    return [&](const auto... objects) __attribute__((always_inline)) {
        constexpr bool in_order = known == Known::listed && (Objects<Known::listed, T, R, C>::in_order && ...);
        constexpr bool light = known == Known::packed || known == Known::planes || known == Known::strided;
        int n = each_group<T, 1, in_order, light>(plan, first, [&](int n) { return body(n, objects...); });
#if defined(__AVX512F__)
        // The last objects, too few for a group, out of the way of the loop.
        if constexpr (known == Known::packed && ((LaneAccess<T, R, C>::few || R * C == 1) && ...)) {
            const int left = plan.count - n;
            if (0 < left && left < Pack<T>::width) [[unlikely]] {
                if (body(n, PackedObjects<T, R, C, PartOfGroup>(operands.o, PartOfGroup<T, R * C>{left})...))
                    n = plan.count;
            }
        }
#endif
        return n;
    }
    (Objects<known, T, R, C>(operands)...);
}
// The same where it is one of those named, or none: for bodies that do so little that the way of the loads counts. What
// a plan knows to be packed needs no look at the operands.
template <class T, Known... layouts, class Body, template <class, int, int> class Operand, int... R, int... C>
[[gnu::always_inline]] inline int each_group_by(const LanePlan &plan, int first, Body body,
                                                const Operand<T, R, C> &...operands) {
    // Beside what narrow packs do not save, a decision is little; the code for each layout would be much.
    constexpr bool decides = !few_lanes;
    if constexpr (decides && ((layouts == Known::packed) || ...))
        if (plan.packed && !(operands.o.single || ...))
            return each_group_known<Known::packed, T>(plan, first, body, Shaped<T, R, C>{operands.o}...);
    return [&](const auto &...accesses) __attribute__((always_inline)) {
        int done = first;
        [[maybe_unused]] const auto as = [&]<Known known>(Fixed<known>) __attribute__((always_inline)) {
            if constexpr (!decides || known == Known::packed) return false;
            const bool fits = (is_known(accesses, known) && ...);
            if (fits) done = each_group_known<known, T>(plan, first, body, accesses...);
            return fits;
        };
        if ((as(Fixed<layouts>{}) || ...)) return done;
        return each_group_known<Known::nothing, T>(plan, first, body, accesses...);
    }
    (LaneAccess<T, R, C>(operands.o)...);
}

// Structures of arrays of any shape, taken element by element of `plane_groups` groups at once; others are not touched.
inline bool is_planes(const LaneOperand &o) {
    return o.addressing != Addressing::list && !o.single && o.stride0 == o.element;
}
// Element (i, j) of object 0, as the operation sees it.
inline const Byte *element_at(const LaneOperand &o, int i, int j) {
    const int row = o.transposed ? j : i, column = o.transposed ? i : j;
    if (o.addressing == Addressing::pointers) return at(o.table[row * o.columns + column], o.shift);
    return at(o.base, row * o.stride1 + column * o.stride2);
}
template <class T, class F, class... Sources>
SMX_LANE_LOOP int plane_by_plane(const LanePlan &plan, int first, F apply, const LaneOperand &d,
                                 const Sources &...sources) {
    if (plan.groups < plane_groups || !(is_planes(d) && ... && is_planes(sources))) return first;
    const int height = d.rows, width = d.columns;
    return each_group<T, plane_groups>(plan, first, [&](int n) {
        const auto plane = [&](const Byte *to, const auto *...from) {
#pragma GCC unroll 8
            for (int k = 0; k < plane_groups * pack_bytes; k += pack_bytes)
                store_pack(const_cast<Byte *>(to + k), apply(load_pack<T>(from + k)...));
        };
        const std::ptrdiff_t offset = n * static_cast<std::ptrdiff_t>(sizeof(T));
        for (int i = 0; i < height; ++i)
            for (int j = 0; j < width; ++j) plane(element_at(d, i, j) + offset, element_at(sources, i, j) + offset...);
        return true;
    });
}

// ---- loops over objects

// Where the objects of a strided operand start; a single object is one at a stride of 0.
struct StridedStarts {
    const Byte *base;
    std::ptrdiff_t stride;
    explicit StridedStarts(const LaneOperand &o)
        : base(static_cast<const Byte *>(o.base)), stride(o.single ? 0 : o.stride0) {}
    const Byte *operator[](int n) const { return at(base, n * stride); }
};
struct ListedStarts {
    const void *const *table;
    std::ptrdiff_t shift;
    explicit ListedStarts(const LaneOperand &o) : table(o.table), shift(o.shift) {}
    const Byte *operator[](int n) const { return at(table[n], shift); }
};
// Of either kind. There is nothing to decide: a strided operand is a table of one entry.
struct ObjectStarts {
    const void *const *table;
    std::ptrdiff_t step, shift, stride;
    explicit ObjectStarts(const LaneOperand &o) {
        const bool listed = o.addressing == Addressing::list;
        table = listed ? o.table : &o.base;
        step = listed;
        shift = listed ? o.shift : 0;
        stride = listed || o.single ? 0 : o.stride0;
    }
    const Byte *operator[](int n) const { return at(table[n * step], n * stride + shift); }
};

enum class Loop {
    usual,
    pairs, // the sequential kernel takes two objects at a time, so its order may show between neighbours, too
    lists, // lists have a loop of their own
    heavy, // so have they, as a function of its own: so much is done for an object that it needs all registers
    light  // so have all pairs of layouts: so little is done for an object of a source and of a result
};

// By itself, because a loop over three lists needs all registers: with the rest of its kernel around it GCC would keep
// addresses in memory.
template <class Body, class... Starts>
[[gnu::noinline, gnu::flatten]] inline void each_listed(int n, int end, Body body, const Starts... starts) {
    for (; n < end; ++n) body(starts[n]...);
}

// Objects first .. count - 1 one after the other, each read whole before it is stored: only what overlaps within the
// same object matters. body(start...) is given where each operand's object starts. Whether it reads and writes by masks
// is told because that does not make the processor fetch ahead: a stream through memory is touched for it.
template <class T, Loop kind = Loop::usual, bool masked = false, class Body, class... Operands>
[[gnu::always_inline]] inline int each_object_of(const LanePlan &plan, int first, Body body,
                                                 const Operands &...operands) {
    const auto loop = [&](const auto... starts) __attribute__((always_inline)) {
        if constexpr (kind == Loop::pairs)
            if (!safe_in_pairs(plan, first))
                return each_group<T>(plan, first, [&](int n) {
                    for (int l = n; l < n + Pack<T>::width; ++l) body(starts[l]...);
                    return true;
                });
        const int last = safe_alone_until(plan, first);
        for (int n = first; n < last;) {
            const int end = masked ? touched_until(plan, n, last) : last;
            if constexpr (kind == Loop::light) {
#pragma GCC unroll 4
                for (; n < end; ++n) body(starts[n]...);
            } else if constexpr (kind == Loop::heavy && (std::is_same_v<decltype(starts), const ListedStarts> && ...)) {
                each_listed(n, end, body, starts...);
                n = end;
            } else {
                for (; n < end; ++n) body(starts[n]...);
            }
        }
        return last;
    };
    const auto listed = [](const LaneOperand &o) { return o.addressing == Addressing::list; };
    if ((!listed(operands) && ...)) return loop(StridedStarts(operands)...);
    if constexpr (kind == Loop::light) {
        const auto two = [&](const LaneOperand &a, const LaneOperand &b) __attribute__((always_inline)) {
            if (!listed(a)) return loop(StridedStarts(a), ListedStarts(b));
            return listed(b) ? loop(ListedStarts(a), ListedStarts(b)) : loop(ListedStarts(a), StridedStarts(b));
        };
        return two(operands...);
    }
    if constexpr (kind == Loop::lists || kind == Loop::heavy)
        if ((listed(operands) && ...)) return loop(ListedStarts(operands)...);
    return loop(ObjectStarts(operands)...);
}

// L adjacent elements of each object in the widest vectors that fit, the last one going back over elements that are
// done already; all are read before the first store. apply(x...) is given vectors or single elements.
template <class T, int L, class F, class... Starts>
[[gnu::always_inline]] inline void element_by_element(F apply, const Byte *d, Starts... from) {
    constexpr int size = sizeof(T), bytes = L * size;
    constexpr int wide = bytes >= 32 && pack_bytes >= 32 ? 32 : bytes >= 16 ? 16 : size;
    constexpr int vectors = (bytes + wide - 1) / wide;
    typedef T V __attribute__((vector_size(wide)));
    V result[vectors];
    const auto load = [](const Byte *at) {
        V x;
        std::memcpy(&x, at, wide);
        return x;
    };
#pragma GCC unroll 40
    for (int k = 0; k < vectors; ++k) result[k] = apply(load(from + (k == vectors - 1 ? bytes - wide : k * wide))...);
#pragma GCC unroll 40
    for (int k = 0; k < vectors; ++k)
        std::memcpy(const_cast<Byte *>(d + (k == vectors - 1 ? bytes - wide : k * wide)), &result[k], wide);
}

// Is a run left to a narrower set than this unit's?
inline bool leaves_run(std::ptrdiff_t bytes, int operands) {
    return widest_for_run(bytes, operands) < InstructionSet::SMX_ISA;
}

// `bytes` of adjacent elements, whatever objects they belong to. apply(x...) is given packs or single elements.
template <class T, class F, class... Sources>
[[gnu::always_inline]] inline void run_of_elements(F apply, const Byte *d, std::ptrdiff_t bytes, Sources... from) {
    constexpr int size = sizeof(T), four = 4 * pack_bytes;
    // The elements from byte e to byte `end`, fewer than a pack of them.
    const auto few = [=](std::ptrdiff_t e, std::ptrdiff_t end) __attribute__((always_inline)) {
#if defined(__AVX512F__)
        const PartOfGroup<T, 1> part{static_cast<int>(end - e + size - 1) / size};
        if (e < end) part.store(d + e, 0, Pack<T>(apply(part.load(from + e, 0)...)));
        return e + part.count * size;
#else
#pragma GCC unroll 1
        for (; e < end; e += size) store_element<T>(d + e, apply(load_element<T>(from + e)...));
        return e;
#endif
    };
    const auto pack = [=](std::ptrdiff_t e) __attribute__((always_inline)) {
        store_pack(const_cast<Byte *>(d + e), Pack<T>(apply(load_pack<T>(from + e)...)));
    };
    // A store that crosses two lines of the cache costs twice.
    constexpr int worth_aligning = 16 * pack_bytes;
    std::ptrdiff_t e = 0;
    if (bytes >= worth_aligning) e = few(e, -reinterpret_cast<std::intptr_t>(d) & (pack_bytes - 1));
    // Beyond the first cache, steps of 32 bytes are 3 % faster if a line that will be stored is asked for a little ahead.
    const bool beyond = pack_bytes <= 32 && (static_cast<std::ptrdiff_t>(sizeof...(from)) + 1) * bytes > near_bytes;
#pragma GCC unroll 1
    for (; e + four <= bytes; e += four) {
        if (beyond) __builtin_prefetch(d + e + 2 * four, 1);
#pragma GCC unroll 4
        for (int k = 0; k < four; k += pack_bytes) pack(e + k);
    }
#pragma GCC unroll 1
    for (; e + pack_bytes <= bytes; e += pack_bytes) pack(e);
    few(e, bytes);
}

// Calls f(T{}, Side<n>{}) for an element type and a side of 3 to 6; else nothing is done. Nor is it with less than one
// group, unless the loops have a way for that, too.
enum class Fewest { group, one };
template <Fewest fewest = Fewest::group, class F>
[[gnu::always_inline]] inline int by_type_and_side(const LanePlan &plan, int element, int side, int first, F f) {
    int done = first;
    if (fewest == Fewest::group && (plan.count - first) * element < pack_bytes) return first;
    if (element == sizeof(float)) with_side(side, [&](auto s) { done = f(float{}, s); });
    else with_side(side, [&](auto s) { done = f(double{}, s); });
    return done;
}

} // namespace SMX_ISA
} // namespace smx
