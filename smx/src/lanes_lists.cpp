#include "lanes_lists.hpp"

#include <utility>

#if defined(__AVX512F__)
#include <immintrin.h>
#endif

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

bool list_neighbours_apart(const std::intptr_t *list, int count, std::intptr_t extent) {
    std::intptr_t signs = -1;
    const std::intptr_t reach = extent - 1;
    for (int n = 1; n < count; ++n) {
        const std::intptr_t distance = list[n] - list[n - 1];
        signs &= (distance + reach) | (reach - distance);
    }
    return signs < 0;
}

namespace {

#if defined(__AVX512F__)
// Each address beside the one r places on, round the group of 8 or 16: apart if a - b + reach, taken without a sign, is
// greater than twice the reach.
template <int r>
void beside(__mmask8 &apart, __m512i above, __m512i low, __m512i high, __m512i twice) {
    const __m512i distance = _mm512_sub_epi64(above, r == 8 ? high : _mm512_alignr_epi64(high, low, r % 8));
    apart = _mm512_mask_cmpgt_epu64_mask(apart, distance, twice);
}
template <int W>
bool wide_group_apart(const std::intptr_t *list, std::intptr_t reach) {
    const __m512i low = _mm512_loadu_si512(list), high = W == 16 ? _mm512_loadu_si512(list + W - 8) : low;
    const __m512i all_reach = _mm512_set1_epi64(reach), twice = _mm512_set1_epi64(2 * reach);
    const __m512i above_low = _mm512_add_epi64(low, all_reach), above_high = _mm512_add_epi64(high, all_reach);
    __mmask8 apart = 0xff, also = 0xff;
    [&]<int... r>(std::integer_sequence<int, r...>) {
        (beside<r + 1>(apart, above_low, low, high, twice), ...);
        if constexpr (W == 16) (beside<r + 1>(also, above_high, high, low, twice), ...);
    }
    (std::make_integer_sequence<int, W / 2>{});
    return (apart & also) == 0xff;
}
#endif

// The same by the signs of all distances, which are gathered.
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
#if defined(__AVX512F__)
    if (width == 8) return wide_group_apart<8>(list, extent - 1);
    if (width == 16) return wide_group_apart<16>(list, extent - 1);
#endif
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
