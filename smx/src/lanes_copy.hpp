// Lane function of Copy, Extract and Transpose: objects from `first` on, returning the first object not done.
#pragma once

#include "lanes_runs.hpp"

SMX_DECLARE_LANES(int, copy_lanes, const LanePlan &plan, int first)
