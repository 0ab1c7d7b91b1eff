// Lane function of the matrix sums: whole groups from object `first` on, returning the first object not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, matrix_sum_lanes, const LanePlan &plan, bool minus, int first)
