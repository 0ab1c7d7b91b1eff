// Lane function of Add, Sub and Mul on vectors and constants: objects from `first` on, returning the first object not
// done. The second operand is the plan's second source, a vector or one constant an object, or else `constant`.
#pragma once

#include "lanes_runs.hpp"

SMX_DECLARE_LANES(int, vector_arithmetic_lanes, const LanePlan &plan, Arithmetic operation, double constant, int first)
