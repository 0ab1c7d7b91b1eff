// Lane function of the matrix products: whole groups from object `first` on, returning the first object not done. For
// square operands of the sides 3 to 6. The sums start at 0.0 (as in the blocked path) or at their first product.
#pragma once

#include "frame_lanes.hpp"

SMX_DECLARE_LANES(int, matrix_product_lanes, const LanePlan &plan, bool from_zero, int first)

// One product of such operands, a row of the result at a time; the result must not meet the first operand. Rows are so
// many bytes apart, of the first operand also columns; in a row of the others elements are adjacent. Returns 0.
SMX_DECLARE_LANES(int, one_product_lanes, const void *first, std::ptrdiff_t first_row, std::ptrdiff_t first_column,
                  const void *second, std::ptrdiff_t second_row, void *result, std::ptrdiff_t result_row, int element,
                  int side)
