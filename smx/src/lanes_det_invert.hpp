// Lane functions of the determinant and the inverse: whole groups from object `first` on, returning the first object
// not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, determinant_lanes, const LanePlan &plan, int side, int first)
SMX_DECLARE_LANES(int, invert_lanes, const LanePlan &plan, int side, int first)
