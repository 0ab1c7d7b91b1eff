#include "lanes_vector_products.hpp"

#include "family_products_core.hpp"
#include "frame_lane_access.hpp"

namespace smx {
inline namespace SMX_ISA {

namespace {

template <SumOrder order, class T, int N>
int dot(const LanePlan &plan, int first) {
    const LaneAccess<T, 1, N> a(plan.source[0].operand), b(plan.source[1].operand);
    const LaneAccess<T, 1, 1> dst(plan.result[0]);
    if (b.o.single) {
        Pack<T> y[N];
        b.load_there(0, y);
        const auto body = [&](int n, auto known) {
            Pack<T> x[N];
            a.template load_by<known>(n, x);
            const Pack<T> sum = dot_of<order>(x, y);
            dst.template store_by<known>(n, &sum);
            return true;
        };
        return each_group_by<false, T>(plan, first, body, a, dst);
    }
    const auto body = [&](int n, auto known) {
        Pack<T> x[N], y[N], sum;
        if constexpr (known == Known::packed && a.few) {
            // Multiplied as they lie, so that only the products are taken apart.
            const auto load = [n](const LaneOperand &o, int k) {
                return load_pack<T>(at(o.base, n * o.stride0 + k * pack_bytes));
            };
            for (int k = 0; k < N; ++k) x[k] = load(a.o, k) * load(b.o, k);
            take_apart<T, N>(x, y);
            sum = sum_of<order>(y);
        } else {
            a.load_there(n, x);
            b.load_there(n, y);
            sum = dot_of<order>(x, y);
        }
        dst.template store_by<known>(n, &sum);
        return true;
    };
    return each_group_by<false, T>(plan, first, body, a, b, dst);
}

// Element i of each vector is the next one around, of vectors side by side.
struct NextAround {
    static constexpr int at(int e) { return e % 3 == 2 ? e - 2 : e + 1; }
};

template <class T>
int cross(const LanePlan &plan, int first) {
    const LaneAccess<T, 1, 3> a(plan.source[0].operand), b(plan.source[1].operand), dst(plan.result[0]);
    return each_group_by<false, T>(
        plan, first,
        [&](int n, auto known) {
            Pack<T> x[3], y[3], z[3];
            if constexpr (known == Known::packed && a.few) {
                // As they lie: a(i) b(i + 1) - a(i + 1) b(i) is element i + 2.
                constexpr auto registers = std::make_integer_sequence<int, 3>{};
                Pack<T> next_x[3], next_y[3];
                for (int k = 0; k < 3; ++k) {
                    x[k] = load_pack<T>(at(a.o.base, n * a.o.stride0 + k * pack_bytes));
                    y[k] = load_pack<T>(at(b.o.base, n * b.o.stride0 + k * pack_bytes));
                }
                rearrange<T, NextAround, 3>(x, next_x, registers);
                rearrange<T, NextAround, 3>(y, next_y, registers);
                for (int k = 0; k < 3; ++k) z[k] = x[k] * next_y[k] - next_x[k] * y[k];
                rearrange<T, NextAround, 3>(z, x, registers);
                for (int k = 0; k < 3; ++k)
                    store_pack(const_cast<Byte *>(at(dst.o.base, n * dst.o.stride0 + k * pack_bytes)), x[k]);
            } else {
                a.load_there(n, x);
                b.load_there(n, y);
                for (int i = 0; i < 3; ++i)
                    z[i] = cross_element(
                        i, [&](int p) { return x[p]; }, [&](int p) { return y[p]; });
                dst.store_there(n, z);
            }
            return true;
        },
        a, b, dst);
}

} // namespace

int dot_product_lanes(const LanePlan &plan, bool tail_second, int first) {
    return by_type_and_side(plan, plan.result[0].element, plan.source[0].operand.columns, first,
                            [&](auto zero, auto side) {
                                using T = decltype(zero);
                                constexpr int N = decltype(side)::value;
                                return tail_second ? dot<SumOrder::dot_tail_second, T, N>(plan, first)
                                                   : dot<SumOrder::ascending, T, N>(plan, first);
                            });
}
int cross_product_lanes(const LanePlan &plan, int first) {
    return plan.result[0].element == sizeof(float) ? cross<float>(plan, first) : cross<double>(plan, first);
}

} // namespace SMX_ISA
} // namespace smx
