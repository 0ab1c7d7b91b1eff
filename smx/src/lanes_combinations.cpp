#include "lanes_combinations.hpp"

#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

bool packed(const LaneOperand &o) {
    return o.addressing == Addressing::strided && !o.transposed && !o.single && o.stride2 == o.element &&
           (o.rows == 1 || o.stride1 == o.columns * o.stride2) && o.stride0 == o.rows * o.columns * o.stride2;
}

// Nothing is padded: one flat loop over all elements.
template <bool two, class T>
int flat(const LanePlan &plan, T factor1, T factor2, int first) {
    const LaneOperand &d = plan.result[0];
    const std::ptrdiff_t offset = first * d.stride0, end = (plan.count - first) * d.stride0;
    const Byte *const a = at(plan.source[0].operand.base, offset), *const out = at(d.base, offset);
    const Byte *const b = two ? at(plan.source[1].operand.base, offset) : a;
    const Pack<T> f1(factor1), f2(factor2);
    std::ptrdiff_t e = 0;
    for (; e + pack_bytes <= end; e += pack_bytes) {
        Pack<T> x = f1 * load_pack<T>(a + e);
        if constexpr (two) x = x + f2 * load_pack<T>(b + e);
        store_pack(const_cast<Byte *>(out + e), x);
    }
    for (; e < end; e += static_cast<std::ptrdiff_t>(sizeof(T))) {
        T x = factor1 * load_element<T>(a + e);
        if constexpr (two) x = x + factor2 * load_element<T>(b + e);
        store_element(out + e, x);
    }
    return plan.count;
}

template <bool two, class T, int R, int C>
SMX_LANE_LOOP int objects(const LanePlan &plan, T factor1, T factor2, int first) {
    using Access = LaneAccess<T, R, C>;
    const Access a(plan.source[0].operand), b(plan.source[two ? 1 : 0].operand), d(plan.result[0]);
    const auto combined = [=](auto x, [[maybe_unused]] auto y) {
        x = factor1 * x;
        if constexpr (two) x = x + factor2 * y;
        return x;
    };
    const auto dense = [](const Access &x) {
        return x.o.addressing != Addressing::pointers && x.o.stride2 == Access::size && x.dense && !x.o.transposed;
    };
    if (dense(a) && dense(b) && dense(d))
        return each_object_of<T>(
            plan, first,
            [&](const Byte *x, const Byte *y, const Byte *z) { element_by_element<T, R * C>(combined, z, x, y); }, a.o,
            b.o, d.o);
    first = two ? plane_by_plane<T>(plan, first, combined, d.o, a.o, b.o)
                : plane_by_plane<T>(
                      plan, first, [&](auto x) { return combined(x, x); }, d.o, a.o);
    return each_group_by<T>(
        plan, first,
        [&](int n, const auto &from, [[maybe_unused]] const auto &beside, const auto &to) {
            Pack<T> x[R * C], y[R * C];
            from.load(n, x);
            if constexpr (two) beside.load(n, y);
#pragma GCC unroll 36
            for (int e = 0; e < R * C; ++e) x[e] = combined(x[e], y[two ? e : 0]);
            to.store(n, x);
            return true;
        },
        a, b, d);
}

template <bool two>
int combine(const LanePlan &plan, double factor1, double factor2, int first) {
    const LaneOperand &d = plan.result[0];
    const auto with = [&](auto zero) {
        using T = decltype(zero);
        const T f1 = static_cast<T>(factor1), f2 = static_cast<T>(factor2);
        if (packed(plan.source[0].operand) && packed(plan.source[two ? 1 : 0].operand) && packed(d))
            return flat<two>(plan, f1, f2, first);
        int done = first;
        with_side(d.columns, [&]<int N>(Side<N>) {
            if (two) done = objects<true, T, 1, N>(plan, f1, f2, first);
            else if (d.rows == N) done = objects<false, T, N, N>(plan, f1, f2, first);
        });
        return done;
    };
    return d.element == sizeof(float) ? with(float{}) : with(double{});
}

} // namespace

int combination_lanes(const LanePlan &plan, double factor1, double factor2, int first) {
    if (first >= plan.count) return first;
    return plan.sources == 2 ? combine<true>(plan, factor1, factor2, first)
                             : combine<false>(plan, factor1, factor2, first);
}

} // namespace SMX_ISA
} // namespace smx
