// Lane functions of the QR families: whole groups from object `first` on, returning the first object not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, qr_decompose_lanes, const LanePlan &plan, int width, int height, int first)
SMX_DECLARE_LANES(int, qr_solve_lanes, const LanePlan &plan, int width, int height, int first)
