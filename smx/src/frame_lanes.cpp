#include "frame_lanes.hpp"

#include "lanes_lists.hpp"
#include "lanes_runs.hpp"

#include <stdint.h>
#include <string.h>

namespace smx {

namespace {

// The bytes of one object lie in [low, low + extent), of object n at n * stride0 behind that, of all in [low, high).
struct Footprint {
    Address low, high;
    ptrdiff_t extent, stride0;
};

ptrdiff_t elements(const LaneOperand &o) {
    return ptrdiff_t{o.rows} * o.columns;
}

Address entry(const LaneOperand &o, ptrdiff_t e) {
    return reinterpret_cast<Address>(o.table[e]) + o.shift;
}

// The address of element e (row-major as stored) of object 0 of a strided or pointer operand.
Address element_address(const LaneOperand &o, ptrdiff_t e) {
    if (o.addressing == Addressing::pointers) return entry(o, e);
    return reinterpret_cast<Address>(o.base) + e / o.columns * o.stride1 + e % o.columns * o.stride2;
}

ptrdiff_t strided_extent(const LaneOperand &o) {
    return (o.rows - 1) * o.stride1 + (o.columns - 1) * o.stride2 + o.element;
}

Footprint footprint_from(Address low, ptrdiff_t extent, const LaneOperand &o, int count) {
    const ptrdiff_t stride0 = o.single ? 0 : o.stride0;
    return {low, low + (count - 1) * stride0 + extent, extent, stride0};
}
[[gnu::noinline]] Footprint footprint_of_pointers(const LaneOperand &o, int count) {
    const Address first = entry(o, 0);
    ptrdiff_t before = 0, behind = 0;
    for (ptrdiff_t e = 1; e < elements(o); ++e) {
        const ptrdiff_t distance = entry(o, e) - first;
        before = distance < before ? distance : before;
        behind = distance > behind ? distance : behind;
    }
    return footprint_from(first + before, behind - before + o.element, o, count);
}
// Of a list, only the extent.
[[gnu::always_inline]] inline Footprint footprint(const LaneOperand &o, int count) {
    if (o.addressing == Addressing::pointers) return footprint_of_pointers(o, count);
    return footprint_from(reinterpret_cast<Address>(o.base), strided_extent(o), o, count);
}

// By their distances, since on 32 bits operands may lie where addresses change their sign.
bool apart(Address low1, ptrdiff_t size1, Address low2, ptrdiff_t size2) {
    return static_cast<uintptr_t>(low2 - low1) >= static_cast<uintptr_t>(size1) &&
           static_cast<uintptr_t>(low1 - low2) >= static_cast<uintptr_t>(size2);
}

bool same_addresses(const LaneOperand &a, const LaneOperand &b) {
    return a.addressing == b.addressing && a.base == b.base && a.table == b.table && a.shift == b.shift &&
           (a.addressing == Addressing::list || a.stride0 == b.stride0) && a.stride1 == b.stride1 &&
           a.stride2 == b.stride2 && a.rows == b.rows && a.columns == b.columns && a.transposed == b.transposed;
}

// To look at all pairs of more elements would take longer than the work itself.
constexpr ptrdiff_t few_elements = 36;

// No element of one object may lie closer to another element than `width` objects, so that a row of lanes for one
// element never meets the row of lanes for another. For operands whose objects follow each other element by element.
bool lane_rows_apart(const LaneOperand &a, const LaneOperand &b, int width, bool same_place_allowed) {
    const ptrdiff_t reach = static_cast<ptrdiff_t>(width) * a.element;
    const bool self = &a == &b;
    if (self) {
        bool ascending = true;
        for (ptrdiff_t e = 1; e < elements(a) && ascending; ++e)
            ascending = element_address(a, e) - element_address(a, e - 1) >= reach;
        if (ascending) return true;
    }
    if (elements(a) > few_elements || elements(b) > few_elements)
        return !self && same_place_allowed && same_addresses(a, b) && lane_rows_apart(a, a, width, false);
    for (ptrdiff_t e = 0; e < elements(a); ++e) {
        const Address at = element_address(a, e);
        for (ptrdiff_t f = self ? e + 1 : 0; f < elements(b); ++f) {
            const ptrdiff_t distance = at - element_address(b, f);
            if (distance == 0 && same_place_allowed) continue;
            if (distance > -reach && distance < reach) return false;
        }
    }
    return true;
}

// Do the elements of one object stay out of each other's way?
bool elements_apart(const LaneOperand &o) {
    if (o.addressing != Addressing::pointers)
        return ((o.columns == 1 || o.stride2 >= o.element) &&
                (o.rows == 1 || o.stride1 >= (o.columns - 1) * o.stride2 + o.element)) ||
               (o.stride1 >= o.element && o.stride2 >= (o.rows - 1) * o.stride1 + o.element);
    bool ascending = true; // as nearly all tables are
    for (ptrdiff_t e = 1; e < elements(o) && ascending; ++e) ascending = entry(o, e) - entry(o, e - 1) >= o.element;
    if (!ascending && elements(o) > few_elements) return false;
    for (ptrdiff_t e = 1; e < elements(o) && !ascending; ++e)
        for (ptrdiff_t f = 0; f < e; ++f)
            if (!apart(entry(o, e), o.element, entry(o, f), o.element)) return false;
    return true;
}

// Does the sequential kernel allow what the lanes do, read an object whole before it is stored, where a source is the
// result itself?
bool fine_in_place(const LaneSource &source, const LaneOperand &d) {
    return source.same_object == SameObject::any ||
           (source.same_object == SameObject::identical && same_addresses(source.operand, d) && elements_apart(d));
}

const Address *addresses(const LaneOperand &list) {
    return reinterpret_cast<const Address *>(list.table);
}

// The bytes of all objects of a call lie in [low, high); a list may hold them in ascending order, each behind the last.
struct Span {
    Address low, high;
    bool ascends;
};
Span span(const LaneOperand &o, int count) {
    if (o.addressing != Addressing::list) {
        const Footprint f = footprint(o, count);
        return {f.low, f.high, false};
    }
    const ptrdiff_t extent = strided_extent(o);
    Address low = entry(o, 0), high = entry(o, count - 1);
    const bool ascends = SMX_ON_LANES(list_ascends, addresses(o), count, extent);
    if (!ascends) {
        SMX_ON_LANES(list_bounds, addresses(o), count, low, high);
        low += o.shift;
        high += o.shift;
    }
    return {low, high + extent, ascends};
}

enum class ListPair { in_doubt, safe, in_place };

// Source and result objects of a whole call, at least one of them a list. Settles the usual cases: all sources away
// from all results, both in ascending order side by side (fields of the same structs, say), or in place: safe as long
// as the results do not meet each other.
ListPair look_at_pair(const LaneOperand &s, const LaneOperand &d, const Span &all_d, bool in_place_fine, int count) {
    const Span all_s = span(s, count);
    if (apart(all_s.low, all_s.high - all_s.low, all_d.low, all_d.high - all_d.low)) return ListPair::safe;
    if (s.addressing != Addressing::list || d.addressing != Addressing::list) return ListPair::in_doubt;
    const Address *const from = addresses(s), *const to = addresses(d);
    const ptrdiff_t extent_s = strided_extent(s), extent_d = strided_extent(d), shift = d.shift - s.shift;
    ptrdiff_t source_first = to[0] - from[0] + shift - extent_s, result_first = from[0] - to[0] - shift - extent_d;
    // signs are gathered, as in the other loops over lists
    ptrdiff_t apart_from_same = to[0] - from[0] + shift;
    for (int n = 1; n < count; ++n) {
        const ptrdiff_t distance = to[n] - from[n] + shift;
        source_first |= (distance - extent_s) | (from[n] - to[n - 1] - shift - extent_d);
        result_first |= (-distance - extent_d) | (to[n] - from[n - 1] + shift - extent_s);
        apart_from_same |= distance;
    }
    if (source_first >= 0 || result_first >= 0) return ListPair::safe;
    // A source may reach further than the result at its place.
    const bool reaches_further = extent_s > extent_d && !all_s.ascends;
    return apart_from_same == 0 && in_place_fine && !reaches_further ? ListPair::in_place : ListPair::in_doubt;
}

// Do different objects of a structure of arrays stay out of each other's way within a group?
bool interleaved_alone(const LaneOperand &d, int width) {
    return d.stride0 == d.element && lane_rows_apart(d, d, width, false);
}

ptrdiff_t floor_divide(ptrdiff_t a, ptrdiff_t b) {
    return a / b - (a % b < 0);
}

// The most objects that are loaded before any of them is stored, for the verdict on results of any element type.
int widest_group(const LanePlan &plan) {
    int width = 2;
    for (int i = 0; i < plan.results; ++i) {
        const int lanes = plan.groups * lane_bytes() / plan.result[i].element;
        width = lanes > width ? lanes : width;
    }
    return width < plan.count ? width : plan.count;
}

// A source and a result that are no lists, and whose bytes, of all objects of the call, meet somewhere: is it fine to
// load a group of them first?
bool overlapping_pair(const LanePlan &plan, const LaneSource &source, const LaneOperand &d) {
    const LaneOperand &s = source.operand;
    const int width = widest_group(plan);
    const Footprint fs = footprint(s, plan.count), fd = footprint(d, plan.count);
    if (s.single || fs.stride0 != fd.stride0) return false;
    // Result m and source n overlap for the differences k = m - n with  distance + k stride0  in (-extent_d, extent_s).
    const ptrdiff_t distance = fd.low - fs.low;
    const ptrdiff_t first = floor_divide(-distance - fd.extent, fd.stride0) + 1;
    const ptrdiff_t last = -floor_divide(-(fs.extent - distance), fd.stride0) - 1;
    const ptrdiff_t from = first > -(width - 1) ? first : -(width - 1);
    const ptrdiff_t to = last < width - 1 ? last : width - 1;
    if (from > to) return true;
    if (from == 0 && to == 0) return fine_in_place(source, d);
    if (fd.stride0 == d.element && s.element == d.element)
        return lane_rows_apart(s, d, width, fine_in_place(source, d));
    return false;
}

// Is it more than a cache holds, in objects of one run each?
bool is_far(const LaneOperand &o, ptrdiff_t bytes, int count) {
    const bool in_one_run = o.stride2 == o.element && (o.rows == 1 || o.stride1 == o.columns * ptrdiff_t{o.element});
    const bool apart =
        o.addressing == Addressing::list || (o.addressing == Addressing::strided && o.stride0 >= bytes && !o.single);
    return apart && in_one_run && count * bytes >= far_bytes;
}
// Groups are looked at only where an object is more than a line, or is read by masks, three floats: in a cache it costs
// up to a tenth of the call, behind it saves up to a half.
bool is_far_for_groups(const LaneOperand &o, ptrdiff_t bytes) {
    return bytes >= 96 || (bytes == 12 && (o.addressing == Addressing::list || o.stride0 != bytes));
}
void note_far(LanePlan &plan) {
    bool large_list = false;
    const auto note = [&](const LaneOperand &o, unsigned bit) {
        const ptrdiff_t bytes = ptrdiff_t{o.rows} * o.columns * o.element;
        large_list = large_list || (o.addressing == Addressing::list && bytes > 16);
        if (!is_far(o, bytes, plan.count)) return;
        plan.far_masked |= bit;
        if (is_far_for_groups(o, bytes)) plan.far |= bit;
    };
    for (int i = 0; i < plan.sources; ++i) note(plan.source[i].operand, far_source(i));
    for (int i = 0; i < plan.results; ++i) note(plan.result[i], far_result(i));
    // To touch such scattered objects takes longer than to wait for them.
    if (large_list) plan.far = plan.far_masked = 0;
}

// Many lists name the objects of an array in their order: they are no lists then.
bool straighten(LaneOperand &o, int count) {
    if (o.addressing != Addressing::list) return false;
    const Address step = SMX_ON_LANES(list_step, addresses(o), count);
    if (step < strided_extent(o)) return false;
    o.base = reinterpret_cast<const void *>(entry(o, 0));
    o.stride0 = step;
    o.addressing = Addressing::strided;
    return true;
}
// May a result change such a list on the way?
bool lies_on_table(const Footprint &d, const LaneOperand &o, int count) {
    constexpr ptrdiff_t size = sizeof(void *);
    return o.addressing == Addressing::strided && o.table != nullptr &&
           !apart(reinterpret_cast<Address>(o.table), count * size, d.low, d.high - d.low);
}

} // namespace

// What most calls need is inline, and the rest out of the way.
void judge(LanePlan &plan) {
    const int count = plan.count;
    if (instruction_set() == InstructionSet::sequential) return;
    bool straightened = false;
    for (int j = 0; j < plan.sources; ++j) straightened |= straighten(plan.source[j].operand, count);
    for (int i = 0; i < plan.results; ++i) straightened |= straighten(plan.result[i], count);
    // Footprints grow upwards. The interface refuses other strides; who calls a kernel may have objects that go down.
    const auto goes_down = [](const LaneOperand &o) { return (o.stride0 | o.stride1 | o.stride2) < 0; };
    // Sources, then results.
    Address low[8], high[8];
    const auto look_at = [&](int k, const LaneOperand &o) __attribute__((always_inline)) {
        const Footprint f = footprint(o, count);
        low[k] = f.low;
        high[k] = f.high;
        return f;
    };
    const int sources = plan.sources;
    bool packed = true;
    for (int j = 0; j < sources; ++j) {
        const LaneOperand &s = plan.source[j].operand;
        if (goes_down(s)) return;
        look_at(j, s);
        packed = packed && is_packed(s);
    }
    for (int i = 0; i < plan.results; ++i) {
        const LaneOperand &d = plan.result[i];
        // Where elements of a result share an address, the order of the stores shows.
        if (goes_down(d) || !elements_apart(d)) return;
        packed = packed && is_packed(d);
        const bool listed = d.addressing == Addressing::list;
        const Footprint f = look_at(sources + i, d);
        const auto away = [&](int k) { return apart(low[k], high[k] - low[k], f.low, f.high - f.low); };
        if (straightened && !listed) {
            for (int j = 0; j < sources; ++j)
                if (lies_on_table(f, plan.source[j].operand, count)) return;
            for (int j = 0; j < plan.results; ++j)
                if (lies_on_table(f, plan.result[j], count)) return;
        }
        if (listed) plan.doubts |= doubt_alone(i);
        else if (f.stride0 < f.extent && !interleaved_alone(d, widest_group(plan))) return;
        for (int j = 0; j < sources; ++j) {
            if (listed || plan.source[j].operand.addressing == Addressing::list) plan.doubts |= doubt_source(i, j);
            else if (!away(j) && !overlapping_pair(plan, plan.source[j], d)) return;
        }
        // Two results of one call must not meet at all.
        for (int j = 0; j < i; ++j) {
            if (listed || plan.result[j].addressing == Addressing::list) plan.doubts |= doubt_results(i, j);
            else if (!away(sources + j) && !overlapping_pair(plan, {plan.result[j], SameObject::none}, d)) return;
        }
    }
    plan.packed = packed;
    if (count >= far_count) note_far(plan);
    plan.verdict = plan.doubts != 0 ? Verdict::by_group : Verdict::always;
    plan.watched = plan.doubts != 0 || plan.far != 0;
}

namespace {

// For each pair of operands in doubt, one of them a result: is the doubt gone?
template <class Settled>
void settle_pairs(const LanePlan &plan, int i, Settled settled) {
    const auto settle = [&](const LaneSource &source, unsigned doubt) {
        if ((plan.doubts & doubt) && settled(source)) plan.doubts &= ~doubt;
    };
    for (int j = 0; j < plan.sources; ++j) settle(plan.source[j], doubt_source(i, j));
    for (int j = 0; j < i; ++j) settle({plan.result[j], SameObject::none}, doubt_results(i, j));
}

} // namespace

bool lists_are_in_doubt(const LanePlan &plan) {
    if (!plan.lists_are_seen) {
        plan.lists_are_seen = true;
        bool in_place = false;
        for (int i = 0; i < plan.results; ++i) {
            const LaneOperand &d = plan.result[i];
            const Span all_d = span(d, plan.count);
            if (all_d.ascends) plan.doubts &= ~doubt_alone(i);
            else if (i == 0) plan.alone = {addresses(d), strided_extent(d)};
            settle_pairs(plan, i, [&](const LaneSource &source) {
                const ListPair found = look_at_pair(source.operand, d, all_d, fine_in_place(source, d), plan.count);
                in_place = in_place || found == ListPair::in_place;
                return found != ListPair::in_doubt;
            });
        }
        if (plan.doubts == 0) plan.verdict = Verdict::always;
        // Of several results, or with other doubts, the list is one thing to look at among others. In place, a result
        // that meets another one meets that one's source, which no order of the stores makes up for.
        if (plan.doubts != doubt_alone(0) || in_place) plan.alone = {};
    }
    return plan.doubts != 0;
}

bool begins_groups(const LanePlan &plan) {
    return is_in_doubt(plan) || plan.far != 0;
}

void touch_group(const LanePlan &plan, unsigned operands, int first, int width) {
    constexpr ptrdiff_t line = 64;
    const auto touch_run = [](Address at, ptrdiff_t bytes) {
        for (ptrdiff_t b = 0; b < bytes; b += line) *reinterpret_cast<const volatile char *>(at + b);
    };
    const auto touch = [&](const LaneOperand &o) {
        const ptrdiff_t bytes = strided_extent(o);
        if (o.addressing == Addressing::list) {
            for (int l = 0; l < width; ++l) touch_run(entry(o, first + l), bytes);
            return;
        }
        const Address at = reinterpret_cast<Address>(o.base) + first * o.stride0;
        if (o.stride0 == bytes) return touch_run(at, width * bytes);
        for (int l = 0; l < width; ++l) touch_run(at + l * o.stride0, bytes);
    };
    for (int i = 0; i < plan.sources; ++i)
        if (operands & far_source(i)) touch(plan.source[i].operand);
    for (int i = 0; i < plan.results; ++i)
        if (operands & far_result(i)) touch(plan.result[i]);
}

int touched_until(const LanePlan &plan, int first, int last) {
    constexpr int few = 16;
    if (plan.far_masked == 0) return last;
    const int end = last - first > few ? first + few : last;
    touch_group(plan, plan.far_masked, first, end - first);
    return end;
}

namespace {

constexpr int most_lanes = 16;

// Negative if the bytes [a, a + extent_a) and [b, b + extent_b) have none in common.
ptrdiff_t apart_sign(Address a, ptrdiff_t extent_a, Address b, ptrdiff_t extent_b) {
    return (a - b + extent_a - 1) | (b - a + extent_b - 1);
}

bool meets_no_other(const LaneOperand &s, const LaneOperand &d, bool in_place_fine, int first, int width) {
    const auto find = [first, width](const LaneOperand &o, Address(&object)[most_lanes]) {
        const bool listed = o.addressing == Addressing::list;
        const Footprint f = footprint(o, 1);
        for (int l = 0; l < width; ++l) object[l] = listed ? entry(o, first + l) : f.low + (first + l) * f.stride0;
        return f.extent;
    };
    Address from[most_lanes], to[most_lanes];
    const ptrdiff_t extent_s = find(s, from), extent_d = find(d, to);
    ptrdiff_t signs = -1;
    for (int l = 0; l < width; ++l)
        for (int m = 0; m < width; ++m)
            if (l != m || !in_place_fine) signs &= apart_sign(to[l], extent_d, from[m], extent_s);
    return signs < 0;
}

} // namespace

bool group_is_safe(const LanePlan &plan, int first, int width) {
    for (int i = 0; i < plan.results; ++i) {
        const LaneOperand &d = plan.result[i];
        // Only a list's result is ever in doubt of meeting itself.
        if ((plan.doubts & doubt_alone(i)) &&
            !SMX_ON_LANES(list_group_apart, addresses(d) + first, width, strided_extent(d)))
            return false;
        for (int j = 0; j < plan.sources; ++j)
            if ((plan.doubts & doubt_source(i, j)) &&
                !meets_no_other(plan.source[j].operand, d,
                                !plan.source[j].operand.single && fine_in_place(plan.source[j], d), first, width))
                return false;
        for (int j = 0; j < i; ++j)
            if ((plan.doubts & doubt_results(i, j)) && !meets_no_other(plan.result[j], d, false, first, width))
                return false;
    }
    return true;
}

namespace {

// The doubts but for those whether the results meet themselves.
unsigned doubts_about_pairs(const LanePlan &plan) {
    unsigned alone = 0;
    for (int i = 0; i < plan.results; ++i) alone |= doubt_alone(i);
    return plan.doubts & ~alone;
}

// Lists of which no object meets the same one of another: nothing else matters to objects one by one.
void settle_same_objects(const LanePlan &plan) {
    for (int i = 0; i < plan.results; ++i) {
        const LaneOperand &d = plan.result[i];
        settle_pairs(plan, i, [&](const LaneSource &source) {
            const LaneOperand &s = source.operand;
            if (s.addressing != Addressing::list || d.addressing != Addressing::list)
                return look_at_pair(s, d, span(d, plan.count), false, plan.count) == ListPair::safe;
            return (same_addresses(s, d) && fine_in_place(source, d)) ||
                   SMX_ON_LANES(lists_apart, addresses(s), addresses(d), plan.count,
                                strided_extent(s) + s.shift - d.shift, strided_extent(d) + d.shift - s.shift);
        });
    }
}

} // namespace

int safe_alone_until(const LanePlan &plan, int first) {
    if (first >= plan.count || doubts_about_pairs(plan) == 0) return plan.count;
    if (!plan.lists_are_seen) {
        const unsigned doubts = plan.doubts;
        settle_same_objects(plan);
        const bool settled = doubts_about_pairs(plan) == 0;
        plan.doubts = doubts; // of groups
        if (settled || !lists_are_in_doubt(plan)) return plan.count;
    }
    int n = first;
    while (n < plan.count && group_is_safe(plan, n, 1)) ++n;
    return n;
}

void copy_run(const void *x, const void *result, ptrdiff_t bytes) {
    // Between the first cache and memory nothing is faster than the processor's instruction for blocks.
    if (2 * bytes <= near_bytes || bytes >= far_bytes)
        SMX_ON_LANES_UP_TO(widest_for_run(bytes, 2), copy_run_lanes, x, result, bytes);
    else if (x != result) memcpy(const_cast<void *>(result), x, static_cast<size_t>(bytes));
}
void compute_run(const void *x, const void *y, const void *result, ptrdiff_t bytes, RunKind kind, double constant) {
    const InstructionSet widest = widest_for_run(bytes, y == nullptr ? 2 : 3);
    SMX_ON_LANES_UP_TO(widest, compute_run_lanes, x, y, result, bytes, kind, constant);
}

bool plan_copies_run(const LanePlan &plan) {
    const LaneOperand &d = plan.result[0], &x = plan.source[0].operand;
    const ptrdiff_t bytes = run_bytes(plan.count, d, x);
    if (bytes != 0) copy_run(x.base, d.base, bytes);
    return bytes != 0;
}
bool plan_computes_run(const LanePlan &plan, Arithmetic operation, double constant) {
    const LaneOperand &d = plan.result[0], &x = plan.source[0].operand;
    if (plan.sources == 1) return computes_run(operation, plan.count, d, x, constant);
    return computes_run(operation, plan.count, d, x, plan.source[1].operand);
}

bool safe_in_pairs(const LanePlan &plan, int first) {
    if (!is_in_doubt(plan)) return true;
    return plan.doubts == doubt_alone(0) && SMX_ON_LANES(list_neighbours_apart, addresses(plan.result[0]) + first,
                                                         plan.count - first, strided_extent(plan.result[0]));
}

} // namespace smx
