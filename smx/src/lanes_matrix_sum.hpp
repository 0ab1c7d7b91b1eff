// Lane function of the matrix sums whose operands are not all runs: whole groups from object `first` on, returning the
// first object not done.
#pragma once

#include "lanes_runs.hpp"

SMX_DECLARE_LANES(int, matrix_sum_lanes, const LanePlan &plan, Arithmetic operation, int first)
