// Lane function of the matrix-by-vector families: whole groups from object `first` on, returning the first object not
// done. A third source is added to the products.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, matrix_vector_lanes, const LanePlan &plan, bool from_zero, int first)
