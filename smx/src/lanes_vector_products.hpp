// Lane functions of the dot and cross products: whole groups from object `first` on, returning the first object not
// done.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, dot_product_lanes, const LanePlan &plan, bool tail_second, int first)
SMX_DECLARE_LANES(int, cross_product_lanes, const LanePlan &plan, int first)
