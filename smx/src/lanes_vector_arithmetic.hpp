// Lane function of Add, Sub and Mul on vectors and constants: objects from `first` on, returning the first object not
// done. The second operand is the plan's second source, a vector or one constant an object, or else `constant`.
#pragma once

#include "frame_lanes.hpp"

namespace smx {

enum class Arithmetic { add, subtract, subtract_from, multiply };

inline namespace SMX_ISA {

template <Arithmetic operation, class V>
[[gnu::always_inline]] inline V apply(V x, V y) {
    if constexpr (operation == Arithmetic::add) return x + y;
    else if constexpr (operation == Arithmetic::subtract) return x - y;
    else if constexpr (operation == Arithmetic::subtract_from) return y - x;
    else return x * y;
}

} // namespace SMX_ISA
} // namespace smx

SMX_DECLARE_LANES(int, vector_arithmetic_lanes, const LanePlan &plan, Arithmetic operation, double constant, int first)
