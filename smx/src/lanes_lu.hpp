// Lane functions of the LU families: whole groups from object `first` on, returning the first object not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, lu_decompose_lanes, const LanePlan &plan, int *pivots, int side, int first)
// `reciprocals`: those of the diagonal where one matrix serves all vectors, else null.
SMX_DECLARE_LANES(int, lu_solve_lanes, const LanePlan &plan, const int *pivots, const void *reciprocals, int side,
                  int first)
