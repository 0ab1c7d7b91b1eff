// Lane functions of the Cholesky families: whole groups from object `first` on, returning the first object not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, cholesky_decompose_lanes, const LanePlan &plan, double radicand_bound, int side, int first)
SMX_DECLARE_LANES(int, cholesky_solve_lanes, const LanePlan &plan, int side, int first)
