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

namespace {

// Each address beside the one r places on, round the group; the signs of all lanes are gathered.
template <int W>
bool group_apart(const std::intptr_t *list, std::intptr_t reach) {
    std::intptr_t round[2 * W], signs[W];
    for (int l = 0; l < W; ++l) {
        round[l] = round[l + W] = list[l];
        signs[l] = -1;
    }
#pragma GCC unroll 8
    for (int r = 1; r <= W / 2; ++r)
        for (int l = 0; l < W; ++l) {
            const std::intptr_t distance = round[l] - round[l + r];
            signs[l] &= (distance + reach) | (reach - distance);
        }
    std::intptr_t all = -1;
    for (int l = 0; l < W; ++l) all &= signs[l];
    return all < 0;
}

} // namespace

bool list_group_apart(const std::intptr_t *list, int width, std::intptr_t extent) {
    switch (width) {
    case 2: return group_apart<2>(list, extent - 1);
    case 4: return group_apart<4>(list, extent - 1);
    case 8: return group_apart<8>(list, extent - 1);
    case 16: return group_apart<16>(list, extent - 1);
    default: return width < 2;
    }
}

} // namespace SMX_ISA
} // namespace smx
