#include "lanes_lists.hpp"

namespace smx {
inline namespace SMX_ISA {

void list_bounds(const std::intptr_t *list, int count, std::intptr_t &low, std::intptr_t &high) {
    std::intptr_t least = list[0], most = list[0];
    for (int n = 1; n < count; ++n) {
        least = list[n] < least ? list[n] : least;
        most = list[n] > most ? list[n] : most;
    }
    low = least;
    high = most;
}

bool list_ascends(const std::intptr_t *list, int count, std::intptr_t gap) {
    std::intptr_t signs = 0; // gathered, so that there is no branch in the loop
    for (int n = 1; n < count; ++n) signs |= list[n] - list[n - 1] - gap;
    return signs >= 0;
}

} // namespace SMX_ISA
} // namespace smx
