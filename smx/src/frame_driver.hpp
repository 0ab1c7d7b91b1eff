// The parallel driver: cuts the array once into one contiguous share a thread, runs the ordinary kernel on each, and
// keeps the first failing status to arrive. It has no loop over objects: if the runtime gives fewer threads than asked
// for (inside the caller's own parallel region, say), the shares of the missing threads are not done.
#pragma once

#include <omp.h>

#include <cstddef>

#include "frame_operands.hpp"
#include "smkcore.h"
#include "smxdefs.h"

namespace smx {
inline namespace SMX_ISA {

struct Share {
    int first;
    int count;
    void *scratch;
};

// Elements of scratch for an elimination in a copy of a matrix: the copy, and room for its row index.
constexpr std::size_t elimination_scratch(int side) {
    return static_cast<std::size_t>(side) * (static_cast<std::size_t>(side) + 1);
}

// direct() runs the kernel on the caller's arguments, share(s) on the objects of s; last_fits(f) says whether a share
// that starts at object f can be described. A scratch family gives the bytes of one thread's scratch.
template <class Direct, class Body, class Fits>
SmxStatus drive(int count, Fits last_fits, Direct direct, Body body, std::size_t scratch_bytes = 0) {
    const int threads = threads_omp_of_n_smk;
    if (threads <= 1 || count < threads) return direct();
    const int quotient = count / threads;
    const int remainder = count % threads;
    if (!last_fits(count - quotient)) return direct();

    // The runtime's block is not tested.
    char *const scratch =
        scratch_bytes == 0
            ? nullptr
            : static_cast<char *>(omp_alloc(scratch_bytes * static_cast<std::size_t>(threads), omp_default_mem_alloc));
    SmxStatus status = smxStsNoErr;
#pragma omp parallel num_threads(threads_omp_of_n_smk)
    {
        const int t = omp_get_thread_num();
        const Share share{quotient * t + (t < remainder ? t : remainder), quotient + (t < remainder ? 1 : 0),
                          scratch_bytes == 0 ? nullptr : scratch + scratch_bytes * static_cast<std::size_t>(t)};
        // The team may be larger than the split if the thread count was raised in between: no share, no work.
        const SmxStatus mine = t < threads ? body(share) : static_cast<SmxStatus>(smxStsNoErr);
#pragma omp critical
        if (status == smxStsNoErr) status = mine;
    }
    if (scratch_bytes != 0) omp_free(scratch, omp_default_mem_alloc);
    return status;
}

} // namespace SMX_ISA
} // namespace smx
