#include "frame_lanes.hpp"

#include <limits.h>
#include <stdint.h>

namespace smx {

namespace {

using Address = intptr_t;

// The bytes of one object lie in [low, low + extent), of object n at n * stride0 behind that.
struct Footprint {
    Address low;
    ptrdiff_t extent;
    ptrdiff_t stride0;
};

int elements(const LaneOperand &o) {
    return o.rows * o.columns;
}

Address entry(const LaneOperand &o, int e) {
    return reinterpret_cast<Address>(o.table[e]) + o.shift;
}

// The address of element e (row-major as stored) of object 0 of a strided or pointer operand.
Address element_address(const LaneOperand &o, int e) {
    if (o.addressing == Addressing::pointers) return entry(o, e);
    return reinterpret_cast<Address>(o.base) + e / o.columns * o.stride1 + e % o.columns * o.stride2;
}

ptrdiff_t strided_extent(const LaneOperand &o) {
    return (o.rows - 1) * o.stride1 + (o.columns - 1) * o.stride2 + o.element;
}

Footprint footprint(const LaneOperand &o) {
    if (o.addressing != Addressing::pointers)
        return {reinterpret_cast<Address>(o.base), strided_extent(o), o.single ? 0 : o.stride0};
    Address low = entry(o, 0), high = low;
    for (int e = 1; e < elements(o); ++e) {
        const Address at = entry(o, e);
        low = at < low ? at : low;
        high = at > high ? at : high;
    }
    return {low, high - low + o.element, o.single ? 0 : o.stride0};
}

bool apart(Address low1, ptrdiff_t size1, Address low2, ptrdiff_t size2) {
    return low1 + size1 <= low2 || low2 + size2 <= low1;
}

// No element of one object may lie closer to another element than `width` objects, so that a row of lanes for one
// element never meets the row of lanes for another. For operands whose objects follow each other element by element.
bool lane_rows_apart(const LaneOperand &a, const LaneOperand &b, int width, bool same_place_allowed) {
    const ptrdiff_t reach = static_cast<ptrdiff_t>(width) * a.element;
    const bool self = &a == &b;
    if (self) {
        bool ascending = true;
        for (int e = 1; e < elements(a) && ascending; ++e)
            ascending = element_address(a, e) - element_address(a, e - 1) >= reach;
        if (ascending) return true;
    }
    for (int e = 0; e < elements(a); ++e) {
        const Address at = element_address(a, e);
        for (int f = self ? e + 1 : 0; f < elements(b); ++f) {
            const ptrdiff_t distance = at - element_address(b, f);
            if (distance == 0 && same_place_allowed) continue;
            if (distance > -reach && distance < reach) return false;
        }
    }
    return true;
}

bool same_addresses(const LaneOperand &a, const LaneOperand &b) {
    return a.addressing == b.addressing && a.base == b.base && a.table == b.table && a.shift == b.shift &&
           (a.addressing == Addressing::list || a.stride0 == b.stride0) && a.stride1 == b.stride1 &&
           a.stride2 == b.stride2 && a.rows == b.rows && a.columns == b.columns && a.transposed == b.transposed;
}

// Do the elements of one object stay out of each other's way?
bool elements_apart(const LaneOperand &o) {
    if (o.addressing != Addressing::pointers)
        return o.stride1 >= (o.columns - 1) * o.stride2 + o.element || o.rows == 1 ||
               o.stride2 >= (o.rows - 1) * o.stride1 + o.element;
    for (int e = 1; e < elements(o); ++e)
        for (int f = 0; f < e; ++f)
            if (!apart(entry(o, e), o.element, entry(o, f), o.element)) return false;
    return true;
}

// Does the sequential kernel allow what the lanes do, read an object whole before it is stored, where a source is the
// result itself?
bool fine_in_place(const LaneSource &source, const LaneOperand &d) {
    return source.same_object == SameObject::any ||
           (source.same_object == SameObject::identical && same_addresses(source.operand, d) && elements_apart(d));
}

Address object_address(const LaneOperand &o, int n) {
    if (o.addressing == Addressing::list) return entry(o, n);
    return reinterpret_cast<Address>(o.base) + (o.single ? 0 : n * o.stride0);
}

// The loops over whole lists below gather sign bits instead of branching, so that they cost little beside the work.
// Does every object of a list start at least `gap` bytes behind the one before it?
// (The loops over lists gather sign bits instead of branching: they must cost little beside the work.)
bool ascends(const LaneOperand &o, ptrdiff_t gap, int count) {
    const Address *const list = reinterpret_cast<const Address *>(o.table);
    ptrdiff_t signs = 0;
    for (int n = 1; n < count; ++n) signs |= list[n] - list[n - 1] - gap;
    return signs >= 0;
}

// Where the objects of a call lie, if that is known without looking at each.
bool known_span(const LaneOperand &o, int count, Address &low, Address &high) {
    if (o.addressing == Addressing::list && !ascends(o, 0, count)) return false;
    low = object_address(o, 0);
    high = object_address(o, o.single ? 0 : count - 1) + strided_extent(o);
    return true;
}

// Source and result objects of a whole call, at least one of them a list. Settles the usual cases: all sources away
// from all results, both in ascending order side by side (fields of the same structs, say), or in place.
bool list_pair_is_safe(const LaneOperand &s, const LaneOperand &d, bool in_place_fine, int count) {
    if (s.addressing == Addressing::pointers || d.addressing == Addressing::pointers) return false;
    Address low_s, high_s, low_d, high_d;
    if (!known_span(s, count, low_s, high_s) || !known_span(d, count, low_d, high_d)) return false;
    if (high_s <= low_d || high_d <= low_s) return true;
    if (s.addressing != Addressing::list || d.addressing != Addressing::list) return false;
    const Address *const from = reinterpret_cast<const Address *>(s.table);
    const Address *const to = reinterpret_cast<const Address *>(d.table);
    const ptrdiff_t extent_s = strided_extent(s), extent_d = strided_extent(d), shift = d.shift - s.shift;
    ptrdiff_t source_first = to[0] - from[0] + shift - extent_s, result_first = from[0] - to[0] - shift - extent_d;
    ptrdiff_t apart_from_same = to[0] - from[0] + shift;
    for (int n = 1; n < count; ++n) {
        const ptrdiff_t distance = to[n] - from[n] + shift;
        source_first |= (distance - extent_s) | (from[n] - to[n - 1] - shift - extent_d);
        result_first |= (-distance - extent_d) | (to[n] - from[n - 1] + shift - extent_s);
        apart_from_same |= distance;
    }
    return source_first >= 0 || result_first >= 0 || (apart_from_same == 0 && in_place_fine);
}

// Do different objects of a result stay out of each other's way within a group?
Verdict result_alone(const LaneOperand &d, int width, int count) {
    if (d.addressing == Addressing::list)
        return ascends(d, strided_extent(d), count) ? Verdict::always : Verdict::by_group;
    const Footprint f = footprint(d);
    if (f.stride0 >= f.extent) return Verdict::always;
    if (f.stride0 == d.element) return lane_rows_apart(d, d, width, false) ? Verdict::always : Verdict::never;
    return Verdict::never;
}

ptrdiff_t floor_divide(ptrdiff_t a, ptrdiff_t b) {
    return a / b - (a % b < 0);
}

Verdict pair(const LaneSource &source, const LaneOperand &d, int width, int count) {
    const LaneOperand &s = source.operand;
    if (s.addressing == Addressing::list || d.addressing == Addressing::list)
        return list_pair_is_safe(s, d, fine_in_place(source, d), count) ? Verdict::always : Verdict::by_group;
    const Footprint fs = footprint(s), fd = footprint(d);
    const ptrdiff_t span_s = fs.extent + (count - 1) * fs.stride0, span_d = fd.extent + (count - 1) * fd.stride0;
    if (apart(fs.low, span_s, fd.low, span_d)) return Verdict::always;
    if (s.single || fs.stride0 != fd.stride0) return Verdict::never;
    // Result m and source n overlap for the differences k = m - n with  distance + k stride0  in (-extent_d, extent_s).
    const ptrdiff_t distance = fd.low - fs.low;
    const ptrdiff_t first = floor_divide(-distance - fd.extent, fd.stride0) + 1;
    const ptrdiff_t last = -floor_divide(-(fs.extent - distance), fd.stride0) - 1;
    const ptrdiff_t from = first > -(width - 1) ? first : -(width - 1);
    const ptrdiff_t to = last < width - 1 ? last : width - 1;
    if (from > to) return Verdict::always;
    if (from == 0 && to == 0) return fine_in_place(source, d) ? Verdict::always : Verdict::never;
    if (fd.stride0 == d.element && s.element == d.element)
        return lane_rows_apart(s, d, width, fine_in_place(source, d)) ? Verdict::always : Verdict::never;
    return Verdict::never;
}

} // namespace

void judge(LanePlan &plan) {
    plan.verdict = Verdict::never;
    int width = 2;
    for (int i = 0; i < plan.results; ++i) {
        const int lanes = lane_bytes() / plan.result[i].element;
        width = lanes > width ? lanes : width;
    }
    if (plan.count < 2 || instruction_set() == InstructionSet::sequential) return;
    Verdict verdict = Verdict::always;
    const auto note = [&](Verdict found) {
        if (found == Verdict::never || verdict == Verdict::never) verdict = Verdict::never;
        else if (found == Verdict::by_group) verdict = Verdict::by_group;
    };
    for (int i = 0; i < plan.results && verdict != Verdict::never; ++i) {
        note(result_alone(plan.result[i], width, plan.count));
        for (int j = 0; j < plan.sources && verdict != Verdict::never; ++j)
            note(pair(plan.source[j], plan.result[i], width, plan.count));
        // Two results of one call must not meet at all.
        for (int j = 0; j < i && verdict != Verdict::never; ++j)
            note(pair({plan.result[j], SameObject::none}, plan.result[i], width, plan.count));
    }
    plan.verdict = verdict;
}

namespace {

// The lowest and highest address of a group of objects, and whether they ascend without touching.
struct Range {
    Address low, high;
    bool ascending;
};
Range range(const LaneOperand &o, int first, int width, ptrdiff_t extent) {
    Range r{object_address(o, first), 0, true};
    r.high = r.low;
    Address before = r.low;
    for (int l = 1; l < width; ++l) {
        const Address at = object_address(o, first + l);
        r.ascending = r.ascending && at - before >= extent;
        r.low = at < r.low ? at : r.low;
        r.high = at > r.high ? at : r.high;
        before = at;
    }
    r.high += extent;
    return r;
}

bool group_pair_is_safe(const LaneOperand &s, const LaneOperand &d, bool in_place_fine, bool self, int first,
                        int width) {
    const ptrdiff_t extent_s = strided_extent(s), extent_d = strided_extent(d);
    const Range rd = range(d, first, width, extent_d);
    if (self) {
        if (rd.ascending) return true;
    } else {
        const Range rs = range(s, first, s.single ? 1 : width, extent_s);
        if (rs.high <= rd.low || rd.high <= rs.low) return true;
    }
    for (int l = 0; l < width; ++l) {
        const Address at = object_address(d, first + l);
        for (int m = 0; m < width; ++m) {
            if (l == m && (self || in_place_fine)) continue;
            if (!apart(at, extent_d, object_address(s, first + m), extent_s)) return false;
        }
    }
    return true;
}

} // namespace

bool group_is_safe(const LanePlan &plan, int first, int width) {
    for (int i = 0; i < plan.results; ++i) {
        const LaneOperand &d = plan.result[i];
        if (d.addressing == Addressing::list && !group_pair_is_safe(d, d, false, true, first, width)) return false;
        for (int j = 0; j < plan.sources; ++j) {
            const LaneOperand &s = plan.source[j].operand;
            if (s.addressing != Addressing::list && d.addressing != Addressing::list) continue;
            if (!group_pair_is_safe(s, d, fine_in_place(plan.source[j], d), false, first, width)) return false;
        }
        for (int j = 0; j < i; ++j)
            if (!group_pair_is_safe(plan.result[j], d, false, false, first, width)) return false;
    }
    return true;
}

} // namespace smx
