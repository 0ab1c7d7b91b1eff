// An operand as the lane engine sees it: plain data that crosses from the baseline code to a unit built for a wider
// instruction set, so it has no inline function.
#pragma once

#include <cstddef>

namespace smx {

enum class Addressing { strided, pointers, list };

struct LaneOperand {
    const void *base;         // strided: object 0
    const void *const *table; // pointers: one entry an element; list: one entry an object
    std::ptrdiff_t shift;     // added to every entry of the table
    std::ptrdiff_t stride0;
    std::ptrdiff_t stride1;
    std::ptrdiff_t stride2;
    int element; // its size
    int rows;    // of the stored object
    int columns;
    Addressing addressing;
    bool transposed; // the algorithm sees (j, i)
    bool single;     // one object, the same for every n
};

} // namespace smx
