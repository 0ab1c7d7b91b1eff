#include "lanes_lists.hpp"

#include "frame_pack.hpp"

#include <cstring>
#include <utility>

namespace smx {
inline namespace SMX_ISA {

void list_bounds(const Address *list, int count, Address &low, Address &high) {
    typedef Address Addresses __attribute__((vector_size(pack_bytes)));
    constexpr int W = pack_bytes / static_cast<int>(sizeof(Address));
    // As distances from the first, which do not depend on the sign of an address.
    const Address first = list[0];
    low = high = first;
    const auto take = [](Address &least, Address &most, Address x) {
        least = x < least ? x : least;
        most = x > most ? x : most;
    };
    if (count < W) {
        Address before = 0, behind = 0;
        for (int n = 1; n < count; ++n) take(before, behind, list[n] - first);
        low = first + before;
        high = first + behind;
        return;
    }
    // Several at once, because each minimum waits for the one before it; the last goes back over what has been seen.
    constexpr int several = 4;
    Addresses least[several], most[several];
    for (int k = 0; k < several; ++k) least[k] = most[k] = Addresses{};
    const auto take_from = [&](int n, int k) {
        Addresses x;
        std::memcpy(&x, list + n, pack_bytes);
        x = x - first;
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
    Address lowest = 0, highest = 0;
    for (int l = 0; l < W; ++l) {
        lowest = least[0][l] < lowest ? least[0][l] : lowest;
        highest = most[0][l] > highest ? most[0][l] : highest;
    }
    low = first + lowest;
    high = first + highest;
}

namespace {

// Findings are gathered, so that there is no branch in the loops; but most lists show soon that they are in no order.
constexpr int soon = 16;

} // namespace

Address list_step(const Address *list, int count) {
    // Against what it would be, so that each address is loaded once; without a sign, since it may wrap.
    const auto step = static_cast<std::uintptr_t>(list[1]) - static_cast<std::uintptr_t>(list[0]);
    std::uintptr_t expected = static_cast<std::uintptr_t>(list[1]), differences = 0;
    int n = 2;
    const auto look_until = [&](int end) {
        for (; n < end; ++n) {
            expected += step;
            differences |= static_cast<std::uintptr_t>(list[n]) ^ expected;
        }
    };
    look_until(count < soon ? count : soon);
    if (differences != 0) return 0;
    look_until(count);
    return differences == 0 ? static_cast<Address>(step) : 0;
}

bool list_ascends(const Address *list, int count, Address gap) {
    Address signs = 0;
    int n = 1;
    for (; n < count && n < soon; ++n) signs |= list[n] - list[n - 1] - gap;
    if (signs < 0) return false;
    for (; n < count; ++n) signs |= list[n] - list[n - 1] - gap;
    return signs >= 0;
}

bool lists_apart(const Address *a, const Address *b, int count, Address extent_a, Address extent_b) {
    Address signs = 0;
    for (int n = 0; n < count; ++n) {
        const Address distance = b[n] - a[n];
        signs |= (distance - extent_a) & (-extent_b - distance); // negative both where they meet
    }
    return signs >= 0;
}

bool list_neighbours_apart(const Address *list, int count, Address extent) {
    Address signs = -1;
    const Address reach = extent - 1;
    for (int n = 1; n < count; ++n) {
        const Address distance = list[n] - list[n - 1];
        signs &= (distance + reach) | (reach - distance);
    }
    return signs < 0;
}

namespace {

// Is every one of W numbers without a sign greater than the bound?
template <int W, class V>
bool all_greater(V x, std::uint32_t bound) {
    [[maybe_unused]] const V limit = bound - V{};
#if defined(__AVX512F__)
    if constexpr (sizeof x == 64)
        return _mm512_cmple_epu32_mask(reinterpret_cast<__m512i>(x), reinterpret_cast<__m512i>(limit)) == 0;
#endif
#if defined(__AVX2__)
    if constexpr (sizeof x == 32) {
        const __m256i all = reinterpret_cast<__m256i>(x);
        const __m256i less = _mm256_min_epu32(all, reinterpret_cast<__m256i>(limit));
        return _mm256_movemask_epi8(_mm256_cmpeq_epi32(less, all)) == 0;
    }
    if constexpr (sizeof x == 16) {
        const __m128i all = reinterpret_cast<__m128i>(x), less = _mm_min_epu32(all, reinterpret_cast<__m128i>(limit));
        return _mm_movemask_epi8(_mm_cmpeq_epi32(less, all)) == 0;
    }
#endif
    bool greater = true;
    for (int l = 0; l < W; ++l) greater = greater && x[l] > bound;
    return greater;
}

// Each address beside the one r places on, round the group: apart if a - b + reach, taken without a sign, is greater
// than twice the reach.
template <int W, class Bits>
bool group_apart(const Address *list, Bits reach) {
    typedef Bits Addresses __attribute__((vector_size(W * sizeof(Bits))));
    Addresses a;
    for (int l = 0; l < W; ++l) a[l] = static_cast<Bits>(list[l]);
    const Addresses above = a + reach;
    return [&]<int... l>(std::integer_sequence<int, l...>) {
        Addresses least = ~Addresses{};
        const auto beside = [&]<int r>(Fixed<r>) {
            const Addresses distance = above - __builtin_shufflevector(a, a, ((l + r) % W)...);
            least = distance < least ? distance : least;
        };
        [&]<int... r>(std::integer_sequence<int, r...>) {
            (beside(Fixed<r + 1>{}), ...);
        }
        (std::make_integer_sequence<int, W / 2>{});
        return all_greater<W>(least, 2 * reach);
    }
    (std::make_integer_sequence<int, W>{});
}

} // namespace

bool list_group_apart(const Address *list, int width, Address extent) {
    if (extent < 1 || extent > 1 << 30) return width < 2;
    const auto reach = static_cast<std::uint32_t>(extent - 1);
    switch (width) {
    case 2: return group_apart<2>(list, reach);
    case 4: return group_apart<4>(list, reach);
    case 8: return group_apart<8>(list, reach);
    case 16: return group_apart<16>(list, reach);
    default: return width < 2;
    }
}

bool begin_group(const LanePlan &plan, int first, int width) {
    if (plan.far != 0) touch_group(plan, plan.far, first, width);
    if (plan.doubts == 0) return true;
    const ListAlone &alone = plan.alone;
    if (alone.list == nullptr) return group_is_safe(plan, first, width);
    return list_group_apart(alone.list + first, width, alone.extent);
}

} // namespace SMX_ISA
} // namespace smx
