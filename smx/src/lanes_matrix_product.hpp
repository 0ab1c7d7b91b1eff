// Lane function of the matrix products: whole groups from object `first` on, returning the first object not done. For
// square operands of the sides 3 to 6. The sums start at 0.0 (as in the blocked path) or at their first product.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, matrix_product_lanes, const LanePlan &plan, bool from_zero, int first)
