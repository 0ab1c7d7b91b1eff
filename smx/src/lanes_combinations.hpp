// Lane function of the element-by-element families with constants: dst = factor1 src1, or factor1 src1 + factor2 src2
// with a second source (a factor of 1 changes no bit). Objects from `first` on, returning the first one not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, combination_lanes, const LanePlan &plan, double factor1, double factor2, int first)
