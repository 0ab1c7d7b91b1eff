// The scratch of the general eigen families: n (squares n + 5) elements, told in bytes.
#pragma once

#include "frame_isa.hpp"
#include "smx.h"

namespace smx {
inline namespace SMX_ISA {

template <class T, unsigned squares>
inline SmxStatus eigen_buffer_size(int widthHeight, int *bufSize) {
    if (bufSize == nullptr) return smxStsNullPtrErr;
    if (widthHeight < 1) return smxStsSizeErr;
    const unsigned n = static_cast<unsigned>(widthHeight);
    *bufSize = static_cast<int>(n * (squares * n + 5) * static_cast<unsigned>(sizeof(T))); // wraps
    return smxStsNoErr;
}

} // namespace SMX_ISA
} // namespace smx
