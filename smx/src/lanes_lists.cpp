#include "lanes_lists.hpp"

#include "frame_pack.hpp"

#include <cstring>
#include <utility>

#if defined(__AVX512F__)
#include <immintrin.h>
#endif

namespace smx {
inline namespace SMX_ISA {

void list_bounds(const std::intptr_t *list, int count, std::intptr_t &low, std::intptr_t &high) {
    typedef std::intptr_t Addresses __attribute__((vector_size(pack_bytes)));
    constexpr int W = pack_bytes / static_cast<int>(sizeof(std::intptr_t));
    low = high = list[0];
    const auto take = [](std::intptr_t &least, std::intptr_t &most, std::intptr_t x) {
        least = x < least ? x : least;
        most = x > most ? x : most;
    };
    if (count < W) {
        for (int n = 1; n < count; ++n) take(low, high, list[n]);
        return;
    }
    // Several at once, because each minimum waits for the one before it; the last goes back over what has been seen.
    constexpr int several = 4;
    Addresses least[several], most[several];
    for (int k = 0; k < several; ++k) least[k] = most[k] = low - Addresses{};
    const auto take_from = [&](int n, int k) {
        Addresses x;
        std::memcpy(&x, list + n, pack_bytes);
        least[k] = x < least[k] ? x : least[k];
        most[k] = x > most[k] ? x : most[k];
    };
    int n = 0;
    for (; n + several * W <= count; n += several * W)
#pragma GCC unroll 4
        for (int k = 0; k < several; ++k) take_from(n + k * W, k);
    for (; n + W <= count; n += W) take_from(n, 0);
    take_from(count - W, 1);
#pragma GCC unroll 4
    for (int k = 1; k < several; ++k) {
        least[0] = least[k] < least[0] ? least[k] : least[0];
        most[0] = most[k] > most[0] ? most[k] : most[0];
    }
    for (int l = 0; l < W; ++l) {
        low = least[0][l] < low ? least[0][l] : low;
        high = most[0][l] > high ? most[0][l] : high;
    }
}

bool list_ascends(const std::intptr_t *list, int count, std::intptr_t gap) {
    // Signs are gathered, so that there is no branch in the loop; but most lists that do not ascend show it soon.
    constexpr int soon = 64;
    std::intptr_t signs = 0;
    int n = 1;
    for (; n < count && n < soon; ++n) signs |= list[n] - list[n - 1] - gap;
    if (signs < 0) return false;
    for (; n < count; ++n) signs |= list[n] - list[n - 1] - gap;
    return signs >= 0;
}

bool lists_apart(const std::intptr_t *a, const std::intptr_t *b, int count, std::intptr_t extent_a,
                 std::intptr_t extent_b) {
    std::intptr_t signs = 0;
    for (int n = 0; n < count; ++n) {
        const std::intptr_t distance = b[n] - a[n];
        signs |= (distance - extent_a) & (-extent_b - distance); // negative both where they meet
    }
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
