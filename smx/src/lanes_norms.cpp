#include "lanes_norms.hpp"

#include "family_products_core.hpp"
#include "frame_lane_loops.hpp"
#include "frame_twin.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <bool pairs, class T, int R, int C>
SMX_LANE_LOOP int norm(const LanePlan &plan, bool cuts_off, int first) {
    constexpr int E = R * C;
    const Shaped<T, R, C> src{plan.source[0].operand};
    const Shaped<T, 1, 1> dst{plan.result[0]};
    const auto body = [&](int n, const auto &from, const auto &to) {
        const auto plus_square = [](auto sum, Pack<T> x) __attribute__((always_inline)) {
            const auto wide = widened(x);
            if constexpr (sizeof(T) == sizeof(float)) return plus_exact_square(sum, wide);
            else return sum + wide * wide;
        };
        decltype(widened(Pack<T>())) sum(0.0);
        Pack<T> x[E];
        from.load(n, x);
        const auto square = [&](int e) {
            const auto wide = widened(x[e]);
            return wide * wide;
        };
#pragma GCC unroll 36
        for (int e = 0; e < E; e += pairs ? 2 : 1)
            if constexpr (pairs) sum = sum + (e + 1 < E ? plus_square(square(e), x[e + 1]) : square(e));
            else sum = plus_square(sum, x[e]);
        const Pack<T> root = narrowed(norm_of<T>(sum, cuts_off));
        to.store(n, &root);
        return true;
    };
    using enum Known;
    if constexpr (E <= 16) return each_group_by<T, packed, strided, listed, planes>(plan, first, body, src, dst);
    else return each_group_by<T, packed, dense, planes>(plan, first, body, src, dst);
}

// The diagonals of W matrices side by side. Of side 3, the elements that belong together lie in different lanes; of
// side 4, first those of as many matrices as fill a register come together, then all.
template <class T, int N>
struct Diagonals {
    static constexpr int W = Pack<T>::width, apart = N + 1, at_once = W / N;
    static constexpr int at(int e) { return e % W * N * N + e / W * apart; }
    struct Few {
        static constexpr int at(int l) { return l % at_once * N * N + l / at_once * apart; }
    };
    struct All {
        static constexpr int at(int e) { return e % W / at_once * W + e / W * at_once + e % at_once; }
    };
};
template <class T, int N, class Matrices>
[[gnu::always_inline]] inline void load_diagonals(const Matrices &from, int n, Pack<T> (&diagonal)[N]) {
    using D = Diagonals<T, N>;
    Pack<T> x[N * N];
#pragma GCC unroll 16
    for (int k = 0; k < N * N; ++k) x[k] = from.load_register(n, k);
    if constexpr (N == 3) {
        rearrange<T, D, N, N * N, By::blends>(x, diagonal);
    } else {
        Pack<T> few[N];
#pragma GCC unroll 4
        for (int k = 0; k < N; ++k) rearrange<T, typename D::Few, 1, N>(x + N * k, few + k);
        rearrange<T, typename D::All, N, N>(few, diagonal);
    }
}

// Only where objects follow each other element by element, or are few floats side by side in the first cache
// (Trace::takes_lanes): to read a few elements of each object costs the same one by one.
template <SumOrder order, class T, int N>
SMX_LANE_LOOP int trace(const LanePlan &plan, int first) {
    if constexpr (loads_ends && sizeof(T) == sizeof(float) && N <= 4)
        if (plan.packed)
            return each_group_known<Known::packed, T>(
                plan, first,
                [&](int n, const auto &from, const auto &to) {
                    Pack<T> diagonal[N];
                    load_diagonals<T, N>(from, n, diagonal);
                    const Pack<T> sum = sum_of<order>(diagonal);
                    to.store(n, &sum);
                    return true;
                },
                Shaped<T, N, N>{plan.source[0].operand}, Shaped<T, 1, 1>{plan.result[0]});
    using Access = LaneAccess<T, N, N>;
    const Access src(plan.source[0].operand);
    const LaneAccess<T, 1, 1> dst(plan.result[0]);
    if (src.way != Access::Way::across) return first;
    const Byte *plane[N];
    for (int i = 0; i < N; ++i) plane[i] = src.address(0, i, i);
    return each_group_by<T, Known::planes>(
        plan, first,
        [&](int n, const auto &to) {
            Pack<T> diagonal[N];
            for (int i = 0; i < N; ++i) diagonal[i] = load_pack<T>(plane[i] + n * Access::size);
            const Pack<T> sum = sum_of<order>(diagonal);
            to.store(n, &sum);
            return true;
        },
        dst);
}

} // namespace

int norm_lanes(const LanePlan &plan, bool pairs, bool cuts_off, int first) {
    if constexpr (few_lanes) return first;
    const LaneOperand &o = plan.source[0].operand;
    return by_type_and_side<Fewest::one>(plan, plan.result[0].element, o.columns, first, [&](auto zero, auto side) {
        using T = decltype(zero);
        constexpr int N = decltype(side)::value;
        if (o.rows == 1) return norm<false, T, 1, N>(plan, cuts_off, first);
        return pairs ? norm<true, T, N, N>(plan, cuts_off, first) : norm<false, T, N, N>(plan, cuts_off, first);
    });
}
int trace_lanes(const LanePlan &plan, bool tail_first, int first) {
    return by_type_and_side(
        plan, plan.result[0].element, plan.source[0].operand.columns, first, [&](auto zero, auto side) {
            using T = decltype(zero);
            constexpr int N = decltype(side)::value;
            constexpr bool has_tail = N > 4;
            constexpr SumOrder with_tail = has_tail ? SumOrder::trace_tail_first : SumOrder::ascending;
            return tail_first ? trace<with_tail, T, N>(plan, first) : trace<SumOrder::ascending, T, N>(plan, first);
        });
}

} // namespace SMX_ISA
} // namespace smx
