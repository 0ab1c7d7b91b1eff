// Lane functions of the array forms of the symmetric eigen families: whole groups from object `first` on, returning the
// first object not done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, eigen_sym_lanes, const LanePlan &plan, int side, int first)
SMX_DECLARE_LANES(int, eigen_vectors_sym_lanes, const LanePlan &plan, int side, double gate, int first)
