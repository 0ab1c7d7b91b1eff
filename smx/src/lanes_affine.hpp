// Lane function of the affine transform: whole groups from object `first` on, returning the first object not done. Sets
// *bad if a point cannot be divided.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, affine_lanes, const LanePlan &plan, bool *bad, int first)
