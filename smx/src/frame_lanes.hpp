// The lane engine, seen from the kernels: when several objects may be computed at once, and the loop that does it.
//
// A group of W consecutive objects is loaded, computed with one object a lane, and stored. That is the same as one
// object after the other only if nobody can tell: no byte that a group stores may be a source byte of another object
// of the group (a LanePlan finds that out), and what fails is run again one by one.
#pragma once

#include <utility>

#include "frame_lane_operand.hpp"
#include "frame_operands.hpp"
#include "smxdefs.h"

namespace smx {

// How the destination and a source of the same object may overlap.
enum class SameObject {
    any,       // the sequential kernel reads the object whole before it stores: any overlap
    identical, // element by element: none, or each element at its own place
    none
};

enum class Verdict {
    never,   // object by object
    always,  // any group
    by_group // lists: group_is_safe() must be asked
};

// What a list's groups have yet to be asked, a bit each: does result i meet itself, or source or earlier result j?
constexpr unsigned doubt_alone(int result) {
    return 1u << result;
}
constexpr unsigned doubt_source(int result, int source) {
    return 1u << (4 + 4 * result + source);
}
constexpr unsigned doubt_results(int result, int earlier) {
    return 1u << (20 + 3 * (result - 1) + earlier);
}
constexpr unsigned far_source(int source) {
    return 1u << source;
}
constexpr unsigned far_result(int result) {
    return 1u << (4 + result);
}

// An operand of so many bytes is more than the caches hold; fewer objects are not worth a look.
constexpr std::ptrdiff_t far_bytes = 8 << 20;
constexpr int far_count = 1024;
// All operands together fit into the first cache.
constexpr std::ptrdiff_t near_bytes = 48 << 10;

struct LaneSource {
    LaneOperand operand;
    SameObject same_object;
};

// An address as a number; lists are read as such, whatever their pointers point to.
using Address [[gnu::may_alias]] = std::intptr_t;

// A list of results that may meet themselves.
struct ListAlone {
    const Address *list;
    std::ptrdiff_t extent;
};

struct LanePlan {
    LaneSource source[4];
    LaneOperand result[4];
    int sources;
    int results;
    int count;
    int groups;   // of the widest lanes, that may be loaded before any of them is stored
    bool packed;  // the arrays among the operands have no gaps in and between objects
    bool watched; // begin_group() may have something to do
    // Operands whose lines are touched ahead of a group (begin_group), or of objects that are read by masks, a bit
    // each.
    unsigned far, far_masked;
    // Lists are looked through by the first loop that needs to know more about them than it can see on its way.
    mutable Verdict verdict;
    mutable unsigned doubts;
    mutable bool lists_are_seen;
    mutable ListAlone alone; // its list is null unless that is the only doubt that is left
};

inline namespace SMX_ISA {
// An array without gaps in and between objects, or no array.
[[gnu::always_inline]] inline bool is_packed(const LaneOperand &o) {
    const std::ptrdiff_t row = std::ptrdiff_t{o.columns} * o.element;
    return o.single ||
           (o.addressing == Addressing::strided && !o.transposed && (o.stride2 == o.element || o.columns == 1) &&
            (o.stride1 == row || o.rows == 1) && o.stride0 == o.rows * row);
}
// The widest set whose steps suit so many bytes of adjacent elements of each of so many operands. Through memory, the
// processor fetches further ahead of steps of 16 bytes. Where registers are split, 64 bytes wait for the stores beyond
// the first cache if the operands lie an unlucky distance apart.
inline InstructionSet widest_for_run(std::ptrdiff_t bytes, int operands) {
    if (bytes >= far_bytes) return InstructionSet::baseline;
    return splits_registers() && operands * bytes > near_bytes ? InstructionSet::avx2 : InstructionSet::avx512;
}
} // namespace SMX_ISA

// Fills in the verdict on more than one object, nothing having been found out yet, for so many groups of the chosen
// instruction set's widest lanes at once.
void judge(LanePlan &plan);
// Looks through a plan's lists unless that has been done; does any doubt remain?
bool lists_are_in_doubt(const LanePlan &plan);
inline bool is_in_doubt(const LanePlan &plan) {
    return plan.verdict == Verdict::by_group && lists_are_in_doubt(plan);
}
// Has begin_group() to be called ahead of each group?
bool begins_groups(const LanePlan &plan);
// Is the only thing to be asked of a group whether its results meet each other?
inline bool only_results_may_meet(const LanePlan &plan) {
    return plan.far == 0 && plan.alone.list != nullptr;
}
// May the objects first .. first + width - 1 be loaded before any of them is stored?
bool group_is_safe(const LanePlan &plan, int first, int width);
// Reads a byte of each line of the objects first .. first + width - 1, of those operands.
void touch_group(const LanePlan &plan, unsigned operands, int first, int width);
// Touches the next few objects that are read by masks: until where? If none is far, until the last one.
int touched_until(const LanePlan &plan, int first, int last);
// The first object from `first` on that may not be loaded whole before it is stored.
int safe_alone_until(const LanePlan &plan, int first);
// Are the objects from `first` on fine one by one although the sequential kernel takes them in pairs?
bool safe_in_pairs(const LanePlan &plan, int first);

inline namespace SMX_ISA {

// An operand of what most calls are: strided, results with their objects and rows one behind the other.
struct PlainOperand {
    std::uintptr_t low, high; // of all objects
    bool plain, packed;
    [[gnu::always_inline]] PlainOperand(const LaneOperand &o, int count, bool is_result) {
        const std::ptrdiff_t row = (o.columns - 1) * o.stride2 + o.element;
        const std::ptrdiff_t extent = (o.rows - 1) * o.stride1 + row, stride0 = o.single ? 0 : o.stride0;
        plain = o.addressing == Addressing::strided && (o.stride0 | o.stride1 | o.stride2) >= 0 &&
                (!is_result || (stride0 >= extent && (o.rows == 1 || o.stride1 >= row)));
        packed = is_packed(o);
        low = reinterpret_cast<std::uintptr_t>(o.base);
        high = low + static_cast<std::uintptr_t>((count - 1) * stride0 + extent);
    }
    bool apart_from(const PlainOperand &other) const { return high <= other.low || other.high <= low; }
};

// Verdict and `packed` where all operands are plain, the results away from all else, and not so many that memory
// matters. Written without a loop, so that nearly all of it is known beforehand: judge() takes a third of a short call.
template <int... source, int... result>
[[gnu::always_inline]] inline bool judge_plain(LanePlan &plan, const LaneSource (&sources)[sizeof...(source)],
                                               const LaneOperand (&results)[sizeof...(result)],
                                               std::integer_sequence<int, source...>,
                                               std::integer_sequence<int, result...>) {
    // The code pays only where the elements of a row are adjacent by the kernel's tier.
    if (!((__builtin_constant_p(sources[source].operand.stride2) && ...) &&
          (__builtin_constant_p(results[result].stride2) && ...)))
        return false;
    const int count = plan.count;
    const PlainOperand from[] = {PlainOperand(sources[source].operand, count, false)...};
    const PlainOperand to[] = {PlainOperand(results[result], count, true)...};
    const auto apart_from_sources = [&](const PlainOperand &d) { return (from[source].apart_from(d) && ...); };
    const auto apart_from_earlier = [&]<int i>(Side<i>) {
        return ((result >= i || to[result].apart_from(to[i])) && ...);
    };
    const bool plain = count < far_count && (from[source].plain && ...) && (to[result].plain && ...) &&
                       (apart_from_sources(to[result]) && ...) && (apart_from_earlier(Side<result>{}) && ...) &&
                       instruction_set() != InstructionSet::sequential;
    plan.packed = plain && (from[source].packed && ...) && (to[result].packed && ...);
    if (plain) plan.verdict = Verdict::always;
    return plain;
}

// A plan from a row's operands as LaneOperands: sources with their rule, then results; `groups` if more than one group
// is loaded before it is stored.
template <int Sources, int Results>
[[gnu::always_inline]] inline LanePlan lane_plan(int count, const LaneSource (&sources)[Sources],
                                                 const LaneOperand (&results)[Results], int groups = 1) {
    constexpr auto each_source = std::make_integer_sequence<int, Sources>{};
    constexpr auto each_result = std::make_integer_sequence<int, Results>{};
    LanePlan plan;
    plan.count = count;
    plan.verdict = Verdict::never;
    if (count < 2) return plan; // nothing else is asked then
    [&]<int... i>(std::integer_sequence<int, i...>) {
        ((plan.source[i] = sources[i]), ...);
    }
    (each_source);
    [&]<int... i>(std::integer_sequence<int, i...>) {
        ((plan.result[i] = results[i]), ...);
    }
    (each_result);
    plan.sources = Sources;
    plan.results = Results;
    plan.groups = groups;
    plan.packed = plan.watched = plan.lists_are_seen = false;
    plan.far = plan.far_masked = plan.doubts = 0;
    plan.alone = {};
    if (!judge_plain(plan, sources, results, each_source, each_result)) judge(plan);
    return plan;
}

// Structures of arrays, of which one element after the other is taken of many groups: few streams at a time.
constexpr int plane_groups = 8;
inline int groups_at_once(const LaneOperand &result) {
    return result.stride0 == result.element ? plane_groups : 1;
}

// Runs `count` objects: groups(n) computes whole groups from object n on and returns the first object that it has not
// done (a failing or unsafe group, or the remainder); range(first, last) runs objects one by one and returns the first
// status that is not 0.
template <class T, class Groups, class Range>
inline SmxStatus for_each_object(const LanePlan &plan, const Groups &groups, const Range &range) {
    const int width = lane_width<T>();
    int n = 0;
    while (n < plan.count) {
        int last = plan.count;
        if (plan.verdict != Verdict::never) {
            const int before = n;
            n = groups(n);
            // A group that has failed, or a list's unsafe one; a call without any progress, or a look at its lists, has
            // no lane path at all.
            const bool one_group = n != before || (plan.verdict == Verdict::by_group && plan.lists_are_seen);
            if (one_group && plan.count - n > width) last = n + width;
        }
        if (n < last)
            if (const SmxStatus status = range(n, last); status != smxStsNoErr) return status;
        n = last;
    }
    return smxStsNoErr;
}

// The range of a kernel that stops at its first failing object.
template <class One>
inline auto until_failure(One one) {
    return [one](int first, int last) {
        SmxStatus status = smxStsNoErr;
        for (int n = first; n < last && status == smxStsNoErr; ++n) status = one(n);
        return status;
    };
}

// The same for sides 3 to 6, which are written out: one(Side<N>{}, n).
template <class One>
inline auto until_failure(int side, One one) {
    return [side, one](int first, int last) {
        SmxStatus status = smxStsNoErr;
        with_side(side, [&](auto constant) {
            for (int n = first; n < last && status == smxStsNoErr; ++n) status = one(constant, n);
        });
        return status;
    };
}

// A lane function of the chosen instruction set and, for the objects that are too few for its width, those of the
// narrower ones. Each is called with (plan, arguments..., first) and returns the first object that is not done.
template <auto on_avx512, auto on_avx2, auto on_baseline, class Index, class Plan, class... Arguments>
[[gnu::noinline]] inline Index on_all_lanes(Index first, const Plan &plan, Arguments... arguments) {
    const InstructionSet widest = instruction_set();
    if (widest >= InstructionSet::avx512) first = on_avx512(plan, arguments..., first);
    if (widest >= InstructionSet::avx2 && first < plan.count) first = on_avx2(plan, arguments..., first);
    return first < plan.count ? on_baseline(plan, arguments..., first) : first;
}

} // namespace SMX_ISA
} // namespace smx

// Calls the lane functions `name` with a plan (or a run), further arguments, and the first object.
#ifdef SMX_WIDE_LANES
#define SMX_ON_ALL_LANES(first, name, ...) \
    smx::on_all_lanes<smx::avx512::name, smx::avx2::name, smx::baseline::name>(first, __VA_ARGS__)
#else
#define SMX_ON_ALL_LANES(first, name, plan, ...) smx::baseline::name(plan __VA_OPT__(, ) __VA_ARGS__, first)
#endif
