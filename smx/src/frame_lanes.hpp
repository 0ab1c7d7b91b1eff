// The lane engine, seen from the kernels: when several objects may be computed at once, and the loop that does it.
//
// A group of W consecutive objects is loaded, computed with one object a lane, and stored. That is the same as one
// object after the other only if nobody can tell: no byte that a group stores may be a source byte of another object
// of the group (a LanePlan finds that out), and what fails is run again one by one.
#pragma once

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

// An operand of so many bytes is more than the caches hold.
constexpr std::ptrdiff_t far_bytes = 8 << 20;

struct LaneSource {
    LaneOperand operand;
    SameObject same_object;
};

// A list of results that may meet themselves.
struct ListAlone {
    const std::intptr_t *list;
    std::ptrdiff_t extent;
};

struct LanePlan {
    LaneSource source[4];
    LaneOperand result[4];
    int sources;
    int results;
    int count;
    int groups;   // of the widest lanes, that may be loaded before any of them is stored
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

// Fills in the verdict for so many groups of the chosen instruction set's widest lanes at once.
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

// A plan from a row's operands as LaneOperands: sources with their rule, then results; `groups` if more than one group
// is loaded before it is stored.
template <int Sources, int Results>
[[gnu::always_inline]] inline LanePlan lane_plan(int count, const LaneSource (&sources)[Sources],
                                                 const LaneOperand (&results)[Results], int groups = 1) {
    LanePlan plan;
    for (int i = 0; i < Sources; ++i) plan.source[i] = sources[i];
    for (int i = 0; i < Results; ++i) plan.result[i] = results[i];
    plan.sources = Sources;
    plan.results = Results;
    plan.count = count;
    plan.groups = groups;
    judge(plan);
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
inline SmxStatus for_each_object(const LanePlan &plan, Groups groups, Range range) {
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
