// Lane functions of the norms and the trace: whole groups from object `first` on, returning the first object not done.
#pragma once

#include "frame_lanes.hpp"

// The root of the sum of squares of a vector or a square matrix.
SMX_DECLARE_LANES(int, norm_lanes, const LanePlan &plan, bool pairs, bool cuts_off, int first)
SMX_DECLARE_LANES(int, trace_lanes, const LanePlan &plan, bool tail_first, int first)
