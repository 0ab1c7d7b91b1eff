// Lane functions of the array forms of the general eigen families: whole groups from object `first` on, returning the
// first object not done.
#pragma once

#include "frame_lanes.hpp"

namespace smx {
// Groups that the values alone are found for at the same time: square roots and divisions of doubles take so long that
// one group waits most of the time.
template <class T>
constexpr int eigen_groups_at_once = sizeof(T) == 8 ? 2 : 1;
} // namespace smx

SMX_DECLARE_LANES(int, eigen_lanes, const LanePlan &plan, int side, int first)
// `modes` as in family_eigen.hpp; the results are the vectors of each mode, right before left, then the values.
SMX_DECLARE_LANES(int, eigen_vectors_lanes, const LanePlan &plan, int side, unsigned modes, int first)
