// Operations on single elements over objects that follow each other without a gap: all of a call are one run of
// adjacent elements, which needs no plan.
#pragma once

#include "frame_lanes.hpp"

namespace smx {

enum class Arithmetic { add, subtract, subtract_from, multiply };

// One or two sources, as long as the result; each is the result itself or apart from it.
struct LaneRun {
    const void *source[2];
    const void *result;
    std::ptrdiff_t count; // of elements
    int sources;
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

// Are all operands of a call runs without an overlap that could show? Inlined, nearly all of it is known beforehand.
template <class... Operands>
[[gnu::always_inline]] inline bool find_run(LaneRun &run, int count, const LaneOperand &d, const Operands &...sources) {
    const auto object = [](const LaneOperand &o) { return std::ptrdiff_t{o.rows} * o.columns * o.element; };
    const auto without_gaps = [&](const LaneOperand &o) {
        return o.addressing == Addressing::strided && !o.single && !o.transposed && o.stride2 == o.element &&
               (o.rows == 1 || o.stride1 == o.columns * o.stride2) && o.stride0 == object(d) && object(o) == object(d);
    };
    if (!without_gaps(d) || !(without_gaps(sources) && ...)) return false;
    run = {{sources.base...}, d.base, std::ptrdiff_t{count} * d.rows * d.columns, sizeof...(sources), d.element};
    const auto fine = [&](const LaneOperand &o) {
        const std::uintptr_t behind =
            reinterpret_cast<std::uintptr_t>(o.base) - reinterpret_cast<std::uintptr_t>(d.base);
        const auto bytes = static_cast<std::uintptr_t>(count * object(d));
        return behind == 0 || (behind >= bytes && -behind >= bytes);
    };
    return (fine(sources) && ...) && instruction_set() != InstructionSet::sequential;
}

} // namespace SMX_ISA
} // namespace smx

namespace smx {
// result = source, and result = source 0 operation source 1, or `constant` if there is one source alone.
void copy_run(const LaneRun &run);
void compute_run(const LaneRun &run, Arithmetic operation, double constant = 0);
} // namespace smx

// The same from element `first` on. Returns the first element not done, which is `first` where a narrower set is
// faster.
SMX_DECLARE_LANES(std::ptrdiff_t, copy_run_lanes, const LaneRun &run, std::ptrdiff_t first)
SMX_DECLARE_LANES(std::ptrdiff_t, compute_run_lanes, const LaneRun &run, Arithmetic operation, double constant,
                  std::ptrdiff_t first)
