// Operations on single elements over objects that follow each other without a gap: all of a call are one run of
// adjacent elements, which needs no plan.
#pragma once

#include "frame_lanes.hpp"

namespace smx {

enum class Arithmetic { add, subtract, subtract_from, multiply };

// What is computed of an element of a run.
struct RunKind {
    Arithmetic operation;
    int element; // its size
};

inline namespace SMX_ISA {

template <Arithmetic operation, class V>
[[gnu::always_inline]] inline V apply(V x, V y) {
    if constexpr (operation == Arithmetic::add) return x + y;
    else if constexpr (operation == Arithmetic::subtract) return x - y;
    else if constexpr (operation == Arithmetic::subtract_from) return y - x;
    else return x * y;
}

// The bytes of a call's operands if all are runs, and each source is the result itself or apart from it; else 0.
// Inlined, nearly all of it is known beforehand.
template <class... Operands>
[[gnu::always_inline]] inline std::ptrdiff_t run_bytes(int count, const LaneOperand &d, const Operands &...sources) {
    const std::ptrdiff_t object = std::ptrdiff_t{d.rows} * d.columns * d.element, bytes = count * object;
    const auto without_gaps = [&](const LaneOperand &o) { return is_packed(o) && !o.single && o.stride0 == object; };
    const auto fine = [&](const LaneOperand &o) {
        const std::uintptr_t behind =
            reinterpret_cast<std::uintptr_t>(o.base) - reinterpret_cast<std::uintptr_t>(d.base);
        return behind == 0 ||
               (behind >= static_cast<std::uintptr_t>(bytes) && -behind >= static_cast<std::uintptr_t>(bytes));
    };
    const bool is_run = without_gaps(d) && (without_gaps(sources) && ...) && (fine(sources) && ...);
    return is_run && bytes > 0 && instruction_set() != InstructionSet::sequential ? bytes : 0;
}

} // namespace SMX_ISA
} // namespace smx

// All that a run is goes through registers: what one call has to store waits behind the results of the call before it.
// These two choose the set (frame_lanes.cpp).
namespace smx {
// result = x.
void copy_run(const void *x, const void *result, std::ptrdiff_t bytes);
// result = x operation y; y is `constant` if it has no address.
void compute_run(const void *x, const void *y, const void *result, std::ptrdiff_t bytes, RunKind kind,
                 double constant = 0);
// A call whose lists a plan has found to be arrays without gaps: its sources are x and y, or x alone and the constant.
// Says no, and does nothing, unless they are runs.
bool plan_copies_run(const LanePlan &plan);
bool plan_computes_run(const LanePlan &plan, Arithmetic operation, double constant);

inline namespace SMX_ISA {
// Computes a call whose operands are runs; else says no, and does nothing.
[[gnu::always_inline]] inline bool computes_run(Arithmetic operation, int count, const LaneOperand &d,
                                                const LaneOperand &x, const LaneOperand &y) {
    const std::ptrdiff_t bytes = run_bytes(count, d, x, y);
    if (bytes != 0) compute_run(x.base, y.base, d.base, bytes, {operation, d.element});
    return bytes != 0;
}
[[gnu::always_inline]] inline bool computes_run(Arithmetic operation, int count, const LaneOperand &d,
                                                const LaneOperand &x, double constant) {
    const std::ptrdiff_t bytes = run_bytes(count, d, x);
    if (bytes != 0) compute_run(x.base, nullptr, d.base, bytes, {operation, d.element}, constant);
    return bytes != 0;
}
[[gnu::always_inline]] inline bool computes_run(const LanePlan &plan, Arithmetic operation, double constant = 0) {
    return plan.verdict == Verdict::always && plan.packed && plan_computes_run(plan, operation, constant);
}
} // namespace SMX_ISA
} // namespace smx

SMX_DECLARE_LANES(void, copy_run_lanes, const void *x, const void *result, std::ptrdiff_t bytes)
SMX_DECLARE_LANES(void, compute_run_lanes, const void *x, const void *y, const void *result, std::ptrdiff_t bytes,
                  RunKind kind, double constant)
